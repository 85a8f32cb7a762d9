#ifndef KX_KXPANEL_PROJECT_RECENT_FILES_H
#define KX_KXPANEL_PROJECT_RECENT_FILES_H

#include <QtCore/QStringList>

class QSettings;

namespace kxpanel
{

/// The projects opened or saved last, the latest first, as the settings keep them.
class RecentFiles
{
public:
    static constexpr int MOST = 10;

    /// @param settings outlive this
    explicit RecentFiles(QSettings* settings) : m_settings(settings) {}

    QStringList paths() const;
    /// Kept as an absolute path, once.
    void add(const QString& path);
    /// One that is there no more.
    void remove(const QString& path);
    void clear();

private:
    void keep(const QStringList& paths);

    QSettings* m_settings;
};

} // namespace kxpanel

#endif
