#include "planning/range_text.h"

#include "support/driver_fixture.h"

#include <QtCore/QStringList>

namespace
{

template <typename Range>
QString rangeText(const Range& range)
{
    return QString("%1 %2 %3 x%4")
        .arg(QString::number(range.station), range.regType)
        .arg(range.address)
        .arg(range.count);
}

template <typename Range>
QString listText(const QList<Range>& list)
{
    QStringList texts;
    for (const Range& range : list)
        texts << rangeText(range);
    return texts.join(", ");
}

} // namespace

QList<KEY_ADDRESS> ranges(const QString& texts)
{
    QList<KEY_ADDRESS> ranges;
    for (const QString& text : texts.split(", ")) {
        const QStringList words = text.split(' ');
        ranges << key(words.at(0).toInt(), qPrintable(words.at(1)), words.at(2).toInt(),
                      words.at(3).mid(1).toInt());
        ranges.last().keyTag1 = static_cast<int>(ranges.size()) - 1;
    }
    return ranges;
}

QString textOf(const QList<KEY_ADDRESS>& ranges)
{
    return listText(ranges);
}

QString textOf(const QList<VARIABLE>& jobs)
{
    return listText(jobs);
}

QString textOf(const VARIABLE& job)
{
    return rangeText(job);
}
