#include "kxpanel/trend/model/trend_number.h"

#include "kxpanel/trend/model/trend_text.h"
#include "panel/values/value_codec.h"

#include <QtCore/QLocale>

#include <algorithm>
#include <cmath>

namespace kxpanel
{

namespace
{

const QChar NEARLY(0x2248);

QString shortestText(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

/// All digits that are known.
kx::Decimal exactNumber(const TrendSample& sample, int places)
{
    kx::Decimal number;
    kx::Decimal::parse(shortestText(sample.value), &number);
    return number.plus(kx::Decimal(sample.fine()).timesPowerOfTen(-places));
}

/// As it is shown, which of a floating number are not all digits.
kx::Decimal shownNumber(const TrendSample& sample, int places)
{
    kx::Decimal number;
    if (places >= 0 && !sample.isRounded())
        return exactNumber(sample, places);
    kx::Decimal::parse(numberText(sample.value), &number);
    return number;
}

} // namespace

int placesOf(const kx::ValueFormat& format)
{
    return kx::isFloating(format) || format.kind == kx::ValueKind::Ascii
               ? -1
               : std::max(format.scale.places(), format.offset.places());
}

bool isLong(double number, int places)
{
    const double units = std::fabs(number) * std::pow(10, places);
    return places >= 0 && !(units < std::pow(10, kx::EXACT_DIGITS));
}

TrendSample longSample(qint64 time, double number, const QString& text, int places)
{
    kx::Decimal exact;
    kx::Decimal nearest;
    qint64 units = 0;
    const bool isKnown = kx::Decimal::parse(text, &exact)
                         && kx::Decimal::parse(shortestText(number), &nearest)
                         && exact.minus(nearest).timesPowerOfTen(places).toSigned(&units)
                         && std::abs(units) <= TrendSample::MOST_FINE;
    return TrendSample(time, number, isKnown ? static_cast<int>(units) : TrendSample::ROUNDED);
}

QString numberText(const TrendSample& sample, int places)
{
    if (sample.isRounded())
        return NEARLY + numberText(sample.value);
    return isLong(sample.value, places) ? exactNumber(sample, places).text()
                                        : numberText(sample.value);
}

QString fileText(const TrendSample& sample, int places)
{
    return isLong(sample.value, places) && !sample.isRounded() ? exactNumber(sample, places).text()
                                                               : shortestText(sample.value);
}

QString differenceText(const TrendSample& from, const TrendSample& to, int places)
{
    const kx::Decimal difference = shownNumber(to, places).minus(shownNumber(from, places));
    if (from.isRounded() || to.isRounded())
        return NEARLY + numberText(difference.toDouble());
    return places < 0 ? numberText(difference.toDouble()) : difference.text();
}

} // namespace kxpanel
