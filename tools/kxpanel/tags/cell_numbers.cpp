#include "kxpanel/tags/cell_numbers.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

namespace kxpanel
{

namespace
{

const QLatin1Char POINT('.');

bool mayHaveThousands(const QString& cell, const QLocale& locale)
{
    static const QRegularExpression number(QStringLiteral("\\A[-+]?[1-9][0-9]{0,2}\\.[0-9]{3}\\z"));
    return QString(locale.groupSeparator()) == QLatin1String(".") && number.match(cell).hasMatch();
}

} // namespace

QString withDecimalPoint(const QString& cell, const QLocale& locale)
{
    static const QRegularExpression number(QStringLiteral("\\A[-+]?[0-9]+,[0-9]+\\z"));
    const bool hasComma = QString(locale.decimalPoint()) == QLatin1String(",");
    return hasComma && number.match(cell).hasMatch()
               ? QString(cell).replace(QLatin1Char(','), QLatin1Char('.'))
               : cell;
}

QString thousandsFault(const QString& cell, const QLocale& locale)
{
    if (!mayHaveThousands(cell, locale))
        return QString();
    const QString decimal = QString(cell).replace(POINT, QLatin1Char(','));
    const QString whole = QString(cell).remove(POINT);
    return QCoreApplication::translate("kxpanel::Cells",
                                       "the point in %1 may stand for thousands; write %2 or %3 "
                                       "in the spreadsheet")
        .arg(cell, decimal, whole);
}

} // namespace kxpanel
