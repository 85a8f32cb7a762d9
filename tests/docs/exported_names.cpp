#include "exported_names.h"

#include <QtCore/QFile>

QStringList exportedNames()
{
    QFile file(QStringLiteral(KX_EXPORTED_NAMES));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", KX_EXPORTED_NAMES, qPrintable(file.errorString()));
    QStringList names;
    for (const QString& line : QString::fromLatin1(file.readAll()).split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            names << line;
    }
    return names;
}

// A mangled name holds a length, then so many letters.
QString plainName(const QString& exported)
{
    if (!exported.startsWith(QLatin1String("_Z")))
        return exported;
    if (exported.startsWith(QLatin1String("_ZN8tarvelanD")))
        return QStringLiteral("~tarvelan");
    int start = exported.startsWith(QLatin1String("_ZN")) ? 3 : 2;
    int length = 0;
    for (; exported.at(start).isDigit(); ++start)
        length = 10 * length + exported.at(start).digitValue();
    return exported.mid(start, length);
}
