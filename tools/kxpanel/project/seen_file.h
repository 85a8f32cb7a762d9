#ifndef KX_KXPANEL_PROJECT_SEEN_FILE_H
#define KX_KXPANEL_PROJECT_SEEN_FILE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kxpanel
{

/// The file that is open, as it was when it was last read or written here.
class SeenFile
{
public:
    void see(const QString& path, const QByteArray& content);

    /// Whether a file may be replaced: another one, which was asked for by its name, or this one as
    /// it was seen. Of one that is gone or cannot be read, whoever writes it knows more.
    /// @return false, and one line in `*error` that begins with the path, the first time after
    ///         another program has changed it
    bool mayReplace(const QString& path, QString* error);

private:
    QString m_path;
    QByteArray m_content;
};

} // namespace kxpanel

#endif
