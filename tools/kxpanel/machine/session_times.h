#ifndef KX_KXPANEL_MACHINE_SESSION_TIMES_H
#define KX_KXPANEL_MACHINE_SESSION_TIMES_H

#include <QtCore/QVector>

#include <functional>

namespace kxpanel
{

/// The system's clocks at one moment, in milliseconds.
struct SystemTimes {
    qint64 steady;    ///< of one that nobody sets, and that goes on while the computer sleeps
    qint64 timeOfDay; ///< since 1970 in UTC
};

SystemTimes systemTimes();

/// systemTimes(), or what stands in for it.
using Clocks = std::function<SystemTimes()>;

struct ClockLook {
    qint64 session; ///< on a session's clock, in milliseconds
    SystemTimes system;
};

/// All clocks at one moment: looks again when something else ran between clock and clock, which
/// would seem to be a step of one of them.
/// @param session returns milliseconds of a clock that nobody sets
ClockLook lookAtOnce(const std::function<qint64()>& session, const Clocks& system);

/// When it was what a session's clock timed, in the time of day that counts now: that clock stands
/// still while the computer sleeps, and the time of day may be set.
///
/// All times are milliseconds.
class SessionTimes
{
public:
    /// Looks at all clocks; what is looked at first holds for all before. Often enough: at each
    /// time that is asked for later.
    /// @param session on the session's clock
    /// @return by how much the time of day was set since the look before; 0: by next to nothing
    qint64 look(qint64 session, const SystemTimes& now);

    /// @param session on the session's clock, of the past
    qint64 timeOfDay(qint64 session) const;

private:
    /// While the computer was awake.
    struct Stretch {
        qint64 from;   ///< on the session's clock
        qint64 offset; ///< of the steady clock to it
    };

    QVector<Stretch> m_stretches; ///< rising
    qint64 m_offset = 0;          ///< of the time of day to the steady clock
};

} // namespace kxpanel

#endif
