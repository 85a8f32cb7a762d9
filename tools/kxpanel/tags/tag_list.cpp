#include "kxpanel/tags/tag_list.h"

#include <QtCore/QSet>

#include <algorithm>

namespace kxpanel
{

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
    return tag.name.isEmpty() ? kx::addressText(tag.range.type, tag.range.address) : tag.name;
}

QList<int> TagList::insert(int row, const QList<kx::Tag>& tags)
{
    QList<WatchedValue> values = m_values;
    QList<int> numbers;
    for (const kx::Tag& tag : tags) {
        const int width = kx::registersOf(tag.format);
        for (int first = 0; first < tag.range.values; first += width) {
            WatchedValue value{m_lastNumber + 1 + static_cast<int>(numbers.size()), tag};
            value.tag.range.address += first;
            value.tag.range.values = width;
            value.tag.range.width = width;
            values.insert(row + static_cast<int>(numbers.size()), value);
            numbers << value.number;
        }
    }
    setValues(values);
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
    m_values[row].tag = tag;
    emit valuesChanged();
}

void TagList::setValues(const QList<WatchedValue>& values)
{
    QVector<Reading> readings;
    QHash<int, int> rows;
    for (const WatchedValue& value : values) {
        rows.insert(value.number, static_cast<int>(readings.size()));
        Reading known = reading(value.number);
        known.number = value.number;
        readings << known;
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
        if (row < 0)
            continue;
        m_readings[row] = reading;
        rows << row;
    }
    std::sort(rows.begin(), rows.end());
    if (!rows.isEmpty())
        emit readingsChanged(rows);
}

void TagList::forgetReadings()
{
    QVector<int> rows;
    for (int row = 0; row < size(); ++row) {
        m_readings[row] = Reading();
        m_readings[row].number = m_values.at(row).number;
        rows << row;
    }
    if (!rows.isEmpty())
        emit readingsChanged(rows);
}

} // namespace kxpanel
