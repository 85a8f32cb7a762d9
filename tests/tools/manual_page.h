/// Options in the help and in the manual page of a program.
#ifndef KX_TESTS_TOOLS_MANUAL_PAGE_H
#define KX_TESTS_TOOLS_MANUAL_PAGE_H

#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QString>

/// Without the roff: a hyphen that is typed has a backslash before it. Empty when there is no such
/// page.
QString manualPage(const QString& path);

/// The long ones, such as "--port".
QSet<QString> optionsIn(const QString& text);

/// The one-letter options and what they stand for: "p" is "--port".
QMap<QString, QString> lettersIn(const QString& text);

#endif
