#include "modbus_master.h"

#include <modbus/modbus.h>

#include <cerrno>
#include <poll.h>
#include <unistd.h>
#include <vector>

namespace
{

const int REPLY_TIMEOUT_MILLISECONDS = 1000;

template <typename Value>
QList<int> listOf(const std::vector<Value>& values)
{
    QList<int> list;
    for (const Value value : values)
        list << value;
    return list;
}

template <typename Value>
std::vector<Value> vectorOf(const QList<int>& list)
{
    std::vector<Value> values;
    for (const int value : list)
        values.push_back(static_cast<Value>(value));
    return values;
}

} // namespace

ModbusMaster::ModbusMaster(const QString& portName)
    : m_context(modbus_new_rtu(portName.toLocal8Bit().constData(), 115200, 'N', 8, 1))
{
    modbus_set_response_timeout(m_context, REPLY_TIMEOUT_MILLISECONDS / 1000, 0);
    setStation(1);
    m_isOpen = check(modbus_connect(m_context));
}

ModbusMaster::~ModbusMaster()
{
    if (m_isOpen)
        modbus_close(m_context);
    modbus_free(m_context);
}

void ModbusMaster::setStation(int station)
{
    modbus_set_slave(m_context, station);
}

QList<int> ModbusMaster::coils(int first, int count)
{
    std::vector<uint8_t> values(static_cast<size_t>(count));
    return check(modbus_read_bits(m_context, first, count, values.data())) ? listOf(values)
                                                                           : QList<int>();
}

QList<int> ModbusMaster::registers(int first, int count)
{
    std::vector<uint16_t> values(static_cast<size_t>(count));
    return check(modbus_read_registers(m_context, first, count, values.data())) ? listOf(values)
                                                                                : QList<int>();
}

bool ModbusMaster::writeCoil(int number, bool on)
{
    return check(modbus_write_bit(m_context, number, on));
}

bool ModbusMaster::writeRegister(int number, quint16 value)
{
    return check(modbus_write_register(m_context, number, value));
}

bool ModbusMaster::writeCoils(int first, const QList<int>& values)
{
    const auto bits = vectorOf<uint8_t>(values);
    return check(modbus_write_bits(m_context, first, static_cast<int>(bits.size()), bits.data()));
}

bool ModbusMaster::writeRegisters(int first, const QList<int>& values)
{
    const auto words = vectorOf<uint16_t>(values);
    return check(
        modbus_write_registers(m_context, first, static_cast<int>(words.size()), words.data()));
}

void ModbusMaster::send(const QByteArray& bytes)
{
    check(static_cast<int>(
        write(modbus_get_socket(m_context), bytes.constData(), static_cast<size_t>(bytes.size()))));
}

QByteArray ModbusMaster::received(int count, int milliseconds)
{
    QByteArray all;
    pollfd line = {modbus_get_socket(m_context), POLLIN, 0};
    while (all.size() < count && poll(&line, 1, milliseconds) > 0) {
        char bytes[256];
        const ssize_t length = read(line.fd, bytes, sizeof bytes);
        if (length <= 0)
            break;
        all.append(bytes, static_cast<int>(length));
    }
    return all;
}

bool ModbusMaster::check(int result)
{
    if (result < 0)
        m_error = QString::fromLatin1(modbus_strerror(errno));
    return result >= 0;
}
