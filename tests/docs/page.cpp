#include "page.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>

QString sourceText(const QString& path)
{
    QFile file(QStringLiteral(KX_SOURCES "/") + path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll());
}

QStringList sourceFiles(const QString& folder, const QString& pattern)
{
    const QDir sources(QStringLiteral(KX_SOURCES));
    QDirIterator files(sources.filePath(folder), {pattern}, QDir::Files,
                       QDirIterator::Subdirectories);
    QStringList found;
    while (files.hasNext())
        found << sources.relativeFilePath(files.next());
    return found;
}

QString between(const QString& text, const QString& start, const QString& end)
{
    const auto first = text.indexOf(start);
    if (first < 0)
        return QString();
    const auto from = first + start.size();
    const auto last = text.indexOf(end, from);
    return last < 0 ? QString() : text.mid(from, last - from);
}
