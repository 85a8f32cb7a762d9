#include "kxpanel/tags/tag_list.h"

#include "kxpanel/tags/tag_names.h"
#include "panel/values/value_address.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

/// "Flow" of four values becomes "Flow 1" to "Flow 4".
QList<kx::Tag> singleValues(const kx::Tag& tag)
{
    const int width = kx::registersOf(tag.format);
    const int count = kx::valuesIn(tag.range, tag.format);
    QList<kx::Tag> singles;
    for (int i = 0; i < count; ++i) {
        kx::Tag single = tag;
        single.range.address += i * width;
        single.range.values = width;
        single.range.width = width;
        if (count > 1 && !tag.name.isEmpty())
            single.name = QStringLiteral("%1 %2").arg(tag.name, QString::number(i + 1));
        singles << single;
    }
    return singles;
}

bool hasSameRegisters(const kx::AddressRange& one, const kx::AddressRange& other)
{
    return one.type == other.type && one.station == other.station && one.address == other.address
           && one.values == other.values;
}

Reading nothingKnown(int number)
{
    Reading reading;
    reading.number = number;
    return reading;
}

} // namespace

bool suits(const Reading& reading, const WatchedValue& value)
{
    const kx::AddressRange& range = value.tag.range;
    const bool isThere = !reading.type
                         || (reading.type == range.type && reading.station == range.station
                             && reading.address == range.address);
    return isThere && (reading.raw.isEmpty() || reading.raw.size() == range.values);
}

const WatchedValue* TagList::find(int number) const
{
    const int row = rowOf(number);
    return row < 0 ? nullptr : &m_values.at(row);
}

int TagList::rowOf(int number) const
{
    return m_rows.value(number, -1);
}

const Reading& TagList::reading(int number) const
{
    static const Reading none;
    const int row = rowOf(number);
    return row < 0 ? none : m_readings.at(row);
}

QString TagList::shownName(const WatchedValue& value)
{
    const kx::Tag& tag = value.tag;
    return tag.name.isEmpty() ? kx::valueName(tag.range, tag.format, 0) : tag.name;
}

QList<int> TagList::insert(int row, const QList<kx::Tag>& tags)
{
    TagNames names(m_values);
    QList<WatchedValue> inserted;
    QList<int> numbers;
    for (const kx::Tag& tag : tags) {
        for (const kx::Tag& single : singleValues(tag)) {
            WatchedValue value{m_lastNumber + 1 + static_cast<int>(numbers.size()), single};
            value.tag.name = names.take(single.name);
            inserted << value;
            numbers << value.number;
        }
    }
    setValues(m_values.mid(0, row) + inserted + m_values.mid(row));
    return numbers;
}

void TagList::remove(const QList<int>& numbers)
{
    QList<WatchedValue> values = m_values;
    const QSet<int> gone(numbers.begin(), numbers.end());
    values.erase(
        std::remove_if(values.begin(), values.end(),
                       [&gone](const WatchedValue& value) { return gone.contains(value.number); }),
        values.end());
    setValues(values);
}

void TagList::replace(int number, const kx::Tag& tag)
{
    const int row = rowOf(number);
    if (row < 0)
        return;
    if (!hasSameRegisters(m_values.at(row).tag.range, tag.range))
        m_readings[row] = nothingKnown(number);
    m_values[row].tag = tag;
    emit valuesChanged();
}

void TagList::setValues(const QList<WatchedValue>& values)
{
    QVector<Reading> readings;
    QHash<int, int> rows;
    for (const WatchedValue& value : values) {
        rows.insert(value.number, static_cast<int>(readings.size()));
        const WatchedValue* const before = find(value.number);
        const bool isKept = before && hasSameRegisters(before->tag.range, value.tag.range);
        readings << (isKept ? reading(value.number) : nothingKnown(value.number));
        m_lastNumber = std::max(m_lastNumber, value.number);
    }
    m_values = values;
    m_readings = readings;
    m_rows = rows;
    emit valuesChanged();
}

void TagList::takeReadings(const QVector<Reading>& readings)
{
    QVector<int> rows;
    for (const Reading& reading : readings) {
        const int row = rowOf(reading.number);
        if (row < 0 || !suits(reading, m_values.at(row)))
            continue;
        m_readings[row] = reading;
        rows << row;
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!rows.isEmpty())
        emit readingsChanged(rows);
}

void TagList::shiftReadings(qint64 by)
{
    QVector<int> rows;
    for (int row = 0; row < size(); ++row) {
        Reading* const reading = &m_readings[row];
        for (qint64* const time : {&reading->readAt, &reading->changedAt})
            *time += *time > 0 ? by : 0;
        rows << row;
    }
    if (!rows.isEmpty())
        emit readingsChanged(rows);
}

} // namespace kxpanel
