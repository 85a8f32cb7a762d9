#include "tools/faults/faulty_line.h"

#include "tools/faults/whole_frames.h"

namespace kx
{

using kxsim::Fault;
using kxsim::FaultyReply;
using kxsim::RequestServer;

namespace
{

const qint64 MICROSECONDS = 1000; // per millisecond
const qint64 CLOSED_FOR = 50000;  // microseconds
const int PIECE = 2;              // bytes

} // namespace

FaultyLine::FaultyLine(const FaultyLineSettings& settings, VirtualClock* clock)
    : m_settings(settings),
      m_clock(clock),
      m_stations(settings.stations),
      m_server(&m_stations),
      m_faults(settings.faults)
{
}

void FaultyLine::open()
{
    m_isOpen = true;
    ++m_openings;
    emit opened();
}

void FaultyLine::write(const QByteArray& bytes)
{
    const int station = static_cast<quint8>(bytes.at(0));
    const int processing = m_settings.processingOf.value(station, m_settings.processing);
    m_clock->after(m_settings.timing.transmissionTime(bytes.size()) + processing * MICROSECONDS,
                   [this, bytes] { serve(bytes); });
}

void FaultyLine::serve(const QByteArray& request)
{
    if (onRequest)
        onRequest(request);
    const RequestServer::Answer answer = m_server.answer(request, m_faults.isCarriedOut());
    if (answer.verdict != RequestServer::EXECUTED)
        return;
    const FaultyReply reply = m_faults.apply(request, answer.reply);
    account(latestFault(), answer.reply, reply.bytes);
    deliver(reply);
}

Fault FaultyLine::latestFault()
{
    size_t kind = 0;
    while (m_faults.count(static_cast<Fault>(kind)) == m_faultsSeen[kind])
        ++kind;
    ++m_faultsSeen[kind];
    return static_cast<Fault>(kind);
}

void FaultyLine::account(Fault fault, const QByteArray& reply, const QByteArray& spoiled)
{
    if (fault == Fault::Corrupt)
        m_framesByChance += wholeFramesIn(spoiled);
    if (fault != Fault::ExtraBefore && fault != Fault::ExtraAfter)
        return;
    m_noise += spoiled.size() - reply.size();
    m_framesByChance += wholeFramesIn(spoiled) - 1;
}

void FaultyLine::deliver(const FaultyReply& reply)
{
    if (reply.closesLine)
        return closeForAWhile();
    const qint64 after = reply.after * MICROSECONDS;
    const int length = static_cast<int>(reply.bytes.size());
    const int piece = m_settings.trickles ? PIECE : length;
    for (int end = 0; end < length;) {
        const int begin = end;
        end = qMin(begin + piece, length);
        arrive(after + m_settings.timing.transmissionTime(end), reply.bytes.mid(begin, end - begin),
               after > 0 && end == length);
    }
}

void FaultyLine::arrive(qint64 after, const QByteArray& bytes, bool isLate)
{
    const int opening = m_openings;
    m_clock->after(after, [this, bytes, opening, isLate] {
        if (opening == m_openings && m_isOpen)
            emit bytesArrived(bytes);
        else if (isLate)
            ++m_lostLateReplies;
    });
}

void FaultyLine::closeForAWhile()
{
    m_isOpen = false;
    m_clock->after(CLOSED_FOR, [this] { open(); });
    emit interrupted();
}

} // namespace kx
