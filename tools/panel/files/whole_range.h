#ifndef KX_PANEL_FILES_WHOLE_RANGE_H
#define KX_PANEL_FILES_WHOLE_RANGE_H

#include "panel/files/tags_file.h"

namespace kx
{

/// The tag's addresses, of which those of one value are read and written by one request.
KXRUNTIME_EXPORT AddressRange wholeRange(const Tag& tag);

/// Why no request of at most `maxWords` registers holds one value of the tag, and what to do: "a
/// value takes 4 registers; raise --max-words, which is 3"; empty when one does.
KXRUNTIME_EXPORT QString requestFault(const Tag& tag, int maxWords);

} // namespace kx

#endif
