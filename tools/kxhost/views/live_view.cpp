#include "kxhost/views/live_view.h"

#include "kxhost/terminal/console.h"
#include "kxhost/views/watch_table.h"
#include "panel/text/summary_text.h"

#include <unistd.h>

namespace kx
{

namespace
{

const int REDRAW_INTERVAL = 100; // milliseconds

} // namespace

LiveView::LiveView(const QString& lineTitle)
    : m_title(lineTitle), m_terminal(std::make_unique<Terminal>())
{
    connect(&m_redraw, &QTimer::timeout, this, &LiveView::redraw);
    if (!m_terminal->takesKeys())
        return;
    m_message = QStringLiteral("Type an assignment such as D100=5 and press Enter; Ctrl-C ends.");
    m_keys = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    connect(m_keys.get(), &QSocketNotifier::activated, this, &LiveView::onKeys);
}

void LiveView::attach(const Watch* watch)
{
    WatchView::attach(watch);
    m_watch = watch;
    m_redraw.start(REDRAW_INTERVAL);
    redraw();
}

void LiveView::setMessage(const QString& message)
{
    m_message = message;
}

void LiveView::showEntry(const WatchEntry&, const QDateTime&)
{
    // Drawn at the next interval: a fast line changes more than an eye can see.
}

void LiveView::showLinkEvent(const LinkEvent&, const QDateTime&)
{
    redraw(); // a mark of what is wrong now stands in the first line
}

void LiveView::showExchange(const ExchangeRecord&)
{
    // The counts are drawn at the next interval.
}

void LiveView::showSummary(const WatchSummary& summary)
{
    m_redraw.stop();
    m_keys.reset();
    const int width = m_terminal->width();
    const int height = m_terminal->height();
    m_terminal.reset();
    const WatchList& list = m_watch->list();
    QStringList lines =
        tableRows(list.entries(), list.longestName(), m_watch->now(), width, height);
    lines += summaryRows(summary);
    for (const QString& line : lines)
        say(line);
}

void LiveView::onKeys()
{
    char bytes[256];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) {
        m_keys->setEnabled(false);
        return;
    }
    const QStringList lines = m_prompt.type(QByteArray(bytes, static_cast<int>(count)));
    for (const QString& line : lines)
        emit entered(line);
    redraw();
}

WatchScreen LiveView::screen() const
{
    WatchScreen screen;
    screen.line = m_title;
    screen.fault = m_watch->linkFault();
    screen.summary = m_watch->summary();
    screen.entries = m_watch->list().entries();
    screen.longestName = m_watch->list().longestName();
    screen.now = m_watch->now();
    screen.message = m_message;
    screen.prompt = m_prompt.text();
    screen.takesKeys = m_terminal->takesKeys();
    return screen;
}

void LiveView::redraw()
{
    if (m_terminal && m_watch)
        m_terminal->draw(screenRows(screen(), m_terminal->width(), m_terminal->height()));
}

} // namespace kx
