#ifndef KX_KXPANEL_TAGS_TAG_NAMES_H
#define KX_KXPANEL_TAGS_TAG_NAMES_H

#include "kxpanel/machine/machine_events.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

namespace kxpanel
{

/// Names that people gave, each to one value, since a tags file takes no two that are alike.
class TagNames
{
public:
    explicit TagNames(const QList<WatchedValue>& values);

    bool isTaken(const QString& name) const { return m_taken.contains(name); }
    /// The name, or the first of "Flow 2", "Flow 3" and so on that is free; it is taken then. An
    /// empty name stays empty.
    QString take(const QString& wanted);

private:
    QSet<QString> m_taken;
    QHash<QString, int> m_last; ///< number that was appended to a name at last
};

} // namespace kxpanel

#endif
