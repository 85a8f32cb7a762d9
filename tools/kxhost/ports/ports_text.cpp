#include "kxhost/ports/ports_text.h"

#include "kxhost/views/aligned_rows.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

QString programText(const PortHolder& program)
{
    return QStringLiteral("%1 (pid %2)").arg(program.program).arg(program.process);
}

QString holdersText(const PortEntry& entry, bool hasUnseen)
{
    if (entry.holders.isEmpty())
        return QString::fromLatin1(hasUnseen ? "-" : "nobody");
    QStringList texts;
    for (const PortHolder& holder : entry.holders)
        texts << programText(holder);
    return texts.join(QLatin1String(", "));
}

QString whatItIs(const PortEntry& entry)
{
    QStringList parts;
    for (const QString& part : {entry.description, entry.manufacturer, entry.serialNumber}) {
        if (!part.isEmpty())
            parts << part;
    }
    if (entry.simulator.process != 0)
        parts << programText(entry.simulator);
    if (!entry.link.isEmpty())
        parts << entry.link;
    return parts.isEmpty() ? QStringLiteral("-") : parts.join(QLatin1String(", "));
}

QString identifier(quint16 number)
{
    return QStringLiteral("%1").arg(number, 4, 16, QLatin1Char('0'));
}

void addText(const char* key, const QString& text, QJsonObject* json)
{
    if (!text.isEmpty())
        json->insert(QLatin1String(key), text);
}

} // namespace

QStringList portRows(const QList<PortEntry>& ports, bool hasUnseen)
{
    if (ports.isEmpty())
        return {QStringLiteral("no serial ports found; plug an adapter in, or start kxsim for a "
                               "simulated controller")};
    QList<QStringList> rows = {
        {QStringLiteral("PORT"), QStringLiteral("DESCRIPTION"), QStringLiteral("HELD BY")}};
    bool isAnyUnknown = false;
    for (const PortEntry& entry : ports) {
        isAnyUnknown = isAnyUnknown || (hasUnseen && entry.holders.isEmpty());
        rows << QStringList{entry.port, whatItIs(entry), holdersText(entry, hasUnseen)};
    }
    QStringList lines = alignedRows(rows);
    if (isAnyUnknown)
        lines << QStringLiteral("-: held by nobody, or by another user's program, which only root "
                                "can see");
    return lines;
}

QJsonObject portJson(const PortEntry& entry, bool hasUnseen)
{
    QJsonArray holders;
    for (const PortHolder& holder : entry.holders)
        holders.append(QJsonObject{{QStringLiteral("program"), holder.program},
                                   {QStringLiteral("process"), holder.process}});
    QJsonObject json{{QStringLiteral("event"), QStringLiteral("port")},
                     {QStringLiteral("port"), entry.port},
                     {QStringLiteral("heldBy"), holders},
                     {QStringLiteral("allHoldersSeen"), !hasUnseen}};
    addText("description", entry.description, &json);
    addText("manufacturer", entry.manufacturer, &json);
    addText("serialNumber", entry.serialNumber, &json);
    addText("link", entry.link, &json);
    if (entry.vendor != 0) {
        json[QStringLiteral("vendor")] = identifier(entry.vendor);
        json[QStringLiteral("product")] = identifier(entry.product);
    }
    if (entry.simulator.process != 0)
        json[QStringLiteral("simulator")] = entry.simulator.process;
    return json;
}

} // namespace kx
