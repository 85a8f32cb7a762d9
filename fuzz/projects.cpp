// Projects of the window. What is accepted must be right and survive being written out, and what is
// refused must say why and leave the project alone.

#include "kxpanel/project/project.h"
#include "support/input_reader.h"
#include "support/require.h"

#include <QtCore/QCoreApplication>

using namespace kxpanel;

namespace
{

// Few bytes become a project by chance.
const char* const BEGINNINGS[] = {"", "{\"format\":\"kxpanel project\",\"version\":1,",
                                  "{\"format\":\"kxpanel project\",\"version\":1,\"tags\":[{",
                                  "{\"format\":\"kxpanel project\",\"version\":1,\"connection\":{"};
const char* const ENDS[] = {"", "}", "}]}", "}}"};

void checkTag(const kx::Tag& tag)
{
    require(tag.range.type != nullptr, "a tag has an address");
    require(tag.range.values >= 1
                && tag.range.values - 1 <= kx::highestAddress(tag.range.type) - tag.range.address,
            "a tag ends within its type");
    require(tag.range.station >= 1 && tag.range.station <= 247, "a tag has a station");
}

void readProject(const QByteArray& text)
{
    const QString before = QStringLiteral("before");
    Project project;
    project.connection.port = before;
    QStringList faults;
    if (!parseProject(text, &project, &faults)) {
        require(!faults.isEmpty(), "a refusal says why");
        for (const QString& fault : faults)
            require(!fault.isEmpty() && !fault.contains(QLatin1Char('\n')),
                    "each fault is one line");
        require(project.connection.port == before, "a refused project changes nothing");
        return;
    }
    require(faults.isEmpty(), "what is accepted has no faults");
    for (const ProjectTag& tag : project.tags)
        checkTag(tag.tag);
    const QByteArray written = projectText(project);
    Project again;
    require(parseProject(written, &again, &faults) && projectText(again) == written,
            "a project written out is the same project");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static int argumentCount = 1;
    static const QCoreApplication application(argumentCount, arguments);

    InputReader input(bytes, size);
    const int choice = input.below(4);
    readProject(BEGINNINGS[choice] + input.rest() + ENDS[choice]);
    return 0;
}
