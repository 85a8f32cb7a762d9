/// The driver at work on a faulty line, in virtual time.
#ifndef KX_TESTS_TOOLS_FAULTS_FAULTY_RUN_H
#define KX_TESTS_TOOLS_FAULTS_FAULTY_RUN_H

#include "panel/session/session.h"
#include "tools/faults/faulty_line.h"
#include "tools/faults/identifying_memory.h"

#include <QtCore/QHash>

namespace kx
{

struct FaultyRunSettings {
    FaultyLineSettings line;
    SessionSettings session;
    QStringList watched; ///< ranges, with their stations: "D0:8@1"
};

class FaultyRun
{
public:
    explicit FaultyRun(const FaultyRunSettings& settings);

    /// Goes on until `isEnough` or nothing happens any more.
    void runUntil(const std::function<bool()>& isEnough);
    /// Stops asking and waits for what is still on its way.
    void settle();

    Session& session() { return *m_session; }
    FaultyLine& line() { return m_line; }
    const VirtualClock& clock() const { return m_clock; }
    VirtualClock& clock() { return m_clock; }
    const QList<AddressRange>& watched() const { return m_watched; }
    /// Requests of one cycle.
    int readsPerCycle() const { return m_readsPerCycle; }
    /// Counts of faults, by kind.
    qint64 faults(kxsim::Fault fault) const { return m_line.faults().count(fault); }
    /// Whole replies that the line has carried, but for refusals, and what looks like one
    /// by chance.
    qint64 wholeReplies() const;
    /// Those that came behind noise or behind a reply cut short, and went down with it.
    qint64 hiddenReplies() const { return m_hiddenReplies; }

    /// Of the values that accepted reads brought.
    qint64 valuesShown() const { return m_valuesShown; }
    qint64 misplaced() const { return m_misplaced; } ///< held by another address
    qint64 stale() const { return m_stale; }         ///< held before the station's previous answer

private:
    void onExchange(const ExchangeRecord& record);
    void check(const AddressRange& range);

    VirtualClock m_clock;
    FaultyLine m_line;
    IdentifyingMemory m_memory;
    std::unique_ptr<Session> m_session;
    QList<AddressRange> m_watched;
    int m_readsPerCycle = 0;
    QHash<int, int> m_countAtAnswer; ///< by station, of the memory at its latest answer
    qint64 m_valuesShown = 0;
    qint64 m_misplaced = 0;
    qint64 m_stale = 0;
    qint64 m_hiddenReplies = 0;
};

/// The number in an environment variable, or else `usual`: for longer runs by hand.
int runLength(const char* variable, int usual);

AddressRange rangeOf(const QString& text);

} // namespace kx

#endif
