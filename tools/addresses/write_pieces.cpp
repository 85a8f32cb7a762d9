#include "addresses/write_pieces.h"

#include "addresses/read_pieces.h"
#include "addresses/request_limits.h"
#include "registers/register_types.h"

#include <algorithm>

namespace kx
{

namespace
{

bool losesCoils(int coils)
{
    return coils % COILS_PER_BYTE == 0;
}

} // namespace

int addressesPerWrite(const RegisterType* type, int maxWords)
{
    return addressesPerRead(type, std::min(maxWords, MOST_REGISTERS_PER_WRITE));
}

QList<AddressRange> writePieces(const AddressRange& range, int most)
{
    if (range.type->registerClass != BIT_CLASS)
        return readPieces(range, most);
    const int mostCoils = losesCoils(most) ? most - 1 : most;
    QList<AddressRange> pieces;
    for (AddressRange piece : readPieces(range, mostCoils)) {
        if (losesCoils(piece.values)) {
            pieces.append({piece.type, piece.address, 1, piece.station});
            ++piece.address;
            --piece.values;
        }
        pieces.append(piece);
    }
    return pieces;
}

QList<Assignment> writePieces(const Assignment& assignment, int most)
{
    QList<Assignment> pieces;
    for (const AddressRange& range : writePieces(assignment.range, most)) {
        Assignment piece = assignment;
        piece.range = range;
        piece.values =
            assignment.values.mid(range.address - assignment.range.address, range.values);
        pieces.append(piece);
    }
    return pieces;
}

} // namespace kx
