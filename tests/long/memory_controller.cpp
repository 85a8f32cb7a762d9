#include "long/memory_controller.h"

namespace
{

const int NUMBERS = 65536;
const int MOST_COILS_READ = 2000;
const int MOST_REGISTERS_READ = 125;
const int MOST_COILS_WRITTEN = 1968;
const int MOST_REGISTERS_WRITTEN = 123;
const int ON = 0xFF00;

struct CrcTable {
    quint16 rows[256];

    CrcTable()
    {
        for (int row = 0; row < 256; ++row) {
            int crc = row;
            for (int bit = 0; bit < 8; ++bit)
                crc = crc & 1 ? crc >> 1 ^ 0xA001 : crc >> 1;
            rows[row] = static_cast<quint16>(crc);
        }
    }
};

int crcOf(const unsigned char* bytes, int length)
{
    static const CrcTable table;
    int crc = 0xFFFF;
    for (int i = 0; i < length; ++i)
        crc = crc >> 8 ^ table.rows[(crc ^ bytes[i]) & 0xFF];
    return crc;
}

int wordAt(const unsigned char* frame, int index)
{
    return frame[index] << 8 | frame[index + 1];
}

void appendCrc(QByteArray& frame)
{
    const int crc = crcOf(reinterpret_cast<const unsigned char*>(frame.constData()),
                          static_cast<int>(frame.size()));
    frame.append(static_cast<char>(crc & 0xFF));
    frame.append(static_cast<char>(crc >> 8));
}

bool isWithin(int quantity, int most)
{
    return quantity >= 1 && quantity <= most;
}

/// Whether a request of that function has the quantity or value, byte count and
/// length that go together.
bool isConsistent(const unsigned char* frame, int length)
{
    const int quantity = wordAt(frame, 4);
    switch (frame[1]) {
    case 1:
        return length == 8 && isWithin(quantity, MOST_COILS_READ);
    case 3:
        return length == 8 && isWithin(quantity, MOST_REGISTERS_READ);
    case 5:
        return length == 8 && (quantity == 0 || quantity == ON);
    case 6:
        return length == 8;
    case 15:
        return isWithin(quantity, MOST_COILS_WRITTEN) && frame[6] == (quantity + 7) / 8
               && length == 9 + frame[6];
    case 16:
        return isWithin(quantity, MOST_REGISTERS_WRITTEN) && frame[6] == 2 * quantity
               && length == 9 + frame[6];
    default:
        return false;
    }
}

} // namespace

MemoryController::MemoryController() : m_stations(STATIONS)
{
    for (Station& station : m_stations) {
        station.words.assign(NUMBERS, 0);
        station.coils.assign(NUMBERS, 0);
    }
}

void MemoryController::setWord(int station, int number, int value)
{
    m_stations[index(station)].words[at(number)] = static_cast<quint16>(value);
}

void MemoryController::setCoil(int station, int number, bool on)
{
    m_stations[index(station)].coils[at(number)] = on ? 1 : 0;
}

bool MemoryController::isWellFormed(const FRAME_PRO& request) const
{
    const int length = request.sendLen;
    const unsigned char* const frame = request.frame;
    if (length < 8 || length > FRAME_SIZE || frame[0] < 1 || frame[0] > STATIONS)
        return false;
    const int crc = crcOf(frame, length - 2);
    return frame[length - 2] == (crc & 0xFF) && frame[length - 1] == crc >> 8
           && isConsistent(frame, length);
}

QByteArray MemoryController::replyTo(const FRAME_PRO& request)
{
    if (!isWellFormed(request))
        return QByteArray();
    const unsigned char* const frame = request.frame;
    QByteArray reply(reinterpret_cast<const char*>(frame), 2);
    if (frame[1] == 1 || frame[1] == 3) {
        const QByteArray data = values(frame[0], frame);
        reply.append(static_cast<char>(data.size()));
        reply.append(data);
    } else {
        carryOut(frame[0], frame);
        reply.append(reinterpret_cast<const char*>(frame) + 2, 4);
    }
    appendCrc(reply);
    return reply;
}

QByteArray MemoryController::values(int station, const unsigned char* frame) const
{
    const int first = wordAt(frame, 2);
    const int quantity = wordAt(frame, 4);
    if (frame[1] == 1) {
        QByteArray packed((quantity + 7) / 8, '\0');
        for (int i = 0; i < quantity; ++i)
            packed[i / 8] = static_cast<char>(packed.at(i / 8) | coil(station, first + i) << i % 8);
        return packed;
    }
    QByteArray words;
    words.reserve(2 * quantity);
    for (int i = 0; i < quantity; ++i) {
        words.append(static_cast<char>(word(station, first + i) >> 8));
        words.append(static_cast<char>(word(station, first + i) & 0xFF));
    }
    return words;
}

void MemoryController::carryOut(int station, const unsigned char* frame)
{
    const int first = wordAt(frame, 2);
    const int quantity = wordAt(frame, 4);
    if (frame[1] == 5)
        setCoil(station, first, quantity == ON);
    if (frame[1] == 6)
        setWord(station, first, quantity);
    for (int i = 0; frame[1] == 15 && i < quantity; ++i)
        setCoil(station, first + i, (frame[7 + i / 8] >> i % 8 & 1) != 0);
    for (int i = 0; frame[1] == 16 && i < quantity; ++i)
        setWord(station, first + i, wordAt(frame, 7 + 2 * i));
}
