#include "registers/register_catalogue.h"

#include <QtCore/QStringList>

namespace
{

const int BIT_KIND = 0;
const int WORD_KIND = 1;
const int DESCRIPTION_COLUMNS = 5;

} // namespace

int intf_getRegListByType(int kind, QList<QString>& names)
{
    // SM stands before M on purpose, unlike in REG_LIST.
    const char* list = nullptr;
    if (kind == BIT_KIND)
        list = "X,Y,SM,M,S,T,C";
    else if (kind == WORD_KIND)
        list = "D,SD,CV,32CV,TV,Z";
    else
        return 0;
    names += QString::fromLatin1(list).split(QLatin1Char(','));
    return 1;
}

int intf_getRegDiscription(const QString& regType, QList<QString>& description)
{
    for (int row = 0; row < 13; ++row) {
        if (REG_LIST[row] != regType)
            continue;
        for (int column = 0; column < DESCRIPTION_COLUMNS; ++column)
            description.append(REG_DESCRIPTION[row * DESCRIPTION_COLUMNS + column]);
        return 1;
    }
    return 0;
}
