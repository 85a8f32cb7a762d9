#include "kxhost/commands/write_report.h"

#include "kxhost/views/value_json.h"
#include "kxhost/views/watch/printed_views.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

QString wordText(qint64 word)
{
    ValueFormat format;
    format.kind = ValueKind::Hex;
    return valueText(format, {word});
}

int confirmedValues(const TagAssignment& assignment, const WriteOutcome& outcome)
{
    return outcome.confirmed / registersOf(assignment.tag.format);
}

} // namespace

QString besidesText(const TagAssignment& assignment, const WriteOutcome& outcome)
{
    const AddressRange& range = assignment.tag.range;
    if (outcome.word >= 0)
        return QStringLiteral("; all of %1 was %2 as %3")
            .arg(addressText(range.type, range.address),
                 QString::fromLatin1(outcome.failure.isNone() ? "written" : "to be written"),
                 wordText(outcome.word));
    const int confirmed = confirmedValues(assignment, outcome);
    if (outcome.failure.isNone() || confirmed == 0)
        return QString();
    return QStringLiteral("; the first %1 of %2 values were confirmed")
        .arg(confirmed)
        .arg(valuesIn(range, assignment.tag.format));
}

QString writeRow(const TagAssignment& assignment, const WriteOutcome& outcome)
{
    const Tag& tag = assignment.tag;
    const QString result = outcome.failure.isNone()
                               ? QStringLiteral("confirmed")
                               : QStringLiteral("failed: ") + outcome.failure.text;
    return QStringLiteral("%1 %2=%3 %4%5")
        .arg(QString::number(tag.range.station),
             withName(valueName(tag.range, tag.format, 0), tag.name),
             withUnit(tag.format, valuesText(assignment)), result,
             besidesText(assignment, outcome));
}

QJsonObject writeJson(const TagAssignment& assignment, const WriteOutcome& outcome)
{
    const Tag& tag = assignment.tag;
    QList<qint64> raw;
    for (int i = 0; i < valuesIn(tag.range, tag.format); ++i)
        raw << rawOfValue(assignment, i);
    QJsonObject json = tagJson(tag);
    json[QLatin1String("event")] = QStringLiteral("write");
    addValues(tag, raw, &json);
    json[QLatin1String("confirmed")] = confirmedValues(assignment, outcome);
    if (outcome.word >= 0)
        json[QLatin1String("raw")] = QJsonArray{outcome.word};
    else if (tag.format.bit >= 0)
        json.remove(QLatin1String("raw")); // what the word would be is not known
    if (!outcome.failure.isNone())
        json[QLatin1String("failure")] = outcome.failure.text;
    return json;
}

} // namespace kx
