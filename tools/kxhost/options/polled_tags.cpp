#include "kxhost/options/polled_tags.h"

#include "kxhost/options/length_options.h"
#include "kxhost/options/tags_arguments.h"
#include "panel/files/whole_range.h"
#include "panel/values/value_address.h"

namespace kx
{

bool parsePolledTags(const QCommandLineParser& parser, const char* purpose,
                     ConnectionOptions* connection, QList<Tag>* tags, QString* error)
{
    int interval = 0; // milliseconds
    if (!parseIntervalOption(parser, &interval, error)
        || !parseTagArguments(parser, connection->station, tags, error))
        return false;
    for (Tag& tag : *tags) {
        tag.interval = tag.interval < 0 ? interval : tag.interval;
        simulateStation(tag.range.station, connection);
        const QString fault = requestFault(tag, connection->session.maxWords);
        if (!fault.isEmpty()) {
            *error = faultyText(valueName(tag.range, tag.format, 0), fault);
            return false;
        }
    }
    if (tags->isEmpty())
        *error = QStringLiteral("nothing to %1; name addresses such as D100:4, or a tags file")
                     .arg(QLatin1String(purpose));
    return !tags->isEmpty();
}

} // namespace kx
