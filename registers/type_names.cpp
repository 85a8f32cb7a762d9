#include "registers/type_names.h"

const TypeNames* typeNames;

TypeNames::TypeNames()
{
    for (int row = 0; row < REGISTER_TYPE_COUNT; ++row)
        m_names[row] = QString::fromLatin1(REGISTER_TYPES[row].name);
}
