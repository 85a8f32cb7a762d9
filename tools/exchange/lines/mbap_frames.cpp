#include "exchange/lines/mbap_frames.h"

#include "exchange/lines/frame_crc.h"

#include <QtCore/QtEndian>

namespace kx
{

namespace
{

const int PROTOCOL = 2;         // the byte at which it stands
const int LENGTH = 4;           // the same; the length counts what follows it
const int HEADER = 6;           // bytes up to the station
const int CRC_LENGTH = 2;       // bytes
const int SHORTEST_CONTENT = 2; // station and function
const int LONGEST_CONTENT = 254;
const int SHORTEST_REPLY = 3; // station, function and an exception's code

int wordAt(const QByteArray& bytes, int position)
{
    return qFromBigEndian<quint16>(bytes.constData() + position);
}

QByteArray word(int value)
{
    QByteArray bytes(2, '\0');
    qToBigEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}

bool isWrong(const QByteArray& received)
{
    if (received.size() >= LENGTH && wordAt(received, PROTOCOL) != 0)
        return true;
    if (received.size() < HEADER)
        return false;
    const int length = wordAt(received, LENGTH);
    return length < SHORTEST_CONTENT || length > LONGEST_CONTENT;
}

} // namespace

QByteArray mbapFrame(quint16 transaction, const QByteArray& rtuFrame)
{
    const QByteArray content = rtuFrame.left(rtuFrame.size() - CRC_LENGTH);
    return word(transaction) + word(0) + word(static_cast<int>(content.size())) + content;
}

MbapContent takeMbapFrame(QByteArray* received, MbapFrame* frame)
{
    if (isWrong(*received))
        return MbapContent::Wrong;
    if (received->size() < HEADER || received->size() < HEADER + wordAt(*received, LENGTH))
        return MbapContent::Incomplete;
    const int length = wordAt(*received, LENGTH);
    frame->transaction = static_cast<quint16>(wordAt(*received, 0));
    frame->rtu = withCrc(received->mid(HEADER, length));
    received->remove(0, HEADER + length);
    return MbapContent::Frame;
}

bool isMbapReply(const QByteArray& received)
{
    return received.size() >= HEADER + SHORTEST_REPLY && !isWrong(received)
           && received.size() == HEADER + wordAt(received, LENGTH);
}

} // namespace kx
