#include "panel/plan/least_time.h"

#include "panel/plan/plan_timing.h"
#include "panel/plan/whole_values.h"
#include "registers/register_types.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <optional>
#include <vector>

namespace kx
{

namespace
{

const qint64 NANOSECONDS_PER_MICROSECOND = 1000;

/// What pieces of a type cost at a station. Times in nanoseconds.
struct PieceCost {
    qint64 each = 0;   ///< whatever its length
    qint64 block = 0;  ///< for the values of a block
    int blockSize = 1; ///< addresses whose values take whole bytes: 8 coils, or 1
    int most = 1;      ///< addresses
    bool maySpanGaps = true;
};

PieceCost costOf(const RegisterType* type, int number, const ReadRules& rules)
{
    const StationRules station = rules.of(number);
    const bool isBits = type->registerClass == BIT_CLASS;
    // Of 1,000 characters, so that what is rounded up does not count.
    const qint64 character = rules.line.transmissionTime(NANOSECONDS_PER_MICROSECOND);
    const qint64 pauses = timingAt(number, rules).wait() + rules.line.frameGap();
    PieceCost cost;
    cost.each =
        (READ_REQUEST_BYTES + READ_REPLY_BYTES) * character + pauses * NANOSECONDS_PER_MICROSECOND;
    cost.blockSize = isBits ? COILS_PER_BYTE : 1;
    cost.block = isBits ? character : registersPerAddress(type) * BYTES_PER_REGISTER * character;
    cost.most = isBits ? station.maxBits : station.maxWords / registersPerAddress(type);
    cost.most = std::max(cost.most, 1);
    cost.maySpanGaps = station.maySpanGaps;
    return cost;
}

/// First and last address: of a value, or of a piece.
struct Span {
    int first = 0;
    int last = 0;
};

/// The cheapest pieces over values whose first and last addresses rise, found from the last to
/// the first, so that of equals the long pieces come first. The cost of a piece is linear in its
/// whole blocks, so the best last value of the piece that begins with a value is the least of a
/// window that slides along; coils have one window for each of the eight bits of a byte in which
/// a piece may end. Values that overlap may make pieces do so, where all of them are too long for
/// one.
class CheapestCover
{
public:
    CheapestCover(const PieceCost& cost, const std::vector<Span>& values)
        : m_cost(cost),
          m_values(values),
          m_best(values.size() + 1),
          m_windows(static_cast<size_t>(cost.blockSize))
    {
        m_best.back() = {0, 0};
        for (size_t first = values.size(); first-- > 0;) {
            enter(first);
            m_best[first] = best(first);
        }
    }

    /// Indexes of the first and the last value of each, rising.
    std::vector<std::pair<size_t, size_t>> pieces() const
    {
        std::vector<std::pair<size_t, size_t>> pieces;
        for (size_t first = 0; first < m_values.size();) {
            const size_t last = m_best[first].last;
            pieces.emplace_back(first, last);
            first = last + 1;
        }
        return pieces;
    }

private:
    /// The last of a piece's values, by its index, and what all costs from its first on.
    struct Choice {
        size_t last = 0;
        qint64 cost = 0;
    };

    /// The piece may end here. What depends on where it begins is left out of the cost.
    void enter(size_t last)
    {
        const int address = m_values[last].last;
        const Choice choice = {last,
                               m_best[last + 1].cost + address / m_cost.blockSize * m_cost.block};
        std::deque<Choice>& window = m_windows[static_cast<size_t>(address % m_cost.blockSize)];
        while (!window.empty() && window.back().cost > choice.cost)
            window.pop_back();
        window.push_back(choice);
    }

    Choice best(size_t first)
    {
        const int address = m_values[first].first;
        Choice best = alone(first);
        for (int bit = 0; bit < m_cost.blockSize; ++bit) {
            std::deque<Choice>& window = m_windows[static_cast<size_t>(bit)];
            while (!window.empty() && m_values[window.front().last].last - address >= m_cost.most)
                window.pop_front();
            if (window.empty())
                continue;
            // Blocks from the one that ends with that bit back to the first address.
            const int blocks = (address + m_cost.blockSize - 1 - bit) / m_cost.blockSize - 1;
            const qint64 cost = window.front().cost - blocks * m_cost.block + m_cost.each;
            if (cost < best.cost || (cost == best.cost && window.front().last > best.last))
                best = {window.front().last, cost};
        }
        return best;
    }

    /// A value that is longer than a piece may be is one all the same. Of no other is this used.
    Choice alone(size_t value) const
    {
        const int length = m_values[value].last - m_values[value].first + 1;
        if (length <= m_cost.most)
            return {value, std::numeric_limits<qint64>::max()};
        return {value, m_best[value + 1].cost + m_cost.each + length * m_cost.block};
    }

    PieceCost m_cost;
    const std::vector<Span>& m_values;
    std::vector<Choice> m_best; ///< of each value as the first of a piece
    std::vector<std::deque<Choice>> m_windows;
};

/// Pieces of one type at one station.
class PieceMaker
{
public:
    PieceMaker(const AddressRange& of, const ReadRules& rules)
        : m_of(of), m_cost(costOf(of.type, of.station, rules))
    {
    }

    bool isFor(const AddressRange& value) const
    {
        return value.station == m_of.station && value.type == m_of.type;
    }

    void add(const AddressRange& value, QList<AddressRange>* pieces)
    {
        const Span span = {value.address, value.address + value.values - 1};
        if (!m_values.empty() && !mayShare(m_values.back(), span))
            finish(pieces);
        m_values.push_back(span);
    }

    void finish(QList<AddressRange>* pieces)
    {
        for (const auto& [first, last] : CheapestCover(m_cost, m_values).pieces()) {
            const int begin = m_values[first].first;
            const int length = m_values[last].last - begin + 1;
            *pieces << AddressRange{m_of.type, begin, length, m_of.station,
                                    first == last ? length : 1};
        }
        m_values.clear();
    }

private:
    bool mayShare(const Span& before, const Span& value) const
    {
        const int step =
            modbusNumber(m_of.type, value.last) - modbusNumber(m_of.type, before.first);
        return step == (value.last - before.first) * registersPerAddress(m_of.type)
               && (m_cost.maySpanGaps || value.first <= before.last + 1);
    }

    AddressRange m_of;
    PieceCost m_cost;
    std::vector<Span> m_values; ///< that one request may span
};

} // namespace

QList<AddressRange> leastTimePieces(const QList<AddressRange>& ranges, const ReadRules& rules)
{
    QList<AddressRange> pieces;
    std::optional<PieceMaker> maker;
    const WholeValues values(ranges);
    for (const AddressRange& value : values.all()) {
        if (maker && !maker->isFor(value)) {
            maker->finish(&pieces);
            maker.reset();
        }
        if (!maker)
            maker.emplace(value, rules);
        maker->add(value, &pieces);
    }
    if (maker)
        maker->finish(&pieces);
    return pieces;
}

} // namespace kx
