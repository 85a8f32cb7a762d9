/// Numbers as spreadsheets of a language copy them. Pure functions.
#ifndef KX_KXPANEL_TAGS_CELL_NUMBERS_H
#define KX_KXPANEL_TAGS_CELL_NUMBERS_H

#include <QtCore/QString>

class QLocale;

namespace kxpanel
{

/// "12,5" as "12.5" where numbers have a decimal comma. All else stays as it is.
QString withDecimalPoint(const QString& cell, const QLocale& locale);

/// Why a number is in doubt: "1.234" is 1234 where a point stands between thousands. Empty: it is
/// not.
QString thousandsFault(const QString& cell, const QLocale& locale);

} // namespace kxpanel

#endif
