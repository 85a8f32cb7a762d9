#include "long/device_ranges.h"

#include "model/plain_driver.h"

namespace
{

DeviceRange range(int station, const char* regType, int address, int count)
{
    const DeviceRange range = {station, QString::fromLatin1(regType), address, count};
    return range;
}

/// The first coil or register; a range never crosses the split of its type.
int firstNumber(const DeviceRange& range)
{
    const int base = modbusBase(range.regType, range.address);
    return holdsDoubleWords(range.regType) ? base + (range.address - 100) * 2
                                           : base + range.address;
}

/// The register that holds word number `word` of the values, the low one first.
int registerOf(const DeviceRange& range, int word)
{
    return firstNumber(range) + (holdsDoubleWords(range.regType) ? word ^ 1 : word);
}

} // namespace

// Far from SM256, since one request may take in SM on both sides of its split, and
// would read other coils.
const std::vector<DeviceRange>& processRanges()
{
    static const std::vector<DeviceRange> ranges = {
        range(1, "D", 0, 1200),   range(1, "M", 0, 2048),   range(1, "M", 2048, 600),
        range(1, "SD", 0, 256),   range(1, "SD", 256, 256), range(1, "32CV", 200, 112),
        range(1, "TV", 0, 256),   range(1, "T", 0, 256),    range(1, "X", 0, 256),
        range(2, "D", 0, 400),    range(2, "CV", 0, 200),   range(2, "SM", 0, 120),
        range(2, "SM", 256, 256), range(2, "C", 0, 256),    range(3, "D", 0, 100),
        range(3, "S", 0, 1024)};
    return ranges;
}

const std::vector<DeviceRange>& setpointRanges()
{
    static const std::vector<DeviceRange> ranges = {
        range(1, "D", 4000, 700),   range(1, "Y", 0, 256),    range(2, "D", 4000, 100),
        range(2, "32CV", 200, 112), range(2, "M", 3000, 200), range(3, "Z", 0, 16)};
    return ranges;
}

const std::vector<DeviceRange>& recipeRanges()
{
    static const std::vector<DeviceRange> ranges = {range(1, "D", 6000, 300),
                                                    range(2, "SD", 10, 40), range(3, "TV", 7, 1)};
    return ranges;
}

bool holdsBits(const QString& regType)
{
    static const QStringList names = QString::fromLatin1("X,Y,M,S,SM,T,C").split(QLatin1Char(','));
    return names.contains(regType);
}

bool holdsDoubleWords(const QString& regType)
{
    return regType == QLatin1String("32CV");
}

bool holds(const DeviceRange& outer, const DeviceRange& inner)
{
    const int step = holdsDoubleWords(outer.regType) ? 2 : 1;
    return outer.station == inner.station && outer.address <= inner.address
           && inner.address + inner.count / step <= outer.address + outer.count / step
           && outer.regType == inner.regType;
}

int bytesOf(const DeviceRange& range)
{
    return holdsBits(range.regType) ? range.count : 2 * range.count;
}

QByteArray inMemory(const MemoryController& controller, const DeviceRange& range)
{
    QByteArray values(bytesOf(range), '\0');
    char* const data = values.data();
    const bool areBits = holdsBits(range.regType);
    for (int i = 0; i < range.count; ++i) {
        if (areBits) {
            data[i] = static_cast<char>(controller.coil(range.station, firstNumber(range) + i));
            continue;
        }
        const int word = controller.word(range.station, registerOf(range, i));
        data[2 * i] = static_cast<char>(word & 0xFF);
        data[2 * i + 1] = static_cast<char>(word >> 8);
    }
    return values;
}

void putIntoMemory(MemoryController& controller, const DeviceRange& range, const QByteArray& values)
{
    const unsigned char* const bytes = reinterpret_cast<const unsigned char*>(values.constData());
    const bool areBits = holdsBits(range.regType);
    for (int i = 0; i < range.count; ++i) {
        if (areBits)
            controller.setCoil(range.station, firstNumber(range) + i, bytes[i] != 0);
        else
            controller.setWord(range.station, registerOf(range, i),
                               bytes[2 * i] | bytes[2 * i + 1] << 8);
    }
}
