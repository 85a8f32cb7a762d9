#include "driver/tarvelan.h"

#include "driver/data_area_index.h"
#include "registers/type_names.h"

#include <QtCore/QStringList>

// No member of the class, whose layout is binary interface.
DataAreaIndex* dataAreaIndex;

// The object has static storage, so every field not set here starts as zero.
tarvelan::tarvelan() : burstCount(0), commFailed(0), rcpIndex(0)
{
    dataAreas.clear();
    // Sort order of the register types. TV stands before CV on purpose: it
    // differs from REG_LIST, and merged requests follow it.
    regNames = QString::fromLatin1("X,Y,M,SM,S,T,C,D,SD,TV,CV,32CV,Z").split(QLatin1Char(','));
    if (this == &driver) {
        dataAreaIndex = new DataAreaIndex;
        typeNames = new TypeNames;
    }
}

tarvelan::~tarvelan()
{
    if (this == &driver) {
        delete typeNames;
        delete dataAreaIndex;
    }
}
