#include "kxpanel/project/recent_files.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

namespace kxpanel
{

namespace
{

const QLatin1String KEY("recentProjects");

} // namespace

QStringList RecentFiles::paths() const
{
    return m_settings->value(KEY).toStringList().mid(0, MOST);
}

void RecentFiles::add(const QString& path)
{
    const QString whole = QFileInfo(path).absoluteFilePath();
    QStringList paths = this->paths();
    paths.removeAll(whole);
    paths.prepend(whole);
    keep(paths.mid(0, MOST));
}

void RecentFiles::remove(const QString& path)
{
    QStringList paths = this->paths();
    paths.removeAll(QFileInfo(path).absoluteFilePath());
    keep(paths);
}

void RecentFiles::clear()
{
    m_settings->remove(KEY);
}

void RecentFiles::keep(const QStringList& paths)
{
    m_settings->setValue(KEY, paths);
}

} // namespace kxpanel
