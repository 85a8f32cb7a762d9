#ifndef KX_PANEL_SEQUENCE_JUNIT_REPORT_H
#define KX_PANEL_SEQUENCE_JUNIT_REPORT_H

#include "panel/sequence/sequence.h"
#include "panel/sequence/step_result.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>

namespace kx
{

/// The results of a sequence as the JUnit XML that CI servers read: a suite of the file's name with
/// a case for each step. A step without a result is an error, so that the report of a run that was
/// killed does not pass for a good one.
/// @param name      the sequence's file, without folder and ending
/// @param startedAt when the run began
QByteArray junitReport(const QString& name, const QDateTime& startedAt, const Sequence& sequence,
                       const QList<StepResult>& results);

} // namespace kx

#endif
