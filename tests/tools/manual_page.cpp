#include "manual_page.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

QString manualPage(const QString& path)
{
    QFile page(path);
    if (!page.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(page.readAll()).remove('\\').replace(" \", \" ", ", ");
}

QSet<QString> optionsIn(const QString& text)
{
    QSet<QString> options;
    auto found = QRegularExpression("--[a-z][a-z0-9-]*").globalMatch(text);
    while (found.hasNext())
        options << found.next().captured();
    return options;
}

QMap<QString, QString> lettersIn(const QString& text)
{
    QMap<QString, QString> letters;
    auto found = QRegularExpression("-([a-zA-Z]), (--[a-z][a-z0-9-]*)").globalMatch(text);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        letters[match.captured(1)] += match.captured(2);
    }
    return letters;
}
