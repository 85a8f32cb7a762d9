#include "kxsim/programme/timer.h"

namespace kxsim
{

namespace
{

const int SCANS_PER_STEP = 10;

} // namespace

Timer::Timer(const PresetContact& plan, ControllerMemory* memory)
    : m_plan(plan), m_memory(memory), m_valueType(plan.valueType())
{
    m_value = m_memory->value(m_valueType, m_plan.contact.address);
    m_scans = static_cast<qint64>(m_value) * SCANS_PER_STEP;
    m_ran = runs();
    show();
}

bool Timer::runs() const
{
    return !m_plan.input.type || m_memory->value(m_plan.input.type, m_plan.input.address) == 1;
}

void Timer::scan()
{
    const bool runsNow = runs();
    const bool isWritten = takeWritten();
    if (!runsNow)
        m_scans = 0;
    else if (m_ran && !isWritten && m_value < m_plan.preset)
        ++m_scans;
    m_ran = runsNow;
    show();
}

bool Timer::takeWritten()
{
    const quint32 value = m_memory->value(m_valueType, m_plan.contact.address);
    const bool isClosed = m_memory->value(m_plan.contact.type, m_plan.contact.address) == 1;
    if (value == m_value && isClosed == m_isClosed)
        return false;
    quint32 goesOnFrom = value;
    if (value == m_value)
        goesOnFrom = isClosed ? m_plan.preset : 0;
    m_scans = static_cast<qint64>(goesOnFrom) * SCANS_PER_STEP;
    return true;
}

void Timer::show()
{
    m_value = static_cast<quint32>(m_scans / SCANS_PER_STEP);
    m_isClosed = m_value >= m_plan.preset;
    m_memory->setValue(m_valueType, m_plan.contact.address, m_value);
    m_memory->setValue(m_plan.contact.type, m_plan.contact.address, m_isClosed ? 1 : 0);
}

} // namespace kxsim
