// The library's one source unit for objects with a life of their own. Objects
// defined in one unit are constructed from top to bottom when the library is
// loaded and destroyed from bottom to top when it is unloaded: REG_LIST, then
// REG_DESCRIPTION, then driver. Do not move one of them to another file.

#include "data/data_area_index.h"
#include "driver/tarvelan.h"
#include "modbus/frame_list.h"
#include "registers/register_catalogue.h"
#include "registers/register_types.h"
#include "registers/type_names.h"

#include <QtCore/QStringList>

namespace
{

QString name(int row)
{
    return QString::fromLatin1(REGISTER_TYPES[row].name);
}

} // namespace

QString REG_LIST[13] = {name(0), name(1), name(2), name(3),  name(4),  name(5), name(6),
                        name(7), name(8), name(9), name(10), name(11), name(12)};

#define TARVELAN_TEXT(row, column) QString::fromLatin1(REGISTER_TYPES[row].column)
#define TARVELAN_DESCRIPTION(row)                                                                  \
    TARVELAN_TEXT(row, format), TARVELAN_TEXT(row, lowest), TARVELAN_TEXT(row, highest),           \
        TARVELAN_TEXT(row, dataType), TARVELAN_TEXT(row, last)

QString REG_DESCRIPTION[13 * 5] = {
    TARVELAN_DESCRIPTION(0),  TARVELAN_DESCRIPTION(1),  TARVELAN_DESCRIPTION(2),
    TARVELAN_DESCRIPTION(3),  TARVELAN_DESCRIPTION(4),  TARVELAN_DESCRIPTION(5),
    TARVELAN_DESCRIPTION(6),  TARVELAN_DESCRIPTION(7),  TARVELAN_DESCRIPTION(8),
    TARVELAN_DESCRIPTION(9),  TARVELAN_DESCRIPTION(10), TARVELAN_DESCRIPTION(11),
    TARVELAN_DESCRIPTION(12),
};

#define TARVELAN_OFFSET(row)                                                                       \
    REGISTER_TYPES[row].split, REGISTER_TYPES[row].baseBelow, REGISTER_TYPES[row].baseFrom

// Constant data: in place before any construction.
constexpr int REG_OFFSET[13 * 3] = {
    TARVELAN_OFFSET(0),  TARVELAN_OFFSET(1), TARVELAN_OFFSET(2),  TARVELAN_OFFSET(3),
    TARVELAN_OFFSET(4),  TARVELAN_OFFSET(5), TARVELAN_OFFSET(6),  TARVELAN_OFFSET(7),
    TARVELAN_OFFSET(8),  TARVELAN_OFFSET(9), TARVELAN_OFFSET(10), TARVELAN_OFFSET(11),
    TARVELAN_OFFSET(12),
};

// The object has static storage, so every field not set here starts as zero.
tarvelan::tarvelan() : burstCount(0), commFailed(0), rcpIndex(0)
{
    dataAreas.clear();
    // Sort order of the register types. TV stands before CV on purpose: it
    // differs from REG_LIST, and merged requests follow it.
    regNames = QString::fromLatin1("X,Y,M,SM,S,T,C,D,SD,TV,CV,32CV,Z").split(QLatin1Char(','));
    // No members, since the layout of the class is binary interface.
    if (this == &driver) {
        dataAreaIndex = new DataAreaIndex;
        spareFrame = new QList<FRAME_PRO>;
        typeNames = new TypeNames;
    }
}

tarvelan::~tarvelan()
{
    if (this == &driver) {
        delete typeNames;
        delete spareFrame;
        delete dataAreaIndex;
    }
}

tarvelan driver;
