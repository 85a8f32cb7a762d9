/// A Modbus TCP server on libmodbus, as one of the field's devices is.
#ifndef KX_TESTS_TOOLS_KXHOST_COMMANDS_MODBUS_TCP_SERVER_H
#define KX_TESTS_TOOLS_KXHOST_COMMANDS_MODBUS_TCP_SERVER_H

#include <QtCore/QString>

#include <atomic>
#include <thread>

struct _modbus;
struct _modbus_mapping_t;

namespace kx
{

/// Answers as every station, one client at a time, from a thread of its own. Coils and registers
/// 0 to 999 are 0, but for register 100, which is 1234, and coil 2005, which is 1; coils go up to
/// 2999.
class ModbusTcpServer
{
public:
    ModbusTcpServer();
    ~ModbusTcpServer();
    ModbusTcpServer(const ModbusTcpServer&) = delete;
    ModbusTcpServer& operator=(const ModbusTcpServer&) = delete;

    /// "127.0.0.1:PORT".
    QString address() const;
    /// Refuses each write that begins at this register or coil, with exception 2.
    void refuseWritesTo(int number) { m_refused = number; }
    /// Neither carries it out nor answers.
    void ignoreWritesTo(int number) { m_ignored = number; }

private:
    void serve();
    void serveClient(int client);
    bool awaits(int descriptor) const;

    _modbus* m_context;
    _modbus_mapping_t* m_memory;
    int m_listener;
    std::atomic<bool> m_isOver{false};
    std::atomic<int> m_refused{-1};
    std::atomic<int> m_ignored{-1};
    std::thread m_thread;
};

} // namespace kx

#endif
