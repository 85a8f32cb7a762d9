/// A project: the line, the values and how pages show them, in one JSON file.
///
///     {
///         "format": "kxpanel project",
///         "version": 1,
///         "connection": {"port": "/dev/ttyUSB0", "baud": 9600, "station": 1},
///         "tags": [{"name": "Pressure", "station": 2, "address": "D100", "format": "s16", "scale":
///         0.1}], "pages": {"watch": {"filter": {"text": "pump"}}}
///     }
///
/// "connection" has kxhost's options of the line by their names, "tags" the columns of a tags file,
/// "pages" what each page keeps. Members that a version does not know stay at their places.
#ifndef KX_KXPANEL_PROJECT_PROJECT_H
#define KX_KXPANEL_PROJECT_PROJECT_H

#include "kxpanel/project/connection_json.h"
#include "panel/files/tags_file.h"

#include <QtCore/QMap>

namespace kxpanel
{

struct ProjectTag {
    kx::Tag tag;       ///< of one value or more, with its station
    QJsonObject extra; ///< members that are not known here
};

struct Project {
    kx::ConnectionOptions connection = usualConnection(); ///< without a line: none was chosen
    QList<ProjectTag> tags;
    QMap<QString, QJsonObject> pages; ///< layouts by Page::key()
    QJsonObject extra;                ///< members of the project that are not known here
    QJsonObject connectionExtra;      ///< those of its connection

    bool hasLine() const;
};

/// Reads a project out of the bytes of its file.
/// @return false and all that is wrong in `*faults`, a line each that names the place, such as
///         "line 3, column 7: ..." or "tags[3].address: D9999: ..."; `*project` is then unchanged
bool parseProject(const QByteArray& text, Project* project, QStringList* faults);

/// What parseProject() reads, indented, with a newline at its end.
QByteArray projectText(const Project& project);

} // namespace kxpanel

#endif
