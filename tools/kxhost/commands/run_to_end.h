/// What the commands that end by themselves have in common.
#ifndef KX_KXHOST_COMMANDS_RUN_TO_END_H
#define KX_KXHOST_COMMANDS_RUN_TO_END_H

#include "kxhost/options/connection_options.h"
#include "panel/jobs/job.h"

namespace kx
{

/// Prints every exchange when the options ask for frames.
void showFrames(const Session* session, const ConnectionOptions& options);

/// Lets the session poll while the job is at work; an interrupt aborts the job.
void runToItsEnd(Session* session, Job* job);

} // namespace kx

#endif
