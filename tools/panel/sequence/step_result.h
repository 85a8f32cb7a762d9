#ifndef KX_PANEL_SEQUENCE_STEP_RESULT_H
#define KX_PANEL_SEQUENCE_STEP_RESULT_H

#include <QtCore/QJsonValue>
#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace kx
{

enum class StepOutcome {
    Passed,
    Failed,
    Skipped ///< a step before it failed, or the run was interrupted
};

struct StepResult {
    int step = 0; ///< index in Sequence::steps
    StepOutcome outcome = StepOutcome::Skipped;
    QString shown; ///< the value last read, with its unit; empty when none was
    QJsonValue value{QJsonValue::Undefined}; ///< the same as JSON has it; undefined when none was
    QString reason;                          ///< of Failed: one line that names the value
    qint64 microseconds = 0;                 ///< from the step's beginning to its end
};

} // namespace kx

Q_DECLARE_METATYPE(kx::StepResult)

#endif
