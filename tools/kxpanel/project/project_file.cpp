#include "kxpanel/project/project_file.h"

#include "panel/files/replaced_file.h"
#include "panel/files/text_file.h"

namespace kxpanel
{

bool ProjectFile::open(const QString& path, Project* project, QStringList* faults)
{
    QByteArray content;
    QString error;
    if (!kx::readTextFile(path, &content, &error)) {
        *faults << error;
        return false;
    }
    QStringList found;
    if (!parseProject(content, project, &found)) {
        for (const QString& fault : found)
            *faults << path + QLatin1String(": ") + fault;
        return false;
    }
    m_seen.see(path, content);
    keep(path, projectText(*project));
    return true;
}

bool ProjectFile::save(const QString& path, const Project& project, QString* error)
{
    if (!m_seen.mayReplace(path, error))
        return false;
    const QByteArray text = projectText(project);
    if (text.size() > kx::LARGEST_TEXT_FILE) {
        *error = tr("%1: would be larger than %2 MiB, the most that can be opened again; leave "
                    "values out or shorten comments")
                     .arg(path, QString::number(kx::LARGEST_TEXT_FILE / 1024 / 1024));
        return false;
    }
    if (!kx::replaceFile(path, text, error))
        return false;
    m_seen.see(path, text);
    keep(path, text);
    return true;
}

void ProjectFile::begin(const Project& project)
{
    keep(QString(), projectText(project));
}

void ProjectFile::settle(const Project& project)
{
    keep(m_path, projectText(project));
}

void ProjectFile::note(const Project& project)
{
    const bool isChanged = projectText(project) != m_text;
    if (isChanged == m_isChanged)
        return;
    m_isChanged = isChanged;
    emit changed();
}

void ProjectFile::keep(const QString& path, const QByteArray& text)
{
    m_path = path;
    m_text = text;
    m_isChanged = false;
    emit changed();
}

} // namespace kxpanel
