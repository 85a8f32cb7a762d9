#include "kxhost/options/scan_stations.h"
#include "kxhost/terminal/prompt_input.h"
#include "panel/files/tag_assignment.h"
#include "panel/text/duration.h"
#include "panel/values/value_address.h"
#include "support/require.h"
#include "tool_texts/texts.h"

using namespace kx;

namespace
{

QString written(const AddressRange& range)
{
    QString text = addressText(range.type, range.address) + QStringLiteral(":%1").arg(range.values);
    if (range.station >= 0)
        text += QStringLiteral("@%1").arg(range.station);
    return text;
}

bool isOfOnePiece(const QByteArray& text)
{
    for (const QChar character : QString::fromUtf8(text)) {
        if (character <= QLatin1Char(' ') || character.isSpace())
            return false;
    }
    return true;
}

void readRange(const QByteArray& text)
{
    AddressRange range;
    const auto parse = [&](const QByteArray& address, QString* error) {
        return parseAddressRange(QString::fromUtf8(address), &range, error);
    };
    if (!takes(parse, text))
        return;
    checkRange(range);
    require(isOfOnePiece(text), "an address has no blanks");
    AddressRange again;
    QString error;
    require(parseAddressRange(written(range), &again, &error) && again.type == range.type
                && again.address == range.address && again.values == range.values
                && again.station == range.station,
            "an address written out is the same");
}

void readAssignment(const QByteArray& text)
{
    Assignment assignment;
    const auto parse = [&](const QByteArray& whole, QString* error) {
        return parseAssignment(QString::fromUtf8(whole), &assignment, error);
    };
    if (!takes(parse, text))
        return;
    checkRange(assignment.range);
    require(isOfOnePiece(text), "an assignment has no blanks");
    require(assignment.values.size() == assignment.range.values, "one value per address");
}

/// What is shown of an assignment assigns the same, but for floats that are shown rounded.
void readTagAssignment(const QByteArray& text)
{
    TagAssignment assignment;
    const auto parse = [&](const QByteArray& whole, QString* error) {
        return parseTagAssignment(QString::fromUtf8(whole), {}, ValueFormat(), &assignment, error);
    };
    if (!takes(parse, text))
        return;
    const Tag& tag = assignment.tag;
    checkRange(tag.range);
    require(assignment.assignment.values.size() == tag.range.values, "one raw value per address");
    if (!tag.format.unit.isEmpty() || (isFloating(tag.format) && tag.format.decimals >= 0))
        return;
    const QString shown =
        valueAddressText(tag.range, tag.format) + QLatin1Char('=') + valuesText(assignment);
    TagAssignment again;
    QString error;
    require(parseTagAssignment(shown, {}, ValueFormat(), &again, &error)
                && again.assignment.values == assignment.assignment.values,
            "an assignment written out is the same");
}

void readStations(const QByteArray& text)
{
    QList<int> stations;
    const auto parse = [&](const QByteArray& list, QString* error) {
        return parseStations(QString::fromLatin1(list), &stations, error);
    };
    // A line break is shown as it stands; nobody types one.
    if (text.contains('\n') || !takes(parse, text))
        return;
    require(!stations.isEmpty(), "a list of stations has one");
    int before = 0;
    for (const int station : stations) {
        require(station > before && station <= 247, "stations rise from 1 to 247");
        before = station;
    }
}

void readDuration(const QByteArray& text)
{
    qint64 microseconds = 0;
    if (parseDuration(QString::fromUtf8(text), 60000000, &microseconds))
        require(microseconds >= 0 && microseconds <= 60000000, "a duration is at most a minute");
}

void type(const QByteArray& keys)
{
    KeyInput input;
    PromptInput line;
    for (const Key& key : input.take(keys)) {
        const QString entered = line.take(key);
        require(entered.isEmpty() || !entered.trimmed().isEmpty(), "an entered line is not blank");
        readRange(entered.trimmed().toUtf8());
    }
    require(line.text().size() <= 1000, "a typed line is at most 1000 long");
}

void readAssignments(const QByteArray& text)
{
    readAssignment(text);
    readTagAssignment(text);
}

} // namespace

void readAddresses(InputReader* input)
{
    switch (input->below(5)) {
    case 0:
        readRange(input->rest());
        break;
    case 1:
        readAssignments(input->rest());
        break;
    case 2:
        readStations(input->rest());
        break;
    case 3:
        readDuration(input->rest());
        break;
    default:
        type(input->rest());
        break;
    }
}
