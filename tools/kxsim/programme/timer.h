/// A timer of a controller, as an on-delay in steps of 100 ms: TVn rises while its input
/// is on, up to the preset; then Tn closes. The input off opens Tn and puts TVn to 0;
/// without an input it always runs.
///
/// A host's value is taken on: TVn goes on from it, so 0 starts the timer again; Tn put
/// to 0 starts it again, too, and Tn put to 1 is a timer that has run.
#ifndef KX_KXSIM_PROGRAMME_TIMER_H
#define KX_KXSIM_PROGRAMME_TIMER_H

#include "kxsim/memory/controller_memory.h"
#include "kxsim/programme/preset_contact.h"

namespace kxsim
{

class Timer
{
public:
    /// Begins with the value in `memory`, which must outlive the timer.
    Timer(const PresetContact& plan, ControllerMemory* memory);

    /// What the controller does each 10 ms.
    void scan();

private:
    bool runs() const;
    bool takeWritten();
    void show();

    PresetContact m_plan;
    ControllerMemory* m_memory;
    const RegisterType* m_valueType;
    qint64 m_scans = 0;      ///< that the timer has run, with its value of then
    bool m_ran = false;      ///< at the latest scan
    quint32 m_value = 0;     ///< as shown at the latest scan
    bool m_isClosed = false; ///< as shown at the latest scan
};

} // namespace kxsim

#endif
