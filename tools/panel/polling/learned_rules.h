#ifndef KX_PANEL_POLLING_LEARNED_RULES_H
#define KX_PANEL_POLLING_LEARNED_RULES_H

#include "panel/plan/read_rules.h"
#include "panel/polling/polled_range.h"

namespace kx
{

/// How the stations of a line want to be asked, learned from what they answer.
class LearnedRules
{
public:
    explicit LearnedRules(const ReadRules& rules) : m_rules(rules) {}

    void setLine(const LineTiming& line) { m_rules.line = line; }
    /// What requests are to be planned by.
    const ReadRules& rules() const { return m_rules; }

    /// A station has answered a request for those addresses.
    /// @param turnaround microseconds from the end of the request to its reply
    void onAnswer(const AddressRange& asked, qint64 turnaround);

    /// A station has refused a request with an address or a quantity that it does not have.
    /// One that is longer than all that it has answered may be too long: it is asked for half
    /// of that from now on. Else gaps may hold addresses that it lacks: none is read along
    /// any more.
    /// @param asked its width is that of the longest value in it, which no limit cuts
    /// @param spansGap not all of the addresses are wanted
    /// @return whether rules() have changed
    bool onRefusal(const AddressRange& asked, bool spansGap);

    /// Takes the turnarounds over when one is far from what was planned with.
    /// @return whether rules() have changed
    bool takeTurnarounds();

private:
    struct Learned {
        double turnaround = -1;  ///< microseconds, smoothed; negative: none yet
        int longest[2] = {0, 0}; ///< addresses answered in one request: registers, coils
    };

    ReadRules m_rules;
    QHash<int, Learned> m_stations;
};

} // namespace kx

#endif
