/// What became of assignments, as a line or an object each.
#ifndef KX_KXHOST_COMMANDS_WRITE_REPORT_H
#define KX_KXHOST_COMMANDS_WRITE_REPORT_H

#include "panel/files/tag_assignment.h"
#include "panel/jobs/write_job.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// "1 D100=12.5,0 confirmed", or "... failed: no reply".
QString writeRow(const TagAssignment& assignment, const WriteOutcome& outcome);
QJsonObject writeJson(const TagAssignment& assignment, const WriteOutcome& outcome);

/// What is there to say besides: how much was confirmed before a failure, and as what a word was
/// written for its bit; or nothing.
QString besidesText(const TagAssignment& assignment, const WriteOutcome& outcome);

} // namespace kx

#endif
