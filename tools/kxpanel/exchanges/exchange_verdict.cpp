#include "kxpanel/exchanges/exchange_verdict.h"

#include <QtGui/QPalette>

namespace kxpanel
{

ExchangeVerdict verdictOf(const Exchange& exchange)
{
    if (exchange.wasAccepted)
        return ExchangeVerdict::Accepted;
    return exchange.isFinal ? ExchangeVerdict::Failed : ExchangeVerdict::Repeated;
}

QString verdictSymbol(ExchangeVerdict verdict)
{
    switch (verdict) {
    case ExchangeVerdict::Accepted:
        return QString(QChar(0x2713)); // check mark
    case ExchangeVerdict::Repeated:
        return QString(QChar(0x21BB)); // clockwise open circle arrow
    case ExchangeVerdict::Failed:
        break;
    }
    return QString(QChar(0x2717)); // ballot cross
}

QColor verdictColour(ExchangeVerdict verdict, const QPalette& palette)
{
    const bool dark = isDark(palette);
    switch (verdict) {
    case ExchangeVerdict::Accepted:
        return palette.color(QPalette::Text);
    case ExchangeVerdict::Repeated:
        return dark ? QColor(0xFF, 0xB7, 0x4D) : QColor(0x9A, 0x5B, 0x00);
    case ExchangeVerdict::Failed:
        break;
    }
    return dark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB7, 0x1C, 0x1C);
}

bool isDark(const QPalette& palette)
{
    const int middle = 128;
    return palette.color(QPalette::Base).lightness() < middle;
}

} // namespace kxpanel
