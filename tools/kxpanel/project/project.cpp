#include "kxpanel/project/project.h"

#include "kxpanel/project/connection_json.h"
#include "kxpanel/project/json_members.h"
#include "kxpanel/project/tag_json.h"
#include "system/printable_text.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace kxpanel
{

namespace
{

const char FORMAT[] = "kxpanel project";
const int VERSION = 1;
const char AN_OBJECT[] = QT_TRANSLATE_NOOP("kxpanel::Project", "must be an object");
const char AN_ARRAY[] = QT_TRANSLATE_NOOP("kxpanel::Project", "must be an array");

QString translated(const char* text)
{
    return QCoreApplication::translate("kxpanel::Project", text);
}

QString member(const char* name)
{
    return QLatin1String(name);
}

/// @param offset behind the byte that was not understood
QString placeOf(const QByteArray& text, qint64 offset)
{
    const QByteArray before = text.left(static_cast<int>(qMax<qint64>(0, offset - 1)));
    const int line = static_cast<int>(before.count('\n')) + 1;
    const QString ahead = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1));
    const int column = static_cast<int>(ahead.size()) + 1; // letters, not bytes
    return translated(QT_TRANSLATE_NOOP("kxpanel::Project", "line %1, column %2"))
        .arg(QString::number(line), QString::number(column));
}

/// The whole, which says itself a project of a version that is known.
bool parseWhole(const QByteArray& text, QJsonObject* whole, QStringList* faults)
{
    QString name;
    const int twice = repeatedMember(text, &name);
    if (twice >= 0) { // before Qt reads it, which would keep the memory of the first one for ever
        *faults << placeOf(text, twice + 1) + QLatin1String(": ")
                       + translated(QT_TRANSLATE_NOOP("kxpanel::Project",
                                                      "the member '%1' is there twice"))
                             .arg(name);
        return false;
    }
    QJsonParseError error;
    *whole = QJsonDocument::fromJson(text, &error).object();
    const int zero = static_cast<int>(text.indexOf('\0'));
    if (zero >= 0 && error.error == QJsonParseError::NoError) {
        error.error = QJsonParseError::IllegalValue; // Qt takes it and does not give it back
        error.offset = zero + 1;
    }
    const QJsonValue version = whole->value(member("version"));
    if (error.error != QJsonParseError::NoError)
        *faults << placeOf(text, error.offset) + QLatin1String(": ") + error.errorString();
    else if (whole->value(member("format")).toString() != QLatin1String(FORMAT))
        *faults << translated(
            QT_TRANSLATE_NOOP("kxpanel::Project", "format: this is no project of kxpanel"));
    else if (!version.isDouble() || version.toDouble() < 1)
        *faults << translated(
            QT_TRANSLATE_NOOP("kxpanel::Project", "version: must be a number, 1 or more"));
    else if (version.toDouble() > VERSION)
        *faults << translated(QT_TRANSLATE_NOOP("kxpanel::Project",
                                                "version %1: made by a newer kxpanel; this one "
                                                "reads version %2"))
                       .arg(QString::number(version.toDouble()), QString::number(VERSION));
    return faults->isEmpty();
}

/// Takes a member out.
/// @param kind a fault when it is there and of another type
QJsonValue takeMember(const char* name, QJsonValue::Type type, const char* kind,
                      QJsonObject* object, QStringList* faults)
{
    QJsonValue value = object->take(member(name));
    if (value.type() == type || value.isUndefined())
        return value;
    *faults << QStringLiteral("%1: %2").arg(member(name), translated(kind));
    return QJsonValue();
}

void takeTags(const QJsonArray& array, Project* project, QStringList* faults)
{
    QHash<QString, QString> placeOf; // of a name
    for (int i = 0; i < array.size(); ++i) {
        const QString place = QStringLiteral("tags[%1]").arg(i);
        ProjectTag tag;
        if (!parseTagJson(array.at(i), place, &tag, faults))
            continue;
        const QString name = tag.tag.name;
        if (!name.isEmpty() && placeOf.contains(name))
            *faults << translated(
                           QT_TRANSLATE_NOOP("kxpanel::Project", "%1.name: '%2' is the name of %3"))
                           .arg(place, name, placeOf.value(name));
        placeOf.insert(name, place);
        project->tags << tag;
    }
}

void takePages(const QJsonObject& pages, Project* project, QStringList* faults)
{
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        if (page.value().isObject())
            project->pages.insert(page.key(), page.value().toObject());
        else
            *faults << QStringLiteral("pages.%1: %2").arg(page.key(), translated(AN_OBJECT));
    }
}

} // namespace

bool Project::hasLine() const
{
    return connection.simulate || !connection.port.isEmpty() || !connection.gateway.host.isEmpty();
}

bool parseProject(const QByteArray& text, Project* project, QStringList* faults)
{
    Project read;
    QStringList found;
    QJsonObject& whole = read.extra;
    if (parseWhole(text, &whole, &found)) {
        whole.remove(member("format"));
        whole.remove(member("version"));
        const QJsonValue connection =
            takeMember("connection", QJsonValue::Object, AN_OBJECT, &whole, &found);
        parseConnectionJson(connection.toObject(), &read.connection, &read.connectionExtra, &found);
        takeTags(takeMember("tags", QJsonValue::Array, AN_ARRAY, &whole, &found).toArray(), &read,
                 &found);
        takePages(takeMember("pages", QJsonValue::Object, AN_OBJECT, &whole, &found).toObject(),
                  &read, &found);
    }
    for (const QString& fault : found)
        *faults << kx::printableText(fault);
    if (found.isEmpty())
        *project = read;
    return found.isEmpty();
}

QByteArray projectText(const Project& project)
{
    QJsonObject whole = project.extra;
    whole[member("format")] = QLatin1String(FORMAT);
    whole[member("version")] = VERSION;
    whole[member("connection")] = connectionJson(project.connection, project.connectionExtra);
    QJsonArray tags;
    for (const ProjectTag& tag : project.tags)
        tags.append(tagJson(tag));
    whole[member("tags")] = tags;
    QJsonObject pages;
    for (auto page = project.pages.begin(); page != project.pages.end(); ++page)
        pages[page.key()] = page.value();
    whole[member("pages")] = pages;
    return QJsonDocument(whole).toJson();
}

} // namespace kxpanel
