#include "kxpanel/project/seen_file.h"

#include "panel/files/text_file.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace kxpanel
{

void SeenFile::see(const QString& path, const QByteArray& content)
{
    m_path = path;
    m_content = content;
}

bool SeenFile::mayReplace(const QString& path, QString* error)
{
    QByteArray content;
    QString fault;
    if (QFileInfo(path) != QFileInfo(m_path) || !kx::readTextFile(path, &content, &fault)
        || content == m_content)
        return true;
    m_content = content;
    *error = QCoreApplication::translate(
                 "kxpanel::SeenFile", "%1: another program has changed it since; save once more to "
                                      "replace it, or save as another file")
                 .arg(path);
    return false;
}

} // namespace kxpanel
