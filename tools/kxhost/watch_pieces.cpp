#include "kxhost/watch_pieces.h"

#include "kxhost/commands/read_pieces.h"

QList<AddressRange> watchPieces(const QList<AddressRange>& ranges, int maxWords)
{
    QList<AddressRange> pieces;
    for (const AddressRange& range : ranges) {
        const bool isBits = range.type->registerClass == BIT_CLASS;
        const int most = isBits ? maxWords : addressesPerRead(range.type, maxWords);
        pieces += readPieces(range, qMax(1, most));
    }
    return pieces;
}
