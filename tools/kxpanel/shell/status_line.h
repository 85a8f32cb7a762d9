#ifndef KX_KXPANEL_SHELL_STATUS_LINE_H
#define KX_KXPANEL_SHELL_STATUS_LINE_H

#include "kxpanel/machine/machine.h"

class QLabel;
class QStatusBar;

namespace kxpanel
{

/// What a window's status bar says of the line: its name, how fast it is, and how often all was
/// read. What pages say stands on the left.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    /// @param bar owns it
    StatusLine(const Machine* machine, QStatusBar* bar);

    /// One line; empty takes it away.
    void say(const QString& text);

private:
    /// @param tip what its text means; a name to be said would hide the text
    QLabel* addLabel(const char* objectName, const QString& tip);
    void takeStatus(const LineStatus& status);
    void takeCounts(const kx::WatchSummary& summary);

    QStatusBar* m_bar;
    QLabel* m_line;
    QLabel* m_counts;
    QLabel* m_speed;
};

} // namespace kxpanel

#endif
