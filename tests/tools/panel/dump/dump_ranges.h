/// Ranges and values of controllers as texts, for tables of tests.
#ifndef KX_TESTS_TOOLS_PANEL_DUMP_DUMP_RANGES_H
#define KX_TESTS_TOOLS_PANEL_DUMP_DUMP_RANGES_H

#include "panel/dump/controller_values.h"

#include <QtCore/QStringList>

namespace kx
{

/// "D0@1=5,6"
inline Assignment assignmentOf(const QString& text)
{
    Assignment assignment;
    QString error;
    if (!parseAssignment(text, &assignment, &error))
        qFatal("%s", qPrintable(error));
    return assignment;
}

inline QList<Assignment> assignmentsOf(const QStringList& texts)
{
    QList<Assignment> assignments;
    for (const QString& text : texts)
        assignments << assignmentOf(text);
    return assignments;
}

/// "D0:4@1"
inline AddressRange rangeOf(const QString& text)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(text, &range, &error))
        qFatal("%s", qPrintable(error));
    return range;
}

inline ControllerValues valuesIn(const QStringList& texts)
{
    ControllerValues values;
    for (const Assignment& assignment : assignmentsOf(texts))
        values.take(assignment.range, assignment.values);
    return values;
}

/// "D0@1=5,6"
inline QStringList textsOf(const QList<Assignment>& assignments)
{
    QStringList texts;
    for (const Assignment& assignment : assignments) {
        QStringList values;
        for (const qint64 value : assignment.values)
            values << QString::number(value);
        const AddressRange& range = assignment.range;
        texts << QStringLiteral("%1@%2=%3")
                     .arg(addressText(range.type, range.address), QString::number(range.station),
                          values.join(','));
    }
    return texts;
}

} // namespace kx

#endif
