#ifndef KX_KXHOST_SEQUENCE_SEQUENCE_FILE_H
#define KX_KXHOST_SEQUENCE_SEQUENCE_FILE_H

#include "kxhost/options/sequence_options.h"
#include "panel/sequence/sequence.h"

namespace kx
{

/// Reads the sequence and all of its tags files. Complains of all that is wrong, a line each, and
/// returns an ExitCode other than 0 then.
int readSequenceFile(const SequenceOptions& options, Sequence* sequence);

} // namespace kx

#endif
