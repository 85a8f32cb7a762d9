#ifndef TARVELAN_REGISTERS_TYPE_NAMES_H
#define TARVELAN_REGISTERS_TYPE_NAMES_H

#include "registers/register_types.h"

#include <QtCore/QString>

/// The names of the register types as strings of the driver's own. Records that
/// share them take no memory for their names, whatever the runtime's are made of.
class TypeNames
{
public:
    TypeNames();

    /// Of a type that findRegisterType() gave. Lives as long as this object.
    const QString& of(const RegisterType* type) const { return m_names[registerTypeRow(type)]; }

private:
    QString m_names[REGISTER_TYPE_COUNT];
};

/// There as long as the object `driver` lives.
extern const TypeNames* typeNames;

#endif
