#include "exchange/lines/mbap_line.h"

#include "exchange/lines/mbap_frames.h"
#include "system/translated_text.h"

#include <utility>

namespace kx
{

namespace
{

const int MOST_LATE = 4096; // bytes that are kept

} // namespace

MbapLine::MbapLine(std::unique_ptr<Line> line, QObject* parent)
    : Line(parent), m_line(std::move(line))
{
    m_line->setParent(this);
    connect(m_line.get(), &Line::opened, this, &Line::opened);
    connect(m_line.get(), &Line::bytesArrived, this, &MbapLine::onBytes);
    connect(m_line.get(), &Line::interrupted, this, &Line::interrupted);
    connect(m_line.get(), &Line::failed, this, &Line::failed);
}

void MbapLine::open()
{
    m_received.clear();
    m_late.clear();
    m_line->open();
}

void MbapLine::write(const QByteArray& bytes)
{
    if (bytes.size() < SHORTEST_RTU_FRAME)
        return;
    ++m_transaction;
    m_line->write(mbapFrame(m_transaction, bytes));
}

QByteArray MbapLine::takeWaiting()
{
    return replies(m_line->takeWaiting());
}

QByteArray MbapLine::discardWaiting()
{
    const QByteArray waiting = replies(m_line->discardWaiting());
    return std::exchange(m_late, QByteArray()) + waiting;
}

void MbapLine::onBytes(const QByteArray& bytes)
{
    const QByteArray arrived = replies(bytes);
    if (!arrived.isEmpty())
        emit bytesArrived(arrived);
}

QByteArray MbapLine::replies(const QByteArray& bytes)
{
    m_received += bytes;
    QByteArray replies;
    MbapFrame frame;
    MbapContent content = MbapContent::Frame;
    while ((content = takeMbapFrame(&m_received, &frame)) == MbapContent::Frame) {
        if (frame.transaction == m_transaction)
            replies += frame.rtu;
        else
            keepLate(frame.rtu);
    }
    if (content != MbapContent::Wrong)
        return replies;
    giveUp();
    return QByteArray();
}

void MbapLine::keepLate(const QByteArray& frame)
{
    if (m_late.size() + frame.size() <= MOST_LATE)
        m_late += frame;
}

void MbapLine::giveUp()
{
    m_received.clear();
    m_line->close();
    emit failed(Text::tr("%1: what it sends is not Modbus TCP").arg(name()));
}

} // namespace kx
