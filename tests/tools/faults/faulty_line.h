/// A serial line with simulated controllers and faults, in virtual time.
#ifndef KX_TESTS_TOOLS_FAULTS_FAULTY_LINE_H
#define KX_TESTS_TOOLS_FAULTS_FAULTY_LINE_H

#include "exchange/lines/line.h"
#include "kxsim/faults/line_faults.h"
#include "kxsim/requests/request_server.h"
#include "tools/exchange/virtual_clock.h"

#include <QtCore/QHash>

namespace kx
{

/// What the controllers and the line between are.
struct FaultyLineSettings {
    QList<int> stations = {1};
    kxsim::FaultPlan faults;
    LineTiming timing;
    int processing = 5;           ///< milliseconds from a request to its reply
    QHash<int, int> processingOf; ///< the same of stations that take another time
    bool trickles = false;        ///< bytes arrive two by two, as the line carries them
};

class FaultyLine : public Line
{
public:
    FaultyLine(const FaultyLineSettings& settings, VirtualClock* clock);

    QString name() const override { return QString::fromLatin1("faulty line"); }
    LineTiming timing() const override { return m_settings.timing; }
    void open() override;
    void close() override { m_isOpen = false; }
    bool isOpen() const override { return m_isOpen; }
    void write(const QByteArray& bytes) override;
    QByteArray takeWaiting() override { return QByteArray(); }
    QByteArray discardWaiting() override { return QByteArray(); }

    kxsim::Stations& stations() { return m_stations; }
    const kxsim::LineFaults& faults() const { return m_faults; }
    /// Late replies that went down with a line that was closed.
    int lostLateReplies() const { return m_lostLateReplies; }
    /// Frames that are no replies: noise or damaged bytes that have their CRC by chance.
    int framesByChance() const { return m_framesByChance; }
    /// Bytes put before and behind replies.
    qint64 noise() const { return m_noise; }

    /// Called before a controller takes a request, whole and with CRC.
    std::function<void(const QByteArray&)> onRequest;

private:
    void serve(const QByteArray& request);
    kxsim::Fault latestFault();
    void account(kxsim::Fault fault, const QByteArray& reply, const QByteArray& spoiled);
    void deliver(const kxsim::FaultyReply& reply);
    void arrive(qint64 after, const QByteArray& bytes, bool isLate);
    void closeForAWhile();

    FaultyLineSettings m_settings;
    VirtualClock* m_clock;
    kxsim::Stations m_stations;
    kxsim::RequestServer m_server;
    kxsim::LineFaults m_faults;
    bool m_isOpen = true;
    int m_openings = 0; ///< bytes of an earlier one do not arrive
    int m_lostLateReplies = 0;
    std::array<qint64, kxsim::FAULT_COUNT> m_faultsSeen = {};
    int m_framesByChance = 0;
    qint64 m_noise = 0;
};

} // namespace kx

#endif
