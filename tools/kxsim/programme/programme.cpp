#include "kxsim/programme/programme.h"

namespace kxsim
{

namespace
{

const Moment SCAN_TIME = std::chrono::milliseconds(10);

} // namespace

bool Programme::add(const PresetContact& contact, const char* option, std::vector<Place>* places,
                    QString* error)
{
    const kx::AddressRange& range = contact.contact;
    std::vector<ControllerMemory*> memories;
    if (!m_stations->named(range, &memories, error))
        return false;
    for (ControllerMemory* const memory : memories) {
        for (const Place& other : *places) {
            if (other.memory != memory || other.plan.contact.address != range.address)
                continue;
            *error = QStringLiteral("--%1 %2: it has one already")
                         .arg(QLatin1String(option), kx::addressText(range.type, range.address));
            return false;
        }
        places->push_back({contact, memory});
        for (const RegisterType* const type : {range.type, contact.valueType()})
            memory->preset(type, range.address, memory->value(type, range.address));
    }
    return true;
}

bool Programme::addTimer(const PresetContact& timer, QString* error)
{
    return add(timer, "timer", &m_timerPlaces, error);
}

bool Programme::addCounter(const PresetContact& counter, QString* error)
{
    return add(counter, "counter", &m_counterPlaces, error);
}

void Programme::start(bool moves)
{
    m_moves = moves;
    if (moves) {
        for (auto& [station, memory] : m_stations->all())
            m_motions.emplace_back(&memory);
    }
    m_waves.showAt(Moment(0));
    startContacts();
}

void Programme::startStation(int station)
{
    if (m_moves)
        m_motions.emplace_back(m_stations->memory(station));
    startContacts();
}

/// Those that do not run yet.
void Programme::startContacts()
{
    for (std::size_t place = m_timers.size(); place < m_timerPlaces.size(); ++place)
        m_timers.emplace_back(m_timerPlaces[place].plan, m_timerPlaces[place].memory);
    for (std::size_t place = m_counters.size(); place < m_counterPlaces.size(); ++place)
        m_counters.emplace_back(m_counterPlaces[place].plan, m_counterPlaces[place].memory);
}

// Inputs are read, then the programme runs, as in a controller.
void Programme::advanceTo(Moment now)
{
    while (scans() && (m_scans + 1) * SCAN_TIME <= now) {
        ++m_scans;
        moveTo(m_scans * SCAN_TIME);
        scan();
    }
    moveTo(now);
}

void Programme::moveTo(Moment now)
{
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now);
    for (Motion& motion : m_motions)
        motion.advanceTo(elapsed.count());
    m_waves.showAt(now);
}

void Programme::scan()
{
    for (Timer& timer : m_timers)
        timer.scan();
    for (Counter& counter : m_counters)
        counter.scan();
}

} // namespace kxsim
