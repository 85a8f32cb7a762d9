#include "kxsim/programme/waves.h"

namespace kxsim
{

bool Waves::add(const Place& place, QString* error)
{
    const bool isFree = m_taken.insert({place.memory, place.type, place.address}).second;
    const bool isStill = place.memory->isPreset(place.type, place.address);
    if (isFree && !isStill) {
        m_places.push_back(place);
        return true;
    }
    *error = QStringLiteral("--wave %1: %2")
                 .arg(kx::addressText(place.type, place.address),
                      QLatin1String(isStill ? "it is preset, or a timer's or counter's"
                                            : "it has a wave already"));
    return false;
}

bool Waves::add(const Wave& wave, QString* error)
{
    const kx::AddressRange& range = wave.range;
    std::vector<ControllerMemory*> memories;
    if (!m_stations->named(range, &memories, error))
        return false;
    for (ControllerMemory* const memory : memories) {
        for (int address = range.address; address < range.address + range.values; ++address) {
            if (!add(Place{memory, range.type, address, m_waves.size()}, error))
                return false;
        }
    }
    m_waves.push_back(wave);
    return true;
}

void Waves::showAt(Moment now) const
{
    std::vector<quint32> values;
    values.reserve(m_waves.size());
    for (const Wave& wave : m_waves)
        values.push_back(static_cast<quint32>(valueAt(wave, now)));
    for (const Place& place : m_places)
        place.memory->move(place.type, place.address, values[place.wave]);
}

} // namespace kxsim
