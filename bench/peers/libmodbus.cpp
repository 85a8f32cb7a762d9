// libmodbus on a line in memory: its own transaction without any system call.
#include "peers/in_memory_line.h"
#include "support/panel.h"

#include <benchmark/benchmark.h>

#include <modbus/modbus.h>

#include <memory>

namespace
{

const int STATION = 1;
const int REGISTERS = 125;
const int COILS = 2000;

typedef std::unique_ptr<modbus_t, void (*)(modbus_t*)> Connection;

Connection connection()
{
    Connection modbus(modbus_new_rtu("/dev/null", 9600, 'N', 8, 1), modbus_free);
    modbus_set_slave(modbus.get(), STATION);
    modbus_set_socket(modbus.get(), IN_MEMORY_LINE);
    return modbus;
}

void readRegisters(benchmark::State& state)
{
    const Connection modbus = connection();
    answerWith(reply(STATION, 3, 2 * REGISTERS, 0x12).toStdString());
    uint16_t values[REGISTERS] = {};
    for (auto _ : state) {
        if (modbus_read_registers(modbus.get(), 1000, REGISTERS, values) != REGISTERS)
            return state.SkipWithError("libmodbus refused the reply");
    }
    if (values[REGISTERS - 1] != 0x1212)
        state.SkipWithError("libmodbus read another value");
}

void readCoils(benchmark::State& state)
{
    const Connection modbus = connection();
    answerWith(reply(STATION, 1, COILS / 8, 0).toStdString());
    uint8_t values[COILS] = {};
    for (auto _ : state) {
        if (modbus_read_bits(modbus.get(), 4000, COILS, values) != COILS)
            return state.SkipWithError("libmodbus refused the reply");
    }
}

// Its CRC cannot be called from outside. Sending raw bytes computes it and copies
// them; the difference of two lengths leaves the cost per byte.
void sendRawBytes(benchmark::State& state)
{
    const Connection modbus = connection();
    answerWith(std::string());
    std::vector<uint8_t> bytes(static_cast<size_t>(state.range(0)), 0x12);
    for (auto _ : state) {
        if (modbus_send_raw_request(modbus.get(), bytes.data(), static_cast<int>(bytes.size())) < 0)
            return state.SkipWithError("libmodbus refused the bytes");
    }
}

BENCHMARK(readRegisters)->Name("libmodbus_read_registers");
BENCHMARK(readCoils)->Name("libmodbus_read_coils");
BENCHMARK(sendRawBytes)->Name("libmodbus_send_raw")->Arg(14)->Arg(254);

} // namespace
