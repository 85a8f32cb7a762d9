#ifndef KX_KXPANEL_TAGS_TAG_LIST_H
#define KX_KXPANEL_TAGS_TAG_LIST_H

#include "kxpanel/machine/machine_events.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

namespace kxpanel
{

/// What is dragged from the grid: the numbers of values, decimal, one per line.
const char VALUES_MIME_TYPE[] = "application/x-kxpanel-values";

/// Goes with them: the number of the process whose values they are.
const char PROCESS_MIME_TYPE[] = "application/x-kxpanel-process";

/// Whether it is of the registers that the value has now. One that was under way while the value
/// was edited may be of those that it had before.
bool suits(const Reading& reading, const WatchedValue& value);

/// The values that the window watches, in the order of the grid, and what is known of each. The
/// one home of both: pages listen to it and edit it by its methods alone.
class TagList : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const QList<WatchedValue>& values() const { return m_values; }
    int size() const { return static_cast<int>(m_values.size()); }
    /// Null when it has gone.
    const WatchedValue* find(int number) const;
    /// Its row, -1 when it has gone.
    int rowOf(int number) const;
    /// As latest read; of a number that has gone an empty one.
    const Reading& reading(int number) const;
    /// The name, or the address as typed where it has none.
    static QString shownName(const WatchedValue& value);

    /// Puts tags in front of a row. A tag of several values becomes as many, "Flow" of two "Flow 1"
    /// and "Flow 2"; a name that is taken gets the next free number behind it.
    /// @return their numbers
    QList<int> insert(int row, const QList<kx::Tag>& tags);
    void remove(const QList<int>& numbers);
    /// The value keeps its number. What was read of it is forgotten when its address or the
    /// registers of its format are others.
    void replace(int number, const kx::Tag& tag);
    /// All at once, with the numbers that they bring, each once: for undo. Readings are kept as by
    /// replace().
    void setValues(const QList<WatchedValue>& values);

public slots:
    void takeReadings(const QVector<kxpanel::Reading>& readings);
    /// As Machine::clockSet().
    void shiftReadings(qint64 by);

signals:
    /// Values came, went, moved or were edited: numbers that were known may be gone.
    void valuesChanged();
    /// New readings of these rows, rising.
    void readingsChanged(const QVector<int>& rows);

private:
    QList<WatchedValue> m_values;
    QVector<Reading> m_readings; ///< of each value
    QHash<int, int> m_rows;      ///< by number
    int m_lastNumber = 0;
};

} // namespace kxpanel

#endif
