#include "panel/dump/dump_reader.h"

#include "addresses/digits.h"
#include "addresses/station_text.h"
#include "panel/dump/controller_values.h"
#include "panel/dump/dump_words.h"
#include "panel/text/counted.h"
#include "panel/text/json_time.h"
#include "registers/register_types.h"

#include <tuple>

namespace kx
{

namespace
{

const int MOST_DIGITS = 10; // of a value of 32 bits
const int LONGEST_QUOTE = 40;

/// What stands in a file, as far as it tells, on one line.
QString quoted(const QString& text)
{
    const QString shown =
        text.size() > LONGEST_QUOTE ? text.left(LONGEST_QUOTE) + QStringLiteral("...") : text;
    return QLatin1Char('\'') + shown + QLatin1Char('\'');
}

QByteArray withoutBlanksBehind(const QByteArray& line)
{
    int length = static_cast<int>(line.size());
    while (length > 0
           && (line.at(length - 1) == ' ' || line.at(length - 1) == '\t'
               || line.at(length - 1) == '\r'))
        --length;
    return line.left(length);
}

bool isReadBefore(const AddressRange& one, const AddressRange& other)
{
    return std::make_tuple(one.station, registerTypeRow(one.type), one.address)
           < std::make_tuple(other.station, registerTypeRow(other.type), other.address);
}

bool continuesRead(const Assignment& run, const AddressRange& address)
{
    return run.range.station == address.station && run.range.type == address.type
           && run.range.address + run.range.values == address.address;
}

} // namespace

bool DumpReader::fail(const QString& fault, int column)
{
    m_fault = fault;
    m_column = column;
    return false;
}

bool DumpReader::take(const QByteArray& bytes)
{
    const QByteArray line = withoutBlanksBehind(bytes);
    if (line.isEmpty() || line.startsWith('#'))
        return true;
    // With its size, else a byte that is 0 ends it.
    if (!takeWords(QString::fromUtf8(line.constData(), static_cast<int>(line.size()))))
        return false;
    m_sum.addData(line + '\n');
    return true;
}

bool DumpReader::end()
{
    return m_expected == Expected::Nothing
           || fail(QStringLiteral("the file is cut off: its 'end' line is missing"));
}

bool DumpReader::takeWords(const QString& line)
{
    const QStringList words = line.split(QLatin1Char(' '));
    const QString& first = words.first();
    switch (m_expected) {
    case Expected::Version:
        return takeVersion(words);
    case Expected::Times:
        return takeTimes(words);
    case Expected::Station:
        return takeStation(words);
    case Expected::Value:
        if (first == QLatin1String(END_WORD))
            return takeEnd(words);
        return first == QLatin1String(STATION_WORD) ? takeStation(words) : takeValue(words);
    case Expected::Nothing:
        break;
    }
    return fail(QStringLiteral("text behind the last line of the dump"));
}

bool DumpReader::takeVersion(const QStringList& words)
{
    if (words.first() != QLatin1String(DUMP_WORD) || words.size() != 2)
        return fail(QStringLiteral("not a dump, which begins with '%1 %2'")
                        .arg(QLatin1String(DUMP_WORD), QString::number(DUMP_VERSION)));
    if (words.at(1) != QString::number(DUMP_VERSION))
        return fail(QStringLiteral("a dump of version %1; this program reads version %2")
                        .arg(quoted(words.at(1)), QString::number(DUMP_VERSION)),
                    static_cast<int>(words.first().size()) + 2);
    m_expected = Expected::Times;
    return true;
}

bool DumpReader::takeTimes(const QStringList& words)
{
    if (words.size() != 4 || words.at(0) != QLatin1String(READ_WORD)
        || words.at(2) != QLatin1String(TO_WORD))
        return fail(QStringLiteral("must be 'read TIME to TIME'"));
    QDateTime* const times[] = {&m_dump.begun, &m_dump.ended};
    int column = static_cast<int>(words.first().size()) + 2;
    for (int i = 0; i < 2; ++i) {
        const QString& text = words.at(1 + 2 * i);
        *times[i] = QDateTime::fromString(text, Qt::ISODateWithMs);
        if (jsonTime(*times[i]) != text)
            return fail(
                QStringLiteral("%1 is no time such as 2026-11-22T20:31:34.123Z").arg(quoted(text)),
                column);
        column += static_cast<int>(text.size() + words.at(2).size()) + 2;
    }
    m_expected = Expected::Station;
    return true;
}

bool DumpReader::takeStation(const QStringList& words)
{
    const QString digits = words.value(1);
    int station = 0;
    if (words.size() != 2 || words.first() != QLatin1String(STATION_WORD))
        return fail(QStringLiteral("must be 'station NUMBER'"));
    const int column = static_cast<int>(words.first().size()) + 2;
    if (!parseStation(digits, &station))
        return fail(QStringLiteral("%1 is no station; they are %2 to %3")
                        .arg(quoted(digits), QString::number(LOWEST_STATION),
                             QString::number(HIGHEST_STATION)),
                    column);
    if (station <= m_station)
        return fail(QStringLiteral("station %1 stands behind station %2; they must rise")
                        .arg(QString::number(station), QString::number(m_station)),
                    column);
    m_station = station;
    m_expected = Expected::Value;
    return true;
}

bool DumpReader::takeAddress(const QString& typed, AddressRange* address)
{
    QString fault;
    if (!parseAddress(typed.left(LONGEST_QUOTE), address, &fault))
        return fail(QStringLiteral("%1: %2").arg(quoted(typed), fault));
    // Else it has a count, a station or digits that nobody wrote here.
    if (addressText(address->type, address->address) != typed)
        return fail(QStringLiteral("%1 is not a plain address such as D100").arg(quoted(typed)));
    address->station = m_station;
    if (m_dump.runs.isEmpty())
        return true;
    AddressRange last = m_dump.runs.last().range;
    last.address += last.values - 1;
    if (isReadBefore(last, *address))
        return true;
    return fail(QStringLiteral("%1 stands behind %2; addresses must rise")
                    .arg(typed, addressText(last.type, last.address)));
}

bool DumpReader::takeValue(const QStringList& words)
{
    AddressRange address;
    if (words.size() != 2)
        return fail(QStringLiteral("must be 'ADDRESS VALUE', such as 'D100 1234'"));
    if (!takeAddress(words.first(), &address))
        return false;
    const QString& digits = words.at(1);
    const bool isNumber = hasOnlyDigits(digits, 10) && digits.size() <= MOST_DIGITS;
    const qint64 value = isNumber ? digits.toLongLong() : -1;
    if (value < 0 || value > highestValue(address.type))
        return fail(QStringLiteral("%1 is no value of %2; they are 0 to %3")
                        .arg(quoted(digits), QLatin1String(address.type->name),
                             QString::number(highestValue(address.type))),
                    static_cast<int>(words.first().size()) + 2);
    add(address, value);
    return true;
}

void DumpReader::add(const AddressRange& address, qint64 value)
{
    QList<Assignment>& runs = m_dump.runs;
    if (!runs.isEmpty() && continuesRead(runs.last(), address)) {
        ++runs.last().range.values;
        runs.last().values << value;
    } else {
        runs.append({address, {value}});
    }
}

bool DumpReader::takeEnd(const QStringList& words)
{
    if (words.size() != 3)
        return fail(QStringLiteral("must be 'end COUNT SHA-256'; the file is damaged"));
    const QString count = QString::number(valuesOf(m_dump.runs));
    if (words.at(1) != count || m_dump.runs.isEmpty())
        return fail(QStringLiteral("the file is damaged: there are %1, and there were %2")
                        .arg(counted(count.toInt(), "value", "values"), quoted(words.at(1))),
                    static_cast<int>(words.first().size()) + 2);
    if (words.at(2) != QLatin1String(m_sum.result().toHex()))
        return fail(QStringLiteral("the file is damaged: not all lines are as they were written"),
                    static_cast<int>(words.first().size() + words.at(1).size()) + 3);
    m_expected = Expected::Nothing;
    return true;
}

} // namespace kx
