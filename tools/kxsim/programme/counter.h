/// A counter of a controller: CVn (32CVn from 200 on) counts how often its input goes on,
/// up to the preset; then Cn closes and both stay as they are.
///
/// A host's value is taken on: the counter goes on from it, so 0 resets it and opens Cn;
/// Cn put to 0 resets it, too, and Cn put to 1 is a counter that has reached its preset.
#ifndef KX_KXSIM_PROGRAMME_COUNTER_H
#define KX_KXSIM_PROGRAMME_COUNTER_H

#include "kxsim/memory/controller_memory.h"
#include "kxsim/programme/preset_contact.h"

namespace kxsim
{

class Counter
{
public:
    /// Begins with the value in `memory`, which must outlive the counter. An input that is
    /// on already does not count.
    Counter(const PresetContact& plan, ControllerMemory* memory);

    /// What the controller does each 10 ms.
    void scan();

private:
    bool inputIsOn() const;
    void show(quint32 value);

    PresetContact m_plan;
    ControllerMemory* m_memory;
    const RegisterType* m_valueType;
    bool m_wasOn;
    bool m_isClosed = false; ///< as shown at the latest scan
};

} // namespace kxsim

#endif
