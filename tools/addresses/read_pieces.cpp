#include "addresses/read_pieces.h"

#include "registers/register_types.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

const int COILS_PER_WORD = 8;

bool follows(const RegisterType* type, int address)
{
    return modbusNumber(type, address)
           == modbusNumber(type, address - 1) + registersPerAddress(type);
}

} // namespace

int addressesPerRead(const RegisterType* type, int maxWords)
{
    if (type->registerClass == BIT_CLASS)
        return maxWords * COILS_PER_WORD;
    return maxWords / registersPerAddress(type);
}

QString tooLongText(const RegisterType* type, int maxWords)
{
    return Text::tr("a %1 takes %2 registers; raise --max-words, which is %3")
        .arg(QLatin1String(type->name), QString::number(registersPerAddress(type)),
             QString::number(maxWords));
}

QList<AddressRange> readPieces(const AddressRange& range, int most)
{
    QList<AddressRange> pieces;
    for (int i = 0; i < range.values; i += range.width) {
        const int address = range.address + i;
        const bool fits =
            i > 0 && pieces.last().values + range.width <= most && follows(range.type, address);
        if (fits)
            pieces.last().values += range.width;
        else
            pieces.append({range.type, address, range.width, range.station, range.width});
    }
    return pieces;
}

} // namespace kx
