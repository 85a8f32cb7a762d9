#include "addresses/watch_pieces.h"

#include "addresses/read_pieces.h"
#include "registers/register_types.h"

#include <QtCore/QHash>
#include <QtCore/QPair>

#include <algorithm>

namespace kx
{

namespace
{

/// Whether the driver may join addresses of both Modbus ranges of the type to one
/// request, which then reads others than those past the split. Only of SM.
bool isJoinedAcrossItsSplit(const RegisterType* type)
{
    return type->split < type->limit && type->baseBelow != type->baseFrom && !type->splitKeepsApart;
}

/// Of one station: the pieces on both sides of a split that are nearest to each other.
struct Split {
    int lastBelow = -1; ///< address
    int firstPast = -1; ///< index of the piece
};

void takePiece(const QList<AddressRange>& pieces, int index, Split* split)
{
    const AddressRange& piece = pieces.at(index);
    if (piece.address < piece.type->split)
        split->lastBelow = std::max(split->lastBelow, piece.address);
    else if (split->firstPast < 0 || piece.address < pieces.at(split->firstPast).address)
        split->firstPast = index;
}

/// Lengthens the first piece past each split until no request of at most `maxWords` holds
/// both it and the last piece below. What is read along is not shown.
void keepApart(QList<AddressRange>* pieces, int maxWords)
{
    QHash<QPair<int, int>, Split> splits; // by station and row of the type
    for (int i = 0; i < static_cast<int>(pieces->size()); ++i) {
        const AddressRange& piece = pieces->at(i);
        if (isJoinedAcrossItsSplit(piece.type))
            takePiece(*pieces, i, &splits[{piece.station, registerTypeRow(piece.type)}]);
    }
    for (const Split& split : splits) {
        if (split.lastBelow < 0 || split.firstPast < 0)
            continue;
        AddressRange& past = (*pieces)[split.firstPast];
        past.values = std::max(past.values, split.lastBelow + maxWords + 1 - past.address);
    }
}

} // namespace

QList<AddressRange> watchPieces(const QList<AddressRange>& ranges, int maxWords)
{
    QList<AddressRange> pieces;
    for (const AddressRange& range : ranges) {
        const bool isBits = range.type->registerClass == BIT_CLASS;
        const int most = isBits ? maxWords : addressesPerRead(range.type, maxWords);
        pieces += readPieces(range, qMax(1, most));
    }
    keepApart(&pieces, maxWords);
    return pieces;
}

} // namespace kx
