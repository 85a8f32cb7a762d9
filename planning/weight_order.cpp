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

const int DIGIT_BITS = 8;
const int DIGIT_VALUES = 1 << DIGIT_BITS;
const int DIGITS = 32 / DIGIT_BITS;

quint32 digitOf(quint32 weight, int digit)
{
    return weight >> digit * DIGIT_BITS & (DIGIT_VALUES - 1);
}

/// How often each value of each digit occurs.
struct DigitCounts {
    quint32 of[DIGITS][DIGIT_VALUES];
};

void count(DigitCounts& counts, quint32 weight)
{
    for (int digit = 0; digit < DIGITS; ++digit)
        ++counts.of[digit][digitOf(weight, digit)];
}

// Ascending by one digit of the weight; entries that are alike in it keep their order.
// `next` holds how often each value occurs, and then where its next entry goes.
void sortByDigit(const WeightOrder& entries, int digit, quint32* next, WeightOrder& sorted)
{
    quint32 first = 0;
    for (int value = 0; value < DIGIT_VALUES; ++value) {
        const quint32 entriesOfValue = next[value];
        next[value] = first;
        first += entriesOfValue;
    }
    for (size_t i = 0; i < entries.size(); ++i)
        sorted[next[digitOf(entries[i].weight, digit)]++] = entries[i];
}

} // namespace

// Digit by digit from the lowest, which takes time in proportion to their number. Digits in
// which all are alike, as the highest mostly is, are passed over.
WeightOrder orderByWeight(const AddressSpans& spans)
{
    const Scales scales;
    DigitCounts counts = DigitCounts();
    WeightOrder entries(spans.size());
    for (size_t i = 0; i < spans.size(); ++i) {
        entries[i].weight = scales.weigh(spans[i]);
        entries[i].index = static_cast<quint32>(i);
        count(counts, entries[i].weight);
    }
    WeightOrder other(spans.size());
    for (int digit = 0; digit < DIGITS && !entries.empty(); ++digit) {
        if (counts.of[digit][digitOf(entries[0].weight, digit)] == entries.size())
            continue;
        sortByDigit(entries, digit, counts.of[digit], other);
        entries.swap(other);
    }
    return entries;
}
