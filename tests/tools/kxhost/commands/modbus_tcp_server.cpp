#include "modbus_tcp_server.h"

#include <modbus/modbus.h>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kx
{

namespace
{

const int LOOK = 20; // milliseconds between looks at whether all is over

/// The first register or coil of a write; -1 for a read. Function and number stand behind the
/// header of seven bytes.
int numberWritten(const uint8_t* request)
{
    const int function = request[7];
    const bool isRead = function >= 1 && function <= 4;
    return isRead ? -1 : request[8] << 8 | request[9];
}

} // namespace

ModbusTcpServer::ModbusTcpServer()
    : m_context(modbus_new_tcp("127.0.0.1", 0)),
      m_memory(modbus_mapping_new(3000, 0, 1000, 0)),
      m_listener(modbus_tcp_listen(m_context, 1))
{
    m_memory->tab_registers[100] = 1234;
    m_memory->tab_bits[2005] = 1;
    m_thread = std::thread([this] { serve(); });
}

ModbusTcpServer::~ModbusTcpServer()
{
    m_isOver = true;
    m_thread.join();
    close(m_listener);
    modbus_mapping_free(m_memory);
    modbus_free(m_context);
}

QString ModbusTcpServer::address() const
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size);
    return QStringLiteral("127.0.0.1:%1").arg(ntohs(address.sin_port));
}

bool ModbusTcpServer::awaits(int descriptor) const
{
    pollfd asked = {descriptor, POLLIN, 0};
    while (!m_isOver) {
        if (poll(&asked, 1, LOOK) > 0)
            return true;
    }
    return false;
}

void ModbusTcpServer::serve()
{
    while (awaits(m_listener)) {
        const int client = accept(m_listener, nullptr, nullptr);
        serveClient(client);
        close(client);
    }
}

void ModbusTcpServer::serveClient(int client)
{
    modbus_set_socket(m_context, client);
    uint8_t request[MODBUS_TCP_MAX_ADU_LENGTH];
    while (awaits(client)) {
        const int length = modbus_receive(m_context, request);
        if (length < 0)
            return;
        const int written = numberWritten(request);
        if (written >= 0 && written == m_ignored)
            continue;
        if (written >= 0 && written == m_refused)
            modbus_reply_exception(m_context, request, MODBUS_EXCEPTION_ILLEGAL_DATA_ADDRESS);
        else
            modbus_reply(m_context, request, length, m_memory);
    }
}

} // namespace kx
