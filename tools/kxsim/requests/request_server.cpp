#include "kxsim/requests/request_server.h"

#include "kxsim/requests/request_frame.h"

#include <modbus/modbus.h>

#include <new>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace kxsim
{

namespace
{

const int FUNCTION_OFFSET = 1;
const int ADDRESS_OFFSET = 2;
const int QUANTITY_OFFSET = 4;

// libmodbus pauses so long before an exception reply.
const uint32_t NO_WAIT_MICROSECONDS = 1;

int frameByteAt(const QByteArray& frame, int offset)
{
    return static_cast<quint8>(frame.at(offset));
}

const quint8* dataOf(const QByteArray& frame)
{
    return reinterpret_cast<const quint8*>(frame.constData());
}

int numberAt(const QByteArray& frame, int offset)
{
    return frameByteAt(frame, offset) << 8 | frameByteAt(frame, offset + 1);
}

bool writesInputs(const QByteArray& request, const ControllerMemory& memory)
{
    const int number = numberAt(request, ADDRESS_OFFSET);
    switch (frameByteAt(request, FUNCTION_OFFSET)) {
    case MODBUS_FC_WRITE_SINGLE_COIL:
        return memory.holdsInput(number, 1);
    case MODBUS_FC_WRITE_MULTIPLE_COILS:
        return memory.holdsInput(number, numberAt(request, QUANTITY_OFFSET));
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
    const FoundRequest found = findRequest(received);
    if (found.kind != FoundRequest::WHOLE)
        return {found.kind == FoundRequest::DAMAGED ? DAMAGED : INCOMPLETE, 0, QByteArray()};
    const QByteArray request = received.left(found.length);
    const int station = frameByteAt(request, 0);
    if (station == MODBUS_BROADCAST_ADDRESS) {
        for (auto& [number, memory] : m_stations->all()) {
            if (m_stations->hears(number))
                execute(request, &memory);
        }
        return {EXECUTED, found.length, QByteArray()};
    }
    ControllerMemory* const memory = m_stations->memory(station);
    if (!memory || !m_stations->hears(station))
        return {IGNORED, found.length, QByteArray()};
    if (!carriesOut)
        return {EXECUTED, found.length, QByteArray()};
    execute(request, memory);
    return {EXECUTED, found.length, takeReply()};
}

void RequestServer::execute(const QByteArray& request, ControllerMemory* memory)
{
    int exception = formFault(request);
    if (exception == 0 && writesInputs(request, *memory))
        exception = MODBUS_EXCEPTION_ILLEGAL_DATA_ADDRESS;
    if (exception != 0) {
        if (frameByteAt(request, 0) != MODBUS_BROADCAST_ADDRESS)
            modbus_reply_exception(m_modbus, dataOf(request), static_cast<unsigned>(exception));
        return;
    }
    modbus_mapping_t mapping = mappingAround(memory, numberAt(request, ADDRESS_OFFSET));
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
