#include "kxsim/request_server.h"

#include <modbus/modbus.h>

#include <cerrno>
#include <new>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace kxsim
{

namespace
{

const int HIGHEST_STATION = 247;
const int FUNCTION_OFFSET = 1;
const int ADDRESS_OFFSET = 2;

// All bytes are there before libmodbus looks: it need not wait for more, nor
// pause before an exception reply.
const uint32_t NO_WAIT_MICROSECONDS = 1;

int byteAt(const QByteArray& frame, int offset)
{
    return static_cast<quint8>(frame.at(offset));
}

const quint8* dataOf(const QByteArray& frame)
{
    return reinterpret_cast<const quint8*>(frame.constData());
}

bool isServedFunction(int function)
{
    switch (function) {
    case MODBUS_FC_READ_COILS:
    case MODBUS_FC_READ_HOLDING_REGISTERS:
    case MODBUS_FC_WRITE_SINGLE_COIL:
    case MODBUS_FC_WRITE_SINGLE_REGISTER:
    case MODBUS_FC_WRITE_MULTIPLE_COILS:
    case MODBUS_FC_WRITE_MULTIPLE_REGISTERS:
        return true;
    default:
        return false;
    }
}

// The gapless range around the number is all that libmodbus gets to see, so it
// answers a request that leaves the range with exception 2.
modbus_mapping_t mappingAround(ControllerMemory* memory, int number)
{
    const NumberRange coils = memory->coilsAround(number);
    const NumberRange registers = memory->registersAround(number);
    modbus_mapping_t mapping = {};
    mapping.start_bits = coils.first;
    mapping.nb_bits = coils.count;
    mapping.tab_bits = memory->coil(coils.first);
    mapping.start_registers = registers.first;
    mapping.nb_registers = registers.count;
    mapping.tab_registers = memory->holdingRegister(registers.first);
    return mapping;
}

} // namespace

RequestServer::RequestServer(Stations* stations)
    : m_stations(stations), m_modbus(modbus_new_rtu("simulated", 9600, 'N', 8, 1))
{
    int ends[2];
    if (!m_modbus)
        throw std::bad_alloc();
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0) {
        modbus_free(m_modbus);
        throw std::runtime_error("no socket pair for the simulated controller");
    }
    m_modbusEnd = ends[0];
    m_ownEnd = ends[1];
    modbus_set_socket(m_modbus, m_modbusEnd);
    modbus_set_indication_timeout(m_modbus, 0, NO_WAIT_MICROSECONDS);
    modbus_set_byte_timeout(m_modbus, 0, NO_WAIT_MICROSECONDS);
    modbus_set_response_timeout(m_modbus, 0, NO_WAIT_MICROSECONDS);
}

RequestServer::~RequestServer()
{
    modbus_free(m_modbus);
    close(m_modbusEnd);
    close(m_ownEnd);
}

RequestServer::Answer RequestServer::answer(const QByteArray& received, bool carriesOut)
{
    QByteArray request;
    const Verdict verdict = find(received, &request);
    const int length = static_cast<int>(request.size());
    if (verdict != EXECUTED)
        return {verdict, length, QByteArray()};
    const int station = byteAt(request, 0);
    if (station != MODBUS_BROADCAST_ADDRESS) {
        if (!carriesOut)
            return {EXECUTED, length, QByteArray()};
        execute(request, m_stations->memory(station));
        return {EXECUTED, length, takeReply()};
    }
    for (auto& [number, memory] : m_stations->all())
        execute(request, &memory);
    return {EXECUTED, length, takeReply()};
}

RequestServer::Verdict RequestServer::find(const QByteArray& received, QByteArray* request)
{
    const int station = byteAt(received, 0);
    if (station > HIGHEST_STATION)
        return DAMAGED;
    // libmodbus takes the message after another station's request for that
    // station's reply and skips it. So it is asked for every station here, and
    // what is not simulated is dropped afterwards.
    modbus_set_slave(m_modbus, station);
    const QByteArray offered = received.left(MODBUS_RTU_MAX_ADU_LENGTH);
    if (write(m_ownEnd, offered.constData(), static_cast<size_t>(offered.size())) < 0)
        return DAMAGED;
    quint8 bytes[MODBUS_MAX_ADU_LENGTH];
    const int length = modbus_receive(m_modbus, bytes);
    const bool isIncomplete = length < 0 && errno == ETIMEDOUT;
    quint8 rest[MODBUS_MAX_ADU_LENGTH];
    while (read(m_modbusEnd, rest, sizeof rest) > 0) {
    }
    if (length <= 0)
        return isIncomplete ? INCOMPLETE : DAMAGED;
    *request = received.left(length);
    const bool isServed = station == MODBUS_BROADCAST_ADDRESS || m_stations->memory(station);
    return isServed ? EXECUTED : IGNORED;
}

void RequestServer::execute(const QByteArray& request, ControllerMemory* memory)
{
    if (!isServedFunction(byteAt(request, FUNCTION_OFFSET))) {
        modbus_reply_exception(m_modbus, dataOf(request), MODBUS_EXCEPTION_ILLEGAL_FUNCTION);
        return;
    }
    const int number = byteAt(request, ADDRESS_OFFSET) << 8 | byteAt(request, ADDRESS_OFFSET + 1);
    modbus_mapping_t mapping = mappingAround(memory, number);
    modbus_reply(m_modbus, dataOf(request), static_cast<int>(request.size()), &mapping);
}

QByteArray RequestServer::takeReply()
{
    QByteArray reply(MODBUS_MAX_ADU_LENGTH, '\0');
    const ssize_t length = read(m_ownEnd, reply.data(), static_cast<size_t>(reply.size()));
    reply.truncate(static_cast<int>(length > 0 ? length : 0));
    return reply;
}

} // namespace kxsim
