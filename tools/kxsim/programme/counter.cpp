#include "kxsim/programme/counter.h"

namespace kxsim
{

Counter::Counter(const PresetContact& plan, ControllerMemory* memory)
    : m_plan(plan), m_memory(memory), m_valueType(plan.valueType()), m_wasOn(inputIsOn())
{
    show(m_memory->value(m_valueType, m_plan.contact.address));
}

bool Counter::inputIsOn() const
{
    return m_memory->value(m_plan.input.type, m_plan.input.address) == 1;
}

void Counter::scan()
{
    quint32 value = m_memory->value(m_valueType, m_plan.contact.address);
    const bool isClosed = m_memory->value(m_plan.contact.type, m_plan.contact.address) == 1;
    const bool isOn = inputIsOn();
    if (isClosed != m_isClosed)
        value = isClosed ? m_plan.preset : 0;
    if (isOn && !m_wasOn && value < m_plan.preset)
        ++value;
    m_wasOn = isOn;
    show(value);
}

void Counter::show(quint32 value)
{
    m_isClosed = value >= m_plan.preset;
    m_memory->setValue(m_valueType, m_plan.contact.address, value);
    m_memory->setValue(m_plan.contact.type, m_plan.contact.address, m_isClosed ? 1 : 0);
}

} // namespace kxsim
