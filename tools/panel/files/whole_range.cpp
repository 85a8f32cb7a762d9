#include "panel/files/whole_range.h"

#include "addresses/read_pieces.h"
#include "system/translated_text.h"

namespace kx
{

AddressRange wholeRange(const Tag& tag)
{
    AddressRange range = tag.range;
    range.width = registersOf(tag.format);
    return range;
}

QString requestFault(const Tag& tag, int maxWords)
{
    if (addressesPerRead(tag.range.type, maxWords) < 1)
        return tooLongText(tag.range.type, maxWords);
    if (registersOf(tag.format) <= maxWords)
        return QString();
    return Text::tr("a value takes %1 registers; raise --max-words, which is %2")
        .arg(registersOf(tag.format))
        .arg(maxWords);
}

} // namespace kx
