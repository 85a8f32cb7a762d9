#ifndef KX_KXPANEL_PROJECT_TAG_JSON_H
#define KX_KXPANEL_PROJECT_TAG_JSON_H

#include "kxpanel/project/project.h"

namespace kxpanel
{

/// A tag as an object with the columns of a tags file; numbers may be texts, too. Without a name
/// it has none.
/// @param place of the value in its file, such as "tags[3]", with which faults begin
bool parseTagJson(const QJsonValue& value, const QString& place, ProjectTag* tag,
                  QStringList* faults);

QJsonObject tagJson(const ProjectTag& tag);

} // namespace kxpanel

#endif
