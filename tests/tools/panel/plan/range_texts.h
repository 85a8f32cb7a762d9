#ifndef KX_TESTS_TOOLS_PANEL_PLAN_RANGE_TEXTS_H
#define KX_TESTS_TOOLS_PANEL_PLAN_RANGE_TEXTS_H

#include "addresses/address_text.h"

#include <QtCore/QStringList>

namespace kx
{

/// Of "D0:2@1", or "D0:3x2@1": three values of two registers each.
inline AddressRange rangeOfText(const QString& text)
{
    const auto cross = text.indexOf(QLatin1Char('x'));
    const auto station = text.indexOf(QLatin1Char('@'));
    AddressRange range;
    QString error;
    if (!parseAddressRange(cross < 0 ? text : text.left(cross) + text.mid(station), &range, &error))
        qFatal("%s", qPrintable(error));
    if (cross >= 0)
        range.width = text.mid(cross + 1, station - cross - 1).toInt();
    range.values *= range.width;
    return range;
}

/// Of "D0:2@1 X7@2".
inline QList<AddressRange> rangesOf(const QString& words)
{
    QList<AddressRange> ranges;
    const QStringList texts = words.split(QLatin1Char(' '));
    for (const QString& text : texts) {
        if (!text.isEmpty())
            ranges << rangeOfText(text);
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
