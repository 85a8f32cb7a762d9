/// A Modbus RTU master on libmodbus, opening a line as a host does.
#ifndef KX_TESTS_TOOLS_KXSIM_MODBUS_MASTER_H
#define KX_TESTS_TOOLS_KXSIM_MODBUS_MASTER_H

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

struct _modbus;

class ModbusMaster
{
public:
    explicit ModbusMaster(const QString& portName);
    ~ModbusMaster();
    ModbusMaster(const ModbusMaster&) = delete;
    ModbusMaster& operator=(const ModbusMaster&) = delete;

    bool isOpen() const { return m_isOpen; }
    void setStation(int station);

    /// Values read with function 1 or 3; empty when that failed, see error().
    QList<int> coils(int first, int count);
    QList<int> registers(int first, int count);

    /// Functions 5, 6, 15 and 16; false when that failed, see error().
    bool writeCoil(int number, bool on);
    bool writeRegister(int number, quint16 value);
    bool writeCoils(int first, const QList<int>& values);
    bool writeRegisters(int first, const QList<int>& values);

    /// libmodbus's text for the last failure.
    QString error() const { return m_error; }

    /// Bytes past libmodbus; received() waits for `count` of them, at most so long for each.
    void send(const QByteArray& bytes);
    QByteArray received(int count, int milliseconds = 1000);

private:
    bool check(int result);

    _modbus* m_context;
    bool m_isOpen;
    QString m_error;
};

#endif
