/// How an exchange ended, for the eye: in words, by a symbol and by colour.
#ifndef KX_KXPANEL_EXCHANGES_EXCHANGE_VERDICT_H
#define KX_KXPANEL_EXCHANGES_EXCHANGE_VERDICT_H

#include "kxpanel/machine/machine_events.h"

#include <QtGui/QColor>

class QPalette;

namespace kxpanel
{

enum class ExchangeVerdict {
    Accepted,
    Repeated, ///< the reply was bad or none came, and the request is sent once more
    Failed    ///< for good, or the driver took no notice of it
};

ExchangeVerdict verdictOf(const Exchange& exchange);

/// One character: a tick, an arrow back or a cross.
QString verdictSymbol(ExchangeVerdict verdict);

/// Text and marks of that colour can be read on the palette's base.
QColor verdictColour(ExchangeVerdict verdict, const QPalette& palette);

/// The palette's base is dark.
bool isDark(const QPalette& palette);

} // namespace kxpanel

#endif
