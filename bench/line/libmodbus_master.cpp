// Reads ten registers as fast as libmodbus does: PORT BAUD SECONDS.

#include <modbus.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    if (argc != 4)
        return 2;
    modbus_t* const line = modbus_new_rtu(argv[1], std::atoi(argv[2]), 'N', 8, 1);
    if (!line || modbus_set_slave(line, 1) != 0 || modbus_connect(line) != 0) {
        std::fprintf(stderr, "%s: %s\n", argv[1], modbus_strerror(errno));
        return 3;
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(std::atoi(argv[3]));
    uint16_t registers[10];
    int failures = 0;
    while (std::chrono::steady_clock::now() < end)
        failures += modbus_read_registers(line, 0, 10, registers) == 10 ? 0 : 1;
    modbus_close(line);
    modbus_free(line);
    return failures == 0 ? 0 : 1;
}
