#include "panel/files/tags_file.h"
#include "support/require.h"
#include "tool_texts/texts.h"

#include <QtCore/QSet>

using namespace kx;

namespace
{

// Few bytes become a header by chance.
const char* const HEADERS[] = {"",
                               "comment;address;name;count;station\n",
                               "address\tname\n",
                               "name,station,address,count,comment\n",
                               "name,station,address,count,comment\n",
                               "name,station,address,count,comment\n",
                               "name,station,address,count,comment\n",
                               "name,station,address,count,comment\n"};

} // namespace

void readTags(InputReader* input)
{
    QList<Tag> tags;
    const auto parse = [&](const QByteArray& text, QString* error) {
        return parseTags(text, QStringLiteral("tags.csv"), &tags, error);
    };
    const QByteArray header = HEADERS[input->below(8)];
    if (!takes(parse, header + input->rest())) {
        require(tags.isEmpty(), "a refused file leaves the tags alone");
        return;
    }
    QSet<QString> names;
    require(!tags.isEmpty(), "a tags file has a tag");
    for (const Tag& tag : tags) {
        require(!tag.name.isEmpty() && !names.contains(tag.name), "each tag has a name of its own");
        names.insert(tag.name);
        checkRange(tag.range);
    }
}
