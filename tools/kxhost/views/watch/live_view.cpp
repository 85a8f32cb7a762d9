#include "kxhost/views/watch/live_view.h"

#include "kxhost/terminal/console.h"
#include "kxhost/views/watch/watch_table.h"
#include "panel/text/summary_text.h"

#include <unistd.h>

namespace kx
{

namespace
{

const int REDRAW_INTERVAL = 200; // milliseconds: as fast as an eye reads numbers
const int ESCAPE_PATIENCE = 100; // milliseconds; slow lines tear what a key sends apart

} // namespace

LiveView::LiveView(const QString& lineTitle)
    : m_title(lineTitle), m_terminal(std::make_unique<Terminal>())
{
    connect(&m_redraw, &QTimer::timeout, this, &LiveView::redraw);
    connect(&m_suspension, &Suspension::suspending, this, &LiveView::onSuspending);
    connect(&m_suspension, &Suspension::resumed, this, &LiveView::onResumed);
    m_escape.setSingleShot(true);
    connect(&m_escape, &QTimer::timeout, this, &LiveView::onEscapeDecided);
    if (!m_terminal->takesKeys())
        return;
    m_message = QStringLiteral(
        "D100=5 and Enter writes; arrows and PgUp/PgDn scroll, / filters; Ctrl-C ends.");
    m_keys = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    connect(m_keys.get(), &QSocketNotifier::activated, this, &LiveView::onKeys);
}

void LiveView::attach(const Watch* watch)
{
    WatchView::attach(watch);
    m_watch = watch;
    connect(watch, &Watch::listReplaced, this, &LiveView::lookThroughList);
    lookThroughList();
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
    QStringList lines =
        firstRows(m_watch->list().entries(), m_longestName, m_watch->now(), width, height);
    lines += summaryRows(summary);
    for (const QString& line : lines)
        say(line);
}

void LiveView::onKeys()
{
    char bytes[256];
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) {
        m_keys->setEnabled(false);
        return;
    }
    takeKeys(m_keyInput.take(QByteArray(bytes, static_cast<int>(count))));
    if (m_keyInput.isUndecided())
        m_escape.start(ESCAPE_PATIENCE);
    else
        m_escape.stop();
}

void LiveView::onEscapeDecided()
{
    takeKeys(m_keyInput.decide());
}

void LiveView::takeKeys(const QList<Key>& keys)
{
    for (const Key& key : keys)
        obey(m_input.take(key));
    redraw();
}

void LiveView::obey(const TableAction& action)
{
    switch (action.kind) {
    case TableAction::None:
        break;
    case TableAction::Write:
        emit entered(action.text);
        break;
    case TableAction::Filter:
        m_filter = action.text;
        lookThroughList();
        break;
    case TableAction::Rows:
        m_window.scrollRows(action.count);
        break;
    case TableAction::Pages:
        m_window.scrollPages(action.count);
        break;
    case TableAction::Begin:
        m_window.scrollToBegin();
        break;
    case TableAction::End:
        m_window.scrollToEnd();
    }
}

void LiveView::lookThroughList()
{
    const QVector<WatchEntry>& entries = m_watch->list().entries();
    m_longestName = longestName(entries);
    m_window.setFilter(m_filter, entries);
}

void LiveView::onSuspending()
{
    if (m_terminal)
        m_terminal->release();
}

void LiveView::onResumed()
{
    if (!m_terminal)
        return;
    m_terminal->take();
    redraw();
}

WatchScreen LiveView::screen()
{
    const bool takesKeys = m_terminal->takesKeys();
    m_window.setRoom(linesForEntries(m_terminal->height(), takesKeys));
    WatchScreen screen;
    screen.line = m_title;
    screen.fault = m_watch->linkFault();
    screen.summary = m_watch->summary();
    screen.entries = m_window.visible(m_watch->list().entries());
    screen.longestName = m_longestName;
    screen.position = m_window.position();
    screen.now = m_watch->now();
    screen.message = m_message;
    screen.prompt = m_input.promptRow();
    screen.takesKeys = takesKeys;
    return screen;
}

void LiveView::redraw()
{
    if (m_terminal && m_watch)
        m_terminal->draw(screenRows(screen(), m_terminal->width(), m_terminal->height()));
}

} // namespace kx
