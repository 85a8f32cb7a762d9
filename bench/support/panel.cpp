#include "support/panel.h"

#include "modbus/crc.h"

namespace
{

const int SHARED_BLOCK_SIZE = 60117;

long changeCount = 0;

void countChange(int, int, QString, int)
{
    ++changeCount;
}

void readBack(int, int station, QString name, int address)
{
    unsigned char value[4];
    intf_getData(station, name, address, 1, value);
    ++changeCount;
}

} // namespace

Panel::Panel(int maxWords)
    : m_shared(SHARED_BLOCK_SIZE, 0), m_mutex(), m_frame(FRAME_PRO()), m_errorText()
{
    int status = -1;
    const QByteArray parameters = "1#0#0#3#" + QByteArray::number(maxWords);
    intf_initProperty(m_shared.data(), nullptr, nullptr, &status, parameters.constData(), &m_mutex);
    intf_setAddrValueChangeCallBack(countChange);
}

Panel::~Panel()
{
    int status = -1;
    intf_initProperty(nullptr, nullptr, nullptr, &status, "", nullptr);
}

void Panel::readChangesBack()
{
    intf_setAddrValueChangeCallBack(readBack);
}

long Panel::changes()
{
    return changeCount;
}

KEY_ADDRESS watched(int station, const QString& regType, int address, int count)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = station;
    key.regType = regType;
    key.address = address;
    key.count = count;
    return key;
}

QByteArray reply(int station, int function, int dataBytes, unsigned char fill)
{
    QByteArray bytes;
    bytes.append(static_cast<char>(station));
    bytes.append(static_cast<char>(function));
    bytes.append(static_cast<char>(dataBytes));
    bytes.append(QByteArray(dataBytes, static_cast<char>(fill)));
    const quint16 crc = modbusCrc(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                  static_cast<int>(bytes.size()));
    bytes.append(static_cast<char>(crc & 0xFF));
    bytes.append(static_cast<char>(crc >> 8));
    return bytes;
}
