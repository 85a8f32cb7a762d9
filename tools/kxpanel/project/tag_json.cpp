#include "kxpanel/project/tag_json.h"

#include "addresses/station_text.h"
#include "kxpanel/tags/tag_fields.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

const QLatin1String NAME("name");
const QLatin1String STATION("station");

QString mustBeText()
{
    return QCoreApplication::translate("kxpanel::Project", "must be a text or a number");
}

/// Whole numbers up to 2^53 as JSON has them; numbers with a fraction are kept as texts, exactly.
QJsonValue valueOf(const QString& name, const QString& text)
{
    const bool isNumber =
        name == STATION || name == QLatin1String("count") || name == QLatin1String("decimals");
    return isNumber ? QJsonValue(text.toInt()) : QJsonValue(text);
}

/// What tagOfFields() takes; the fields taken leave `*object`.
QStringList takeFields(const QString& place, QJsonObject* object, QStringList* faults)
{
    QStringList fields;
    for (const QString& name : tagFieldNames()) {
        const QJsonValue value = object->take(name);
        fields << (value.isDouble() ? QString::number(value.toDouble(), 'g', 15)
                                    : value.toString());
        if (!value.isUndefined() && !value.isString() && !value.isDouble())
            *faults << QStringLiteral("%1.%2: %3").arg(place, name, mustBeText());
    }
    return fields;
}

/// "address D9999: why" becomes "tags[3].address: D9999: why".
QString placedFault(const QString& place, const QString& fault)
{
    for (const QString& name : tagFieldNames()) {
        if (fault.startsWith(name + QLatin1Char(' ')))
            return QStringLiteral("%1.%2: %3").arg(place, name, fault.mid(name.size() + 1));
    }
    return QStringLiteral("%1: %2").arg(place, fault);
}

} // namespace

bool parseTagJson(const QJsonValue& value, const QString& place, ProjectTag* tag,
                  QStringList* faults)
{
    QStringList found;
    QJsonObject object = value.toObject();
    const bool hasName = object.contains(NAME);
    if (!hasName)
        object[NAME] = QStringLiteral("-"); // the parser asks for one
    QStringList fields = takeFields(place, &object, &found);
    QStringList reasons;
    if (!value.isObject())
        found = QStringList{QStringLiteral("%1: %2").arg(
            place, QCoreApplication::translate("kxpanel::Project", "must be an object"))};
    else if (found.isEmpty())
        tag->tag = tagOfFields(fields, &reasons);
    for (const QString& reason : reasons)
        found << placedFault(place, reason);
    if (!hasName)
        tag->tag.name.clear();
    if (tag->tag.range.station < 0)
        tag->tag.range.station = kx::LOWEST_STATION;
    tag->extra = object;
    *faults << found;
    return found.isEmpty();
}

QJsonObject tagJson(const ProjectTag& tag)
{
    QJsonObject object = tag.extra;
    const QStringList names = tagFieldNames();
    const QStringList fields = tagFields(tag.tag);
    for (int i = 0; i < names.size(); ++i) {
        if (!fields.at(i).isEmpty())
            object[names.at(i)] = valueOf(names.at(i), fields.at(i));
    }
    if (tag.tag.name.isEmpty())
        object.remove(NAME);
    return object;
}

} // namespace kxpanel
