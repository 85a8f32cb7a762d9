#ifndef KX_KXPANEL_LINE_CYCLE_CYCLE_MARKS_H
#define KX_KXPANEL_LINE_CYCLE_CYCLE_MARKS_H

#include "kxpanel/machine/machine_events.h"

#include <QtCore/QHash>

namespace kxpanel
{

/// Tells with which polls a cycle begins: with one of them each time it comes again. When others
/// come three times without it, as after another list of tags or when its station is left out,
/// one of those takes its place; so it is one of the tags that are polled most often.
class CycleMarks
{
public:
    /// @return a cycle begins with the exchange
    bool begins(const Exchange& exchange);

private:
    QString m_mark;               ///< the poll; empty: none yet
    QHash<QString, int> m_others; ///< how often others came since
};

} // namespace kxpanel

#endif
