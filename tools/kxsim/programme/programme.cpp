#include "kxsim/programme/programme.h"

namespace kxsim
{

void Programme::start(bool moves)
{
    if (moves) {
        for (auto& [station, memory] : m_stations->all())
            m_motions.emplace_back(&memory);
    }
    m_waves.showAt(Moment(0));
}

void Programme::advanceTo(Moment now)
{
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now);
    for (Motion& motion : m_motions)
        motion.advanceTo(elapsed.count());
    m_waves.showAt(now);
}

} // namespace kxsim
