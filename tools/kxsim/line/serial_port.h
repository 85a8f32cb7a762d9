/// A real serial port, or the end of a terminal pair that something else made.
#ifndef KX_KXSIM_LINE_SERIAL_PORT_H
#define KX_KXSIM_LINE_SERIAL_PORT_H

#include "kxsim/line/slave_line.h"

#include <memory>

struct _modbus;

namespace kxsim
{

struct PortSettings {
    QString device;
    int baud = 9600;   ///< one of standardBauds()
    char parity = 'N'; ///< N, E or O
    int stopBits = 1;  ///< 1 or 2
};

class SerialPort : public SlaveLine
{
public:
    /// Null, and one line in `*error`, when the device cannot be opened.
    static std::unique_ptr<SerialPort> open(const PortSettings& settings, QString* error);

    /// Restores the device's former settings.
    ~SerialPort() override;

    bool reopen() override;

private:
    explicit SerialPort(_modbus* context);

    _modbus* m_context;
};

} // namespace kxsim

#endif
