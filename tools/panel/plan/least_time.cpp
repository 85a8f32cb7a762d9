#include "panel/plan/least_time.h"

#include "panel/plan/watched_ranges.h"
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

PieceCost costOf(const RegisterType* type, const ReadRules& rules, const StationRules& station)
{
    const bool isBits = type->registerClass == BIT_CLASS;
    // Of 1,000 characters, so that what is rounded up does not count.
    const qint64 character = rules.line.transmissionTime(NANOSECONDS_PER_MICROSECOND);
    const qint64 gap = rules.line.frameGap();
    PieceCost cost;
    cost.each = (READ_REQUEST_BYTES + READ_REPLY_BYTES) * character
                + (std::max(station.turnaround, gap) + gap) * NANOSECONDS_PER_MICROSECOND;
    cost.blockSize = isBits ? COILS_PER_BYTE : 1;
    cost.block = isBits ? character : registersPerAddress(type) * BYTES_PER_REGISTER * character;
    cost.most = isBits ? station.maxBits : station.maxWords / registersPerAddress(type);
    cost.most = std::max(cost.most, 1);
    cost.maySpanGaps = station.maySpanGaps;
    return cost;
}

/// The cheapest pieces over rising addresses, found from the last to the first, so that of equals
/// the long pieces come first. The cost of a piece is linear in its whole blocks, so the best
/// last address of the piece that begins at an address is the least of a window that slides
/// along; coils have one window for each of the eight bits of a byte in which a piece may end.
class CheapestCover
{
public:
    CheapestCover(const PieceCost& cost, const std::vector<int>& addresses)
        : m_cost(cost),
          m_addresses(addresses),
          m_best(addresses.size() + 1),
          m_windows(static_cast<size_t>(cost.blockSize))
    {
        m_best.back() = {0, 0};
        for (size_t first = addresses.size(); first-- > 0;) {
            enter(first);
            m_best[first] = best(first);
        }
    }

    /// First and last addresses, rising.
    std::vector<std::pair<int, int>> pieces() const
    {
        std::vector<std::pair<int, int>> pieces;
        for (size_t first = 0; first < m_addresses.size();) {
            const size_t last = m_best[first].last;
            pieces.emplace_back(m_addresses[first], m_addresses[last]);
            first = last + 1;
        }
        return pieces;
    }

private:
    /// The last of a piece's addresses, by its index, and what all costs from its first on.
    struct Choice {
        size_t last = 0;
        qint64 cost = 0;
    };

    /// The piece may end here. What depends on where it begins is left out of the cost.
    void enter(size_t last)
    {
        const int address = m_addresses[last];
        const Choice choice = {last,
                               m_best[last + 1].cost + address / m_cost.blockSize * m_cost.block};
        std::deque<Choice>& window = m_windows[static_cast<size_t>(address % m_cost.blockSize)];
        while (!window.empty() && window.back().cost > choice.cost)
            window.pop_back();
        window.push_back(choice);
    }

    Choice best(size_t first)
    {
        const int address = m_addresses[first];
        Choice best = {first, std::numeric_limits<qint64>::max()};
        for (int bit = 0; bit < m_cost.blockSize; ++bit) {
            std::deque<Choice>& window = m_windows[static_cast<size_t>(bit)];
            while (!window.empty() && m_addresses[window.front().last] - address >= m_cost.most)
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

    PieceCost m_cost;
    const std::vector<int>& m_addresses;
    std::vector<Choice> m_best; ///< of each address as the first of a piece
    std::vector<std::deque<Choice>> m_windows;
};

/// Pieces of one type at one station.
class PieceMaker
{
public:
    PieceMaker(const AddressRange& of, const ReadRules& rules)
        : m_of(of), m_cost(costOf(of.type, rules, rules.of(of.station)))
    {
    }

    bool isFor(const AddressRange& run) const
    {
        return run.station == m_of.station && run.type == m_of.type;
    }

    void add(const AddressRange& run, QList<AddressRange>* pieces)
    {
        for (int address = run.address; address < run.address + run.values; ++address) {
            if (!m_addresses.empty() && !mayShare(m_addresses.back(), address))
                finish(pieces);
            m_addresses.push_back(address);
        }
    }

    void finish(QList<AddressRange>* pieces)
    {
        for (const auto& [first, last] : CheapestCover(m_cost, m_addresses).pieces())
            *pieces << AddressRange{m_of.type, first, last - first + 1, m_of.station};
        m_addresses.clear();
    }

private:
    bool mayShare(int before, int address) const
    {
        const int step = modbusNumber(m_of.type, address) - modbusNumber(m_of.type, before);
        return step == (address - before) * registersPerAddress(m_of.type)
               && (m_cost.maySpanGaps || address == before + 1);
    }

    AddressRange m_of;
    PieceCost m_cost;
    std::vector<int> m_addresses; ///< that one request may span
};

} // namespace

QList<AddressRange> leastTimePieces(const QList<AddressRange>& ranges, const ReadRules& rules)
{
    QList<AddressRange> pieces;
    std::optional<PieceMaker> maker;
    const WatchedRanges watched(ranges);
    for (const AddressRange& run : watched.runs()) {
        if (maker && !maker->isFor(run)) {
            maker->finish(&pieces);
            maker.reset();
        }
        if (!maker)
            maker.emplace(run, rules);
        maker->add(run, &pieces);
    }
    if (maker)
        maker->finish(&pieces);
    return pieces;
}

QList<AddressRange> rangesBeyond(const QList<AddressRange>& ranges,
                                 const QList<AddressRange>& others)
{
    QList<AddressRange> beyond;
    const WatchedRanges covered(others);
    const WatchedRanges wanted(ranges);
    for (const AddressRange& run : wanted.runs()) {
        int first = run.address;
        const auto add = [&](int end) {
            if (end > first)
                beyond << AddressRange{run.type, first, end - first, run.station};
        };
        for (const AddressRange& part : covered.within(run)) {
            add(part.address);
            first = part.address + part.values;
        }
        add(run.address + run.values);
    }
    return beyond;
}

} // namespace kx
