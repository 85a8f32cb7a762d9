/// Names that look or begin like a register type's, and are none.
#ifndef KX_TESTS_STORIES_DISGUISED_NAMES_H
#define KX_TESTS_STORIES_DISGUISED_NAMES_H

#include <QtCore/QString>

/// How many disguises there are, and what each is called.
int disguiseCount();
QByteArray disguiseName(int disguise);

/// A register type's name in one of them, made anew at each call, so that it shares its
/// letters with no other string.
QString disguised(const QString& name, int disguise);

#endif
