#ifndef KX_KXPANEL_MACHINE_LINE_CLOCK_H
#define KX_KXPANEL_MACHINE_LINE_CLOCK_H

#include <QtCore/QtGlobal>

namespace kxpanel
{

/// The time of day as readings have it: what is read now is never in the past or yet to come.
///
/// All times are milliseconds: `steady` of a clock that nobody sets, the others since 1970 in UTC.
class LineClock
{
public:
    /// No line is open, or one is being opened: the system's clock counts.
    /// @return by how much it was set back; 0: not by more than a second
    qint64 follow(qint64 steady, qint64 timeOfDay);

    /// A read cannot be later than now.
    void onRead(qint64 steady, qint64 readAt);

    /// Of the open line's readings.
    void shift(qint64 milliseconds) { m_offset += milliseconds; }

    qint64 now(qint64 steady) const { return steady + m_offset; }

private:
    bool m_isSet = false;
    qint64 m_offset = 0;
};

} // namespace kxpanel

#endif
