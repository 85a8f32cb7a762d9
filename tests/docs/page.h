/// Pages of the documentation, as the tests read them.
#ifndef KX_TESTS_DOCS_PAGE_H
#define KX_TESTS_DOCS_PAGE_H

#include <QtCore/QStringList>

/// The text of a file of the sources; fails the program when there is none.
QString sourceText(const QString& path);

/// The files of that folder of the sources and of those below it whose name fits.
QStringList sourceFiles(const QString& folder, const QString& pattern);

/// What stands between two texts, both left out; empty when one is missing.
QString between(const QString& text, const QString& start, const QString& end);

#endif
