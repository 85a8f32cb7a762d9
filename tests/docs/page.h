/// Pages of the documentation, as the tests read them.
#ifndef KX_TESTS_DOCS_PAGE_H
#define KX_TESTS_DOCS_PAGE_H

#include <QtCore/QString>

/// The text of a file of the sources; fails the program when there is none.
QString sourceText(const QString& path);

/// What stands between two texts, both left out; empty when one is missing.
QString between(const QString& text, const QString& start, const QString& end);

#endif
