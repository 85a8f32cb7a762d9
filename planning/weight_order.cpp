#include "planning/weight_order.h"

#include "registers/address_weight.h"

namespace
{

/// Weighs spans; each known type's position is looked up once.
class Scales
{
public:
    Scales()
    {
        for (int row = 0; row < REGISTER_TYPE_COUNT; ++row)
            m_positions[row] = registerTypePosition(QString::fromLatin1(REGISTER_TYPES[row].name));
    }

    unsigned int weigh(const AddressSpan& span) const
    {
        const int position = span.type ? m_positions[registerTypeRow(span.type)]
                                       : registerTypePosition(*span.regType);
        return addressWeight(span.station, position, span.address);
    }

private:
    int m_positions[REGISTER_TYPE_COUNT];
};

/// An entry to be sorted.
struct Weighed {
    quint32 weight;
    quint32 index;
};

typedef std::vector<Weighed> WeighedEntries;

const int DIGIT_BITS = 8;
const int DIGIT_VALUES = 1 << DIGIT_BITS;
const int WEIGHT_BITS = 32;

quint32 digitOf(const Weighed& entry, int shift)
{
    return entry.weight >> shift & (DIGIT_VALUES - 1);
}

// Ascending by one digit of the weight; entries that are alike in it keep their order.
void sortByDigit(const WeighedEntries& entries, int shift, WeighedEntries& sorted)
{
    size_t next[DIGIT_VALUES] = {}; // where the next entry of each digit goes
    for (size_t i = 0; i < entries.size(); ++i)
        ++next[digitOf(entries[i], shift)];
    size_t first = 0;
    for (int digit = 0; digit < DIGIT_VALUES; ++digit) {
        const size_t entriesOfDigit = next[digit];
        next[digit] = first;
        first += entriesOfDigit;
    }
    for (size_t i = 0; i < entries.size(); ++i)
        sorted[next[digitOf(entries[i], shift)]++] = entries[i];
}

} // namespace

// Digit by digit from the lowest, which takes time in proportion to their number.
AddressSpans sortedByWeight(const AddressSpans& spans)
{
    const Scales scales;
    WeighedEntries entries(spans.size());
    for (size_t i = 0; i < spans.size(); ++i) {
        entries[i].weight = scales.weigh(spans[i]);
        entries[i].index = static_cast<quint32>(i);
    }
    WeighedEntries other(spans.size());
    for (int shift = 0; shift < WEIGHT_BITS; shift += DIGIT_BITS) {
        sortByDigit(entries, shift, other);
        entries.swap(other);
    }

    AddressSpans sorted;
    sorted.reserve(spans.size());
    for (size_t i = 0; i < entries.size(); ++i)
        sorted.push_back(spans[entries[i].index]);
    return sorted;
}
