#ifndef KX_TESTS_TOOLS_KNOWN_TYPE_H
#define KX_TESTS_TOOLS_KNOWN_TYPE_H

#include <QtCore/QMetaType>

/// Whether connections by name, and spies, find a type of that name.
inline bool isKnownType(const char* name)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::type(name) != QMetaType::UnknownType;
#else
    return QMetaType::fromName(name).isValid();
#endif
}

#endif
