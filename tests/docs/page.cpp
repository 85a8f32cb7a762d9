#include "page.h"

#include <QtCore/QFile>

QString sourceText(const QString& path)
{
    QFile file(QStringLiteral(KX_SOURCES "/") + path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll());
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
