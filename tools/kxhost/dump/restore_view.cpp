#include "kxhost/dump/restore_view.h"

#include "kxhost/dump/dump_views.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/text/counted.h"

namespace kx
{

namespace
{

QJsonObject eventOf(const char* name, QJsonObject json = QJsonObject())
{
    json[QLatin1String("event")] = QLatin1String(name);
    return json;
}

} // namespace

void RestoreView::showLeftOut(const QList<AddressRange>& ranges) const
{
    for (const AddressRange& range : ranges) {
        if (m_asJson)
            printJson(eventOf("leftOut", rangeJson(range)));
        else
            say(QStringLiteral("%1: left out, since inputs cannot be written")
                    .arg(rangeText(range)));
    }
}

void RestoreView::showDifferences(const QList<Difference>& differences, int values) const
{
    if (m_asJson) {
        for (const Difference& difference : differences)
            printJson(differenceJson(difference));
        return;
    }
    say(QStringLiteral("values: %1, different: %2").arg(values).arg(differences.size()));
}

QString RestoreView::questionOf(const QList<Assignment>& writes)
{
    return QStringLiteral("Write %1 to %2?")
        .arg(counted(valuesOf(writes), "value", "values"), stationsText(writes));
}

void RestoreView::showWrite(const WriteOutcome& outcome) const
{
    const AddressRange& range = outcome.assignment.range;
    if (m_asJson) {
        QJsonObject json = eventOf("write", rangeJson(range));
        if (!outcome.failure.isNone())
            json[QLatin1String("failure")] = outcome.failure.text;
        return printJson(json);
    }
    say(QStringLiteral("%1: %2").arg(rangeText(range),
                                     outcome.failure.isNone()
                                         ? QStringLiteral("written")
                                         : QStringLiteral("failed: ") + outcome.failure.text));
}

void RestoreView::showLeft(const Difference& difference, const QString& cause) const
{
    if (m_asJson)
        printJson(eventOf("left", differenceJson(difference, cause)));
    else
        say(differenceRow(difference, cause));
}

/// Empty when all values are as in the file.
QString RestoreView::failureText(const RestoreResult& result) const
{
    if (!result.stopReason.isEmpty()) {
        const QString text =
            QStringLiteral("restore of %1 stopped: %2; %3")
                .arg(m_path, result.stopReason,
                     result.written == 0     ? QStringLiteral("nothing was written")
                     : result.different == 1 ? QStringLiteral("the value was written")
                                             : QStringLiteral("%1 of %2 values were written")
                                                   .arg(result.written)
                                                   .arg(result.different));
        return result.perhaps.isEmpty() ? text
                                        : text
                                              + QStringLiteral(", perhaps also %1")
                                                    .arg(result.perhaps.join(QLatin1String(", ")));
    }
    if (result.left == 0 && result.unread.isEmpty())
        return QString();
    const QString text =
        result.values == 1
            ? QStringLiteral("the value is not as in %1").arg(m_path)
            : QStringLiteral("%1 of %2 values are not as in %3")
                  .arg(QString::number(result.left), QString::number(result.values), m_path);
    return result.unread.isEmpty() ? text : text + QStringLiteral("; not all could be read again");
}

void RestoreView::printSummary(const RestoreResult& result, const QString& failure) const
{
    if (!m_asJson) {
        if (failure.isEmpty())
            say(QStringLiteral("written: %1; all values are as in %2")
                    .arg(QString::number(result.written), m_path));
        return;
    }
    QJsonObject json = eventOf("restore");
    json[QLatin1String("file")] = m_path;
    json[QLatin1String("values")] = result.values;
    json[QLatin1String("different")] = result.different;
    json[QLatin1String("written")] = result.written;
    json[QLatin1String("left")] = result.left;
    json[QLatin1String("complete")] = failure.isEmpty();
    if (!failure.isEmpty())
        json[QLatin1String("failure")] = failure;
    if (!result.unread.isEmpty())
        json[QLatin1String("unread")] = unreadJson(result.unread);
    printJson(json);
}

int RestoreView::conclude(const RestoreResult& result) const
{
    const QString failure = failureText(result);
    printSummary(result, failure);
    complainOf(result.unread);
    return failure.isEmpty() ? EXIT_FINE : complain(failure, EXIT_DEVICE_FAILED);
}

} // namespace kx
