#ifndef KX_KXHOST_VIEWS_WATCH_LIVE_VIEW_H
#define KX_KXHOST_VIEWS_WATCH_LIVE_VIEW_H

#include "kxhost/terminal/key_input.h"
#include "kxhost/terminal/suspension.h"
#include "kxhost/terminal/terminal.h"
#include "kxhost/views/watch/table_input.h"
#include "kxhost/views/watch/table_window.h"
#include "kxhost/views/watch/watch_screen.h"
#include "kxhost/views/watch/watch_view.h"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <memory>

namespace kx
{

/// The table that is redrawn in place, with a prompt below it; keys scroll and filter it. The
/// terminal is restored before the summary is written, and while Ctrl-Z stops the program.
class LiveView : public WatchView
{
    Q_OBJECT

public:
    explicit LiveView(const QString& lineTitle);

    void attach(const Watch* watch) override;
    void showSummary(const WatchSummary& summary) override;

    /// The line above the prompt.
    void setMessage(const QString& message);

signals:
    /// A line was typed at the prompt.
    void entered(const QString& line);

protected:
    void showEntry(const WatchEntry& entry, const QDateTime& time) override;
    void showLinkEvent(const LinkEvent& event, const QDateTime& time) override;
    void showExchange(const ExchangeRecord& record) override;

private:
    void onKeys();
    void onEscapeDecided();
    void takeKeys(const QList<Key>& keys);
    void obey(const TableAction& action);
    void lookThroughList();
    void onSuspending();
    void onResumed();
    void redraw();
    WatchScreen screen();

    QString m_title;
    const Watch* m_watch = nullptr;
    QString m_message;
    int m_longestName = 0; ///< cells
    KeyInput m_keyInput;
    TableInput m_input;
    TableWindow m_window;
    QString m_filter;
    QTimer m_escape; ///< whether more follows an escape character
    std::unique_ptr<Terminal> m_terminal;
    std::unique_ptr<QSocketNotifier> m_keys;
    Suspension m_suspension;
    QTimer m_redraw;
};

} // namespace kx

#endif
