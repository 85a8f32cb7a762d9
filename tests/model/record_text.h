/// Equality and texts of the records, for comparisons that name what differs.
#ifndef KX_TESTS_MODEL_RECORD_TEXT_H
#define KX_TESTS_MODEL_RECORD_TEXT_H

#include "driver/records.h"
#include "support/driver_fixture.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

bool equal(int a, int b);
bool equal(unsigned int a, unsigned int b);
bool equal(const QString& a, const QString& b);
bool equal(const QByteArray& a, const QByteArray& b);
bool equal(const Report& a, const Report& b);
bool equal(const VARIABLE& a, const VARIABLE& b);
bool equal(const KEY_ADDRESS& a, const KEY_ADDRESS& b);
bool equal(const FRAME_PRO& a, const FRAME_PRO& b);
bool equal(const _RCP_VAR_PRO& a, const _RCP_VAR_PRO& b);
bool equal(const _DATA_& a, const _DATA_& b);

QString shown(int value);
QString shown(unsigned int value);
QString shown(const QString& text);
QString shown(const QByteArray& bytes);
QString shown(const Report& report);
QString shown(const VARIABLE& job);
QString shown(const KEY_ADDRESS& key);
QString shown(const FRAME_PRO& frame);
QString shown(const _RCP_VAR_PRO& var);
QString shown(const _DATA_& area);

/// Empty when equal.
template <class T>
QString difference(const char* what, const T& library, const T& plain)
{
    if (equal(library, plain))
        return QString();
    return QString::fromLatin1(what) + QString::fromLatin1(": library ") + shown(library)
           + QString::fromLatin1(", plain ") + shown(plain);
}

/// Empty when the lists have equal elements in the same order.
template <class List>
QString listDifference(const char* what, const List& library, const List& plain)
{
    for (int i = 0; i < library.size() && i < plain.size(); ++i) {
        if (!equal(library.at(i), plain.at(i)))
            return QString::fromLatin1("at %1 of ").arg(i)
                   + difference(what, library.at(i), plain.at(i));
    }
    if (library.size() == plain.size())
        return QString();
    const bool more = library.size() > plain.size();
    const List& longer = more ? library : plain;
    return QString::fromLatin1(more ? "only in the library, at %1 of "
                                    : "missing in the library, at %1 of ")
               .arg(qMin(library.size(), plain.size()))
           + QString::fromLatin1(what) + QString::fromLatin1(": ")
           + shown(longer.at(qMin(library.size(), plain.size())));
}

#endif
