#include "kxhost/views/entry_text.h"

#include "kxhost/views/value_json.h"
#include "panel/files/shared_addresses.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"
#include "system/printable_text.h"

#include <QtCore/QJsonArray>
#include <QtCore/QStringList>

namespace kx
{

namespace
{

const int MOST_WORDS_SHOWN = 4;

QString hexText(const RegisterType* type, qint64 value)
{
    if (type->registerClass == BIT_CLASS)
        return QString::number(value);
    const int digits = 4 * registersPerAddress(type);
    return QLatin1String("0x")
           + QStringLiteral("%1").arg(value, digits, 16, QLatin1Char('0')).toUpper();
}

} // namespace

QString entryAddress(const WatchEntry& entry)
{
    return valueName(entry.range(), entry.valueFormat(), 0);
}

QString shownAddress(const WatchEntry& entry)
{
    return entry.isShared ? nameWithFormat(entry.range(), entry.valueFormat(), 0)
                          : entryAddress(entry);
}

QString entryValue(const WatchEntry& entry)
{
    if (!entry.isKnown)
        return QString();
    if (!entry.format)
        return QString::number(entry.value);
    const QString value = valueText(*entry.format, entry.raw());
    return printableText(
        entry.format->unit.isEmpty() ? value : value + QLatin1Char(' ') + entry.format->unit);
}

QString hexValue(const WatchEntry& entry)
{
    QStringList words;
    for (const qint64 value : entry.raw())
        words << hexText(entry.type, value);
    if (words.size() <= MOST_WORDS_SHOWN)
        return words.join(QLatin1Char(' '));
    return words.mid(0, MOST_WORDS_SHOWN).join(QLatin1Char(' ')) + QLatin1String(" ...");
}

QJsonObject valueJson(const WatchEntry& entry)
{
    Tag tag;
    tag.name = entry.name;
    tag.range = entry.range();
    tag.format = entry.valueFormat();
    QJsonObject json = tagJson(tag);
    if (hasFailed(entry))
        return json;
    json[QLatin1String("value")] =
        entry.format ? valueJson(tag.format, entry.raw()) : QJsonValue(entry.value);
    if (!entry.format)
        return json;
    QJsonArray raw;
    for (const qint64 value : entry.raw())
        raw.append(value);
    json[QLatin1String("raw")] = raw;
    return json;
}

} // namespace kx
