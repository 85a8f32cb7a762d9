#include "recording/csv/csv_recording_text.h"

#include "panel/files/csv_fields.h"
#include "panel/text/counted.h"
#include "panel/values/decimal.h"
#include "system/printable_text.h"
#include "system/translated_text.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QStringList>

namespace kx
{

namespace
{

const char SEPARATOR = ',';
const int LAST_STATION = 247;
const char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

QByteArray quoted(const QString& text)
{
    QString content = printableText(text);
    content.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return '"' + content.toUtf8() + '"';
}

/// In quotes where it needs them.
QByteArray field(const QString& text)
{
    const QString content = printableText(text);
    const bool isPlain = !content.contains(QLatin1Char(SEPARATOR))
                         && !content.contains(QLatin1Char('"')) && content == content.trimmed();
    return isPlain ? content.toUtf8() : quoted(content);
}

QString placeOf(const RecordedTag& tag)
{
    return QStringLiteral("%1@%2").arg(tag.address, QString::number(tag.station));
}

/// "Pressure D100/float@1 [bar]"
QString headingOf(const RecordedTag& tag)
{
    QString heading = placeOf(tag);
    if (!tag.name.isEmpty())
        heading.prepend(tag.name + QLatin1Char(' '));
    if (!tag.unit.isEmpty())
        heading += QLatin1String(" [") + tag.unit + QLatin1Char(']');
    return heading;
}

bool parseHeading(const QString& heading, RecordedTag* tag)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A(?:(.*) )?(\\S+)@([0-9]{1,3})(?: \\[(.*)\\])?\\z"));
    const QRegularExpressionMatch match = pattern.match(heading);
    tag->name = match.captured(1);
    tag->address = match.captured(2);
    tag->station = match.captured(3).toInt();
    tag->unit = match.captured(4);
    return match.hasMatch() && tag->station >= 1 && tag->station <= LAST_STATION;
}

bool isQuoted(const QByteArray& line, const CsvField& field)
{
    return field.length > 0 && line.at(field.begin) == '"';
}

/// Text stands in quotes; what is bare and no number is damaged.
bool parseValues(const QByteArray& line, const QList<CsvField>& fields,
                 const QList<RecordedTag>& tags, qint64 time, QList<RecordedEvent>* events,
                 QString* fault)
{
    RecordedEvent event;
    event.time = time;
    Decimal number;
    for (event.tag = 0; event.tag < tags.size(); ++event.tag) {
        const CsvField& value = fields.at(event.tag + 1);
        event.value = {value.text, !isQuoted(line, value)};
        if (value.length == 0)
            continue;
        if (event.value.isNumber && !Decimal::parse(value.text, &number)) {
            *fault = Text::tr("%1 is no number of %2").arg(value.text, placeOf(tags.at(event.tag)));
            return false;
        }
        *events << event;
    }
    return true;
}

/// The tags that a group of the last column names: "no answer: D100@1 Y10@1".
bool parseGapGroup(const QString& group, const QList<RecordedTag>& tags, qint64 time,
                   QList<RecordedEvent>* events)
{
    RecordedEvent event;
    event.time = time;
    event.isGap = true;
    if (!parseGapText(group.section(QLatin1String(": "), 0, 0), &event.reason))
        return false;
    const bool isOfAll = !group.contains(QLatin1String(": "));
    QSet<QString> places; // there may be many
    for (const QString& place : group.section(QLatin1String(": "), 1).split(QLatin1Char(' ')))
        places.insert(place);
    QSet<QString> known;
    for (event.tag = 0; event.tag < tags.size(); ++event.tag) {
        const QString place = placeOf(tags.at(event.tag));
        known.insert(place);
        if (isOfAll || places.contains(place))
            *events << event;
    }
    return isOfAll || known.contains(places);
}

bool parseGaps(const QString& text, const QList<RecordedTag>& tags, qint64 time,
               QList<RecordedEvent>* events)
{
    if (text.isEmpty())
        return true;
    for (const QString& group : text.split(QLatin1String("; "))) {
        if (!parseGapGroup(group, tags, time, events))
            return false;
    }
    return true;
}

/// As it is written. Qt takes other marks between the digits, too.
bool parseTime(const QString& text, qint64* time)
{
    static const QRegularExpression pattern(QStringLiteral(
        "\\A[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}(\\.[0-9]{1,3})?Z\\z"));
    const QDateTime moment = QDateTime::fromString(text, Qt::ISODateWithMs);
    *time = moment.toMSecsSinceEpoch();
    return moment.isValid() && pattern.match(text).hasMatch();
}

} // namespace

QByteArray csvHeader(const QList<RecordedTag>& tags)
{
    QByteArray header = "time";
    for (const RecordedTag& tag : tags)
        header += SEPARATOR + field(headingOf(tag));
    header += ",gaps\n";
    const bool isAscii = QString::fromLatin1(header).toUtf8() == header;
    return isAscii ? header : BYTE_ORDER_MARK + header;
}

bool parseCsvHeader(const QByteArray& line, QList<RecordedTag>* tags)
{
    tags->clear();
    QList<CsvField> fields;
    QString error;
    const QByteArray marked = BYTE_ORDER_MARK;
    const QByteArray header = line.startsWith(marked) ? line.mid(marked.size()) : line;
    if (!splitCsvFields(header, SEPARATOR, &fields, &error) || fields.size() < 3
        || fields.first().text != QLatin1String("time")
        || fields.last().text != QLatin1String("gaps"))
        return false;
    for (const CsvField& heading : fields.mid(1, fields.size() - 2)) {
        RecordedTag tag;
        if (!parseHeading(heading.text, &tag))
            return false;
        *tags << tag;
    }
    return true;
}

QByteArray csvValue(const RecordedValue& value)
{
    return value.isNumber ? value.text.toLatin1() : quoted(value.text);
}

QByteArray csvGaps(const GapsByReason& gaps, const QList<RecordedTag>& tags)
{
    QStringList groups;
    for (auto group = gaps.constBegin(); group != gaps.constEnd(); ++group) {
        QStringList places;
        for (const int tag : group.value())
            places << placeOf(tags.at(tag));
        const bool isOfAll = places.size() == tags.size();
        groups << gapText(group.key())
                      + (isOfAll ? QString() : QLatin1String(": ") + places.join(QLatin1Char(' ')));
    }
    return field(groups.join(QLatin1String("; ")));
}

bool parseCsvRow(const QByteArray& line, const QList<RecordedTag>& tags,
                 QList<RecordedEvent>* events, QString* fault)
{
    QList<CsvField> fields;
    if (!splitCsvFields(line, SEPARATOR, &fields, fault))
        return false;
    if (fields.size() != tags.size() + 2) {
        *fault =
            Text::tr("%1 instead of %2")
                .arg(countedText(fields.size(), "%1 field", QT_TRANSLATE_N_NOOP("kx", "%1 fields")))
                .arg(tags.size() + 2);
        return false;
    }
    qint64 time = 0;
    if (!parseTime(fields.first().text, &time)) {
        *fault = Text::tr("the time is wrong");
        return false;
    }
    if (!parseValues(line, fields, tags, time, events, fault))
        return false;
    if (parseGaps(fields.last().text, tags, time, events))
        return true;
    *fault = Text::tr("the gaps are wrong");
    return false;
}

} // namespace kx
