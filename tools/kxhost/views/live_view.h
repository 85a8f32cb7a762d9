#ifndef KX_KXHOST_VIEWS_LIVE_VIEW_H
#define KX_KXHOST_VIEWS_LIVE_VIEW_H

#include "kxhost/terminal/prompt_line.h"
#include "kxhost/terminal/terminal.h"
#include "kxhost/views/watch_screen.h"
#include "panel/watch/watch_run.h"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <memory>

namespace kx
{

/// The table that is redrawn in place, with a prompt below it. The terminal is
/// restored before the summary is written.
class LiveView : public QObject, public WatchView
{
    Q_OBJECT

public:
    explicit LiveView(const QString& lineTitle);

    /// Shows this run from now on; it stays the caller's.
    void attach(const WatchRun* run);

    /// The line above the prompt.
    void setMessage(const QString& message);

    void showEntry(const WatchEntry& entry, const QDateTime& time) override;
    void showLinkEvent(const LinkEvent& event, const QDateTime& time) override;
    void showExchange(const ExchangeRecord& record) override;
    void showSummary(const WatchSummary& summary) override;

signals:
    /// A line was typed at the prompt.
    void entered(const QString& line);

private:
    void readKeys();
    void redraw();
    WatchScreen screen() const;

    QString m_title;
    const WatchRun* m_run = nullptr;
    QString m_message;
    PromptLine m_prompt;
    std::unique_ptr<Terminal> m_terminal;
    std::unique_ptr<QSocketNotifier> m_keys;
    QTimer m_redraw;
};

} // namespace kx

#endif
