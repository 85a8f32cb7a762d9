/// Steps of a sequence as rows and JSON. Pure functions.
#ifndef KX_KXHOST_SEQUENCE_STEP_ROWS_H
#define KX_KXHOST_SEQUENCE_STEP_ROWS_H

#include "panel/sequence/sequence.h"
#include "panel/sequence/step_result.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// "passed      3.214 s  line 4: wait pressure > 4.5 within 10s  (4.6 bar)".
QString stepRow(const Step& step, const StepResult& result);

/// Of a step at work: "...         2.1 s  line 4: wait pressure > 4.5 within 10s  (4.2 bar)".
QString workingRow(const Step& step, qint64 milliseconds, const QString& shown);

/// Of a step that is only checked: "line 4: wait pressure > 4.5 within 10s  pressure (D100@1)".
QString plannedRow(const Step& step);

/// What a step is about: event, line, step and, but for a pause, station, address and name.
QJsonObject stepJson(const Step& step);

/// The same with outcome, milliseconds, value and failure.
QJsonObject resultJson(const Step& step, const StepResult& result);

/// "passed", "failed" or "skipped".
QString outcomeName(StepOutcome outcome);

} // namespace kx

#endif
