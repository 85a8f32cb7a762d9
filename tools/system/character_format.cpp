#include "system/character_format.h"

#include "system/translated_text.h"

#include <QtCore/QStringList>

namespace kx
{

bool parseParity(const QString& typed, char* parity, QString* error)
{
    const QStringList names = {QStringLiteral("none"), QStringLiteral("even"),
                               QStringLiteral("odd"),  QStringLiteral("n"),
                               QStringLiteral("e"),    QStringLiteral("o")};
    if (!names.contains(typed.toLower())) {
        *error = Text::tr("--parity %1: must be none, even or odd").arg(typed);
        return false;
    }
    *parity = typed.at(0).toUpper().toLatin1();
    return true;
}

bool parseDataBits(const QString& typed, QString* error)
{
    if (typed == QLatin1String("8"))
        return true;
    *error = Text::tr("--data-bits %1: Modbus RTU needs 8 data bits").arg(typed);
    return false;
}

} // namespace kx
