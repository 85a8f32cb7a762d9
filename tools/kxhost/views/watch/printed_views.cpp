#include "kxhost/views/watch/printed_views.h"

#include "kxhost/terminal/console.h"
#include "kxhost/views/entry_text.h"
#include "kxhost/views/watch/watch_table.h"
#include "panel/text/frame_text.h"
#include "panel/text/json_time.h"
#include "panel/text/summary_text.h"

namespace kx
{

QString withName(const QString& address, const QString& name)
{
    return name.isEmpty() ? address : address + QLatin1String(" (") + name + QLatin1Char(')');
}

QString entryRow(const WatchEntry& entry, const QDateTime& time)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(time.toString(Qt::ISODateWithMs))
        .arg(entry.station)
        .arg(withName(shownAddress(entry), entry.name),
             hasFailed(entry) ? stateText(entry, 0) : entryValue(entry));
}

QJsonObject entryJson(const WatchEntry& entry, const QDateTime& time)
{
    QJsonObject json = valueJson(entry);
    json[QLatin1String("event")] = QLatin1String(hasFailed(entry) ? "failure" : "change");
    json[QLatin1String("time")] = jsonTime(time);
    if (hasFailed(entry))
        json[QLatin1String("state")] = stateText(entry, 0);
    return json;
}

void TextView::showEntry(const WatchEntry& entry, const QDateTime& time)
{
    say(entryRow(entry, time));
}

void TextView::showLinkEvent(const LinkEvent& event, const QDateTime& time)
{
    say(linkEventRow(event, time));
}

void TextView::showExchange(const ExchangeRecord& record)
{
    if (!m_frames)
        return;
    for (const QString& line : exchangeRows(record))
        say(line);
}

void TextView::showSummary(const WatchSummary& summary)
{
    for (const QString& line : summaryRows(summary))
        say(line);
}

void JsonView::showEntry(const WatchEntry& entry, const QDateTime& time)
{
    printJson(entryJson(entry, time));
}

void JsonView::showLinkEvent(const LinkEvent& event, const QDateTime& time)
{
    printJson(linkEventJson(event, time));
}

void JsonView::showExchange(const ExchangeRecord& record)
{
    if (m_frames)
        printJson(exchangeJson(record));
}

void JsonView::showSummary(const WatchSummary& summary)
{
    printJson(summaryJson(summary));
}

} // namespace kx
