#include "listen/heard_values.h"

#include "addresses/address_text.h"
#include "addresses/device_address.h"
#include "listen/frame_shape.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const int COIL_ON = 0xFF00;

/// The numbers of one request and what stands in them.
struct Area {
    int function = 0;
    int first = 0;
    int count = 0;    ///< coils or registers
    QList<int> words; ///< one per number: 0 or 1, or 16 bits; none when not known

    bool isBits() const
    {
        return function == 1 || function == 2 || function == 5 || function == 15;
    }
};

QList<int> bitsFrom(const QByteArray& data, int count)
{
    QList<int> bits;
    for (int i = 0; i < count && i / 8 < data.size(); ++i)
        bits << (static_cast<unsigned char>(data.at(i / 8)) >> i % 8 & 1);
    return bits;
}

QList<int> wordsFrom(const QByteArray& data, int count)
{
    QList<int> words;
    for (int i = 0; i < count && 2 * i + 1 < data.size(); ++i)
        words << numberAt(data, 2 * i);
    return words;
}

void setData(const QByteArray& data, Area* area)
{
    area->words = area->isBits() ? bitsFrom(data, area->count) : wordsFrom(data, area->count);
    if (area->words.size() != area->count)
        area->words.clear();
}

Area areaOf(const HeardExchange& exchange)
{
    const QByteArray& request = exchange.request.bytes;
    Area area;
    area.function = functionOf(request);
    area.first = numberAt(request, 2);
    const int second = numberAt(request, 4);
    if (area.function == 5 || area.function == 6) {
        area.count = 1;
        // A coil takes two values only; what is neither is not shown as one of them.
        if (area.function == 6 || second == COIL_ON || second == 0)
            area.words << (area.function == 6 ? second : int(second == COIL_ON));
        return area;
    }
    area.count = second;
    const int dataAt = area.function > 6 ? 7 : 3;
    const QByteArray& carrier = area.function > 6 ? request : exchange.reply.bytes;
    const bool isCarried = area.function > 6 || exchange.kind == HeardKind::Answered;
    if (isCarried)
        setData(carrier.mid(dataAt, carrier.size() - dataAt - 2), &area);
    return area;
}

/// Inputs are not what the controller's types are read with.
DeviceAddress deviceAddress(const Area& area, int number)
{
    if (area.function == 2 || area.function == 4)
        return DeviceAddress();
    return area.isBits() ? deviceAddressOfCoil(number) : deviceAddressOfRegister(number);
}

QString numberText(const Area& area, int number)
{
    const char* kind = area.isBits() ? "coil" : "holding register";
    if (area.function == 2)
        kind = "discrete input";
    else if (area.function == 4)
        kind = "input register";
    return QStringLiteral("%1 %2").arg(QLatin1String(kind)).arg(number);
}

/// One value and the numbers that it takes; a number that is no whole value stands alone.
struct Place {
    DeviceAddress device;
    int numbers = 1;
};

Place placeAt(const Area& area, int index)
{
    Place place = {deviceAddress(area, (area.first + index) & 0xFFFF), 1};
    if (!place.device.type)
        return place;
    place.numbers = registersPerAddress(place.device.type);
    if (place.device.part != 0 || index + place.numbers > area.count)
        place = Place(); // half a value
    return place;
}

qint64 valueAt(const Area& area, int index, int numbers)
{
    qint64 value = 0;
    for (int i = 0; i < numbers; ++i) // high word first
        value = value << 16 | area.words.at(index + i);
    return value;
}

/// Whether `place` goes on where a range of `count` values from `first` ends.
bool continues(const Place& first, int count, const Place& place)
{
    return first.device.type == place.device.type
           && (!place.device.type || first.device.address + count == place.device.address);
}

} // namespace

HeardAction actionOf(const QByteArray& request)
{
    if (!isKnownFunction(request) || requestLength(request) != request.size())
        return HeardAction::Other;
    return functionOf(request) <= 4 ? HeardAction::Read : HeardAction::Write;
}

QList<HeardRange> rangesOf(const HeardExchange& exchange)
{
    QList<HeardRange> ranges;
    if (actionOf(exchange.request.bytes) == HeardAction::Other)
        return ranges;
    const Area area = areaOf(exchange);
    Place first;
    for (int i = 0; i < area.count;) {
        const Place place = placeAt(area, i);
        if (ranges.isEmpty() || !continues(first, ranges.last().count, place)) {
            first = place;
            const QString name = place.device.type
                                     ? addressText(place.device.type, place.device.address)
                                     : numberText(area, (area.first + i) & 0xFFFF);
            ranges << HeardRange{name, 0, area.isBits(), {}};
        }
        ++ranges.last().count;
        if (!area.words.isEmpty())
            ranges.last().values << valueAt(area, i, place.numbers);
        i += place.numbers;
    }
    return ranges;
}

} // namespace kx
