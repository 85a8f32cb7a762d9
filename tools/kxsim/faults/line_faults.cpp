#include "kxsim/faults/line_faults.h"

#include "addresses/request_limits.h"
#include "addresses/station_text.h"

#include "modbus/crc.h"

#include <numeric>

namespace kxsim
{

namespace
{

const char BUSY = 6; // the exception that asks to try again
const int MOST_NOISE = 8;
const int CRC_LENGTH = 2;
const double DRAWS = 4294967296.0; // of the 32-bit generator

QByteArray withCrc(QByteArray frame)
{
    const quint16 crc = modbusCrc(reinterpret_cast<const unsigned char*>(frame.constData()),
                                  static_cast<int>(frame.size()));
    frame.append(static_cast<char>(crc & 0xFF));
    frame.append(static_cast<char>(crc >> 8));
    return frame;
}

QByteArray fromAnotherStation(const QByteArray& reply)
{
    QByteArray frame = reply.left(reply.size() - CRC_LENGTH);
    frame[0] = static_cast<char>(static_cast<quint8>(frame.at(0)) % kx::HIGHEST_STATION + 1);
    return withCrc(frame);
}

QByteArray refusalOf(const QByteArray& request)
{
    QByteArray frame = request.left(2);
    frame[1] = static_cast<char>(frame.at(1) | kx::EXCEPTION_FLAG);
    frame.append(BUSY);
    return withCrc(frame);
}

} // namespace

LineFaults::LineFaults(const FaultPlan& plan) : m_plan(plan), m_random(plan.seed)
{
    draw();
}

bool LineFaults::isCarriedOut() const
{
    return m_next != Fault::Deaf && m_next != Fault::Exception;
}

// The distributions of the standard library differ between its versions; the
// generator does not.
void LineFaults::draw()
{
    double drawn = static_cast<double>(m_random()) / DRAWS;
    m_next = Fault::None;
    for (const FaultChance& chance : m_plan.chances) {
        if (drawn < chance.probability) {
            m_next = chance.fault;
            return;
        }
        drawn -= chance.probability;
    }
}

int LineFaults::below(int limit)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

QByteArray LineFaults::noise()
{
    QByteArray bytes(1 + below(MOST_NOISE), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(below(256));
    return bytes;
}

QByteArray LineFaults::corrupted(QByteArray reply)
{
    const int index = below(static_cast<int>(reply.size()));
    reply[index] = static_cast<char>(reply.at(index) ^ (1 + below(255)));
    return reply;
}

FaultyReply LineFaults::apply(const QByteArray& request, const QByteArray& reply)
{
    FaultyReply result = spoiled(request, reply);
    ++m_counts[static_cast<size_t>(m_next)];
    draw();
    return result;
}

FaultyReply LineFaults::spoiled(const QByteArray& request, const QByteArray& reply)
{
    if (reply.isEmpty() && isCarriedOut())
        return FaultyReply(); // the controller has no answer that could be spoiled
    switch (m_next) {
    case Fault::None:
        break;
    case Fault::Deaf:
    case Fault::Silence:
        return FaultyReply();
    case Fault::Delay:
        return {reply, m_plan.delay, false};
    case Fault::Corrupt:
        return {corrupted(reply), 0, false};
    case Fault::Truncate:
        return {reply.left(1 + below(static_cast<int>(reply.size()) - 1)), 0, false};
    case Fault::ExtraBefore:
        return {noise() + reply, 0, false};
    case Fault::ExtraAfter:
        return {reply + noise(), 0, false};
    case Fault::Duplicate:
        return {reply + reply, 0, false};
    case Fault::OtherStation:
        return {fromAnotherStation(reply), 0, false};
    case Fault::Exception:
        return {refusalOf(request), 0, false};
    case Fault::Echo:
        return {request + reply, 0, false};
    case Fault::Close:
        return {QByteArray(), 0, true};
    }
    return {reply, 0, false};
}

qint64 LineFaults::requests() const
{
    return std::accumulate(m_counts.begin(), m_counts.end(), qint64(0));
}

QString LineFaults::summary() const
{
    QString text = QStringLiteral("requests=%1").arg(requests());
    for (int kind = 0; kind < FAULT_COUNT; ++kind)
        text += QStringLiteral(" %1=%2")
                    .arg(faultName(static_cast<Fault>(kind)))
                    .arg(m_counts[static_cast<size_t>(kind)]);
    return text;
}

} // namespace kxsim
