#ifndef KX_KXPANEL_PROJECT_PROJECT_FILE_H
#define KX_KXPANEL_PROJECT_PROJECT_FILE_H

#include "kxpanel/project/project.h"
#include "kxpanel/project/seen_file.h"

#include <QtCore/QObject>

namespace kxpanel
{

/// The file that a project came from or goes to, and whether what is shown differs from it.
///
/// open() and save() say no more than what they did: whoever shows the project gives what there is
/// now to note(), as often as it changes.
class ProjectFile : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Empty: the project has no file yet.
    const QString& path() const { return m_path; }
    bool isChanged() const { return m_isChanged; }

    /// Reads a file, which is then the project's.
    /// @return false and in `*faults` what is wrong, a line each that begins with the path; nothing
    ///         changes then
    bool open(const QString& path, Project* project, QStringList* faults);
    /// Replaces the file as a whole, or leaves it as it was: also the first time after another
    /// program has changed what was opened or saved here, and when it could not be opened again.
    /// @return false and one line in `*error` that begins with the path
    bool save(const QString& path, const Project& project, QString* error);
    /// A project without a file.
    void begin(const Project& project);
    /// What the window makes of the file, which may say less: counts as unchanged.
    void settle(const Project& project);
    /// What the project is now.
    void note(const Project& project);

signals:
    /// path() or isChanged() is another.
    void changed();

private:
    void keep(const QString& path, const QByteArray& text);

    QString m_path;
    QByteArray m_text; ///< of the project as it is in the file
    SeenFile m_seen;
    bool m_isChanged = false;
};

} // namespace kxpanel

#endif
