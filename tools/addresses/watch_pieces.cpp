#include "addresses/watch_pieces.h"

#include "addresses/read_pieces.h"

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

/// Lengthens the first piece past the split until no request of at most `maxWords` holds
/// both it and the last piece below. What is read along is not shown.
void keepApart(QList<AddressRange>* pieces, const AddressRange& one, int maxWords)
{
    int lastBelow = -1;
    AddressRange* firstPast = nullptr;
    for (AddressRange& piece : *pieces) {
        if (piece.station != one.station || piece.type != one.type)
            continue;
        if (piece.address < one.type->split)
            lastBelow = std::max(lastBelow, piece.address);
        else if (!firstPast || piece.address < firstPast->address)
            firstPast = &piece;
    }
    if (lastBelow >= 0 && firstPast)
        firstPast->values =
            std::max(firstPast->values, lastBelow + maxWords + 1 - firstPast->address);
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
    for (const AddressRange& range : ranges) {
        if (isJoinedAcrossItsSplit(range.type))
            keepApart(&pieces, range, maxWords);
    }
    return pieces;
}

} // namespace kx
