/// Faults of a line, put into the replies of simulated controllers. Knows no line
/// and no clock: a reply goes in, bytes with their delays come out.
#ifndef KX_KXSIM_FAULTS_LINE_FAULTS_H
#define KX_KXSIM_FAULTS_LINE_FAULTS_H

#include "kxsim/faults/fault_plan.h"

#include <QtCore/QByteArray>

#include <array>
#include <random>

namespace kxsim
{

/// What the line carries back after one request.
struct FaultyReply {
    QByteArray bytes; ///< may be empty
    int after = 0;    ///< milliseconds until the bytes are sent
    bool closesLine = false;
};

/// At most one fault per request, drawn from the plan. The same plan gives the same
/// faults for the same requests.
class LineFaults
{
public:
    explicit LineFaults(const FaultPlan& plan);

    /// Whether the controller carries out the request that comes next: not when it
    /// will not hear or will refuse it.
    bool isCarriedOut() const;

    /// Spoils the reply to a request, both whole frames, and draws the next fault.
    /// Not for broadcasts, which have no reply.
    FaultyReply apply(const QByteArray& request, const QByteArray& reply);

    /// Requests that met this fault; with Fault::None, those that met none.
    qint64 count(Fault fault) const { return m_counts[static_cast<size_t>(fault)]; }
    qint64 requests() const;

    /// "requests=100 none=91 deaf=0 silence=3 ...": one line, every kind.
    QString summary() const;

private:
    void draw();
    int below(int limit);
    QByteArray noise();
    QByteArray corrupted(QByteArray reply);
    FaultyReply spoiled(const QByteArray& request, const QByteArray& reply);

    FaultPlan m_plan;
    std::mt19937 m_random;
    Fault m_next = Fault::None;
    std::array<qint64, FAULT_COUNT> m_counts = {};
};

} // namespace kxsim

#endif
