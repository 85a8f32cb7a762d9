#ifndef KX_TESTS_TOOLS_PANEL_PLAN_RANGE_TEXTS_H
#define KX_TESTS_TOOLS_PANEL_PLAN_RANGE_TEXTS_H

#include "addresses/address_text.h"

#include <QtCore/QStringList>

namespace kx
{

/// Of "D0:2@1 X7@2".
inline QList<AddressRange> rangesOf(const QString& words)
{
    QList<AddressRange> ranges;
    const QStringList texts = words.split(QLatin1Char(' '));
    for (const QString& text : texts) {
        AddressRange range;
        QString error;
        if (text.isEmpty())
            continue;
        if (!parseAddressRange(text, &range, &error))
            qFatal("%s", qPrintable(error));
        ranges << range;
    }
    return ranges;
}

/// "D0:2@1 X7:1@2".
inline QString textOfRanges(const QList<AddressRange>& ranges)
{
    QStringList texts;
    for (const AddressRange& range : ranges)
        texts << QStringLiteral("%1:%2@%3")
                     .arg(addressText(range.type, range.address))
                     .arg(range.values)
                     .arg(range.station);
    return texts.join(QLatin1Char(' '));
}

} // namespace kx

#endif
