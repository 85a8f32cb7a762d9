#include "stories/disguised_names.h"

namespace
{

enum Disguise { NULL_NAME, EMPTY, LOWER_CASE, FULL_WIDTH, SAME_LOW_BYTE, OTHER_SCRIPT, TWICE };

const char* const WHOLE[] = {"null",          "empty",        "lower case", "full width",
                             "same low byte", "other script", "twice"};
const int WHOLE_COUNT = 7;

/// One character before or behind the name.
const struct {
    const char* name;
    ushort letter;
} ADDED[] = {{"blank", 0x20},
             {"tab", 0x09},
             {"line feed", 0x0A},
             {"zero character", 0x00},
             {"no-break space", 0xA0},
             {"accent", 0x0301},
             {"space of no width", 0x200B},
             {"byte order mark", 0xFEFF},
             {"wide space", 0x3000},
             {"half a surrogate pair", 0xD800}};
const int ADDED_COUNT = 10;

QString shifted(const QString& name, int distance)
{
    QString result;
    for (const QChar letter : name)
        result += QChar(static_cast<ushort>(letter.unicode() + distance));
    return result;
}

// Cyrillic, Greek and Cherokee letters, and a Roman five.
QString inOtherScript(const QString& name)
{
    const QString latin = QString::fromLatin1("XYMSTCDVZ32");
    const ushort other[] = {0x0425, 0x03A5, 0x041C, 0x0405, 0x0422, 0x0421,
                            0x13A0, 0x2164, 0x0396, 0x0417, 0x01A7};
    QString result;
    for (const QChar letter : name)
        result += QChar(other[latin.indexOf(letter)]);
    return result;
}

QString whole(const QString& name, int disguise)
{
    switch (disguise) {
    case EMPTY:
        return QString::fromLatin1("");
    case LOWER_CASE:
        return name.toLower();
    case FULL_WIDTH:
        return shifted(name, 0xFEE0);
    case SAME_LOW_BYTE:
        return shifted(name, 0x100);
    case OTHER_SCRIPT:
        return inOtherScript(name);
    case TWICE:
        return name + name;
    default:
        return QString();
    }
}

} // namespace

int disguiseCount()
{
    return WHOLE_COUNT + 2 * ADDED_COUNT;
}

QByteArray disguiseName(int disguise)
{
    if (disguise < WHOLE_COUNT)
        return WHOLE[disguise];
    const int added = disguise - WHOLE_COUNT;
    return QByteArray(ADDED[added / 2].name) + (added % 2 == 0 ? " before" : " behind");
}

QString disguised(const QString& name, int disguise)
{
    if (disguise < WHOLE_COUNT)
        return whole(name, disguise);
    const int added = disguise - WHOLE_COUNT;
    const QChar letter(ADDED[added / 2].letter);
    return added % 2 == 0 ? letter + name : name + letter;
}
