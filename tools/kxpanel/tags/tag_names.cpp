#include "kxpanel/tags/tag_names.h"

namespace kxpanel
{

TagNames::TagNames(const QList<WatchedValue>& values)
{
    for (const WatchedValue& value : values)
        m_taken.insert(value.tag.name);
    m_taken.remove(QString());
}

QString TagNames::take(const QString& wanted)
{
    if (wanted.isEmpty())
        return wanted;
    QString name = wanted;
    for (int number = m_last.value(wanted, 1) + 1; m_taken.contains(name); ++number) {
        name = QStringLiteral("%1 %2").arg(wanted, QString::number(number));
        m_last[wanted] = number;
    }
    m_taken.insert(name);
    return name;
}

} // namespace kxpanel
