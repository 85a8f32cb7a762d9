#ifndef KX_PANEL_FILES_WHOLE_RANGE_H
#define KX_PANEL_FILES_WHOLE_RANGE_H

#include "panel/files/tags_file.h"

namespace kx
{

/// The tag's addresses, of which those of one value are read and written by one request.
inline AddressRange wholeRange(const Tag& tag)
{
    AddressRange range = tag.range;
    range.width = registersOf(tag.format);
    return range;
}

} // namespace kx

#endif
