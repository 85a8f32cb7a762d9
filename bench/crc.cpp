// The CRC of a whole reply of 125 registers, against the bit-by-bit definition.
#include "modbus/crc.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace
{

const int REPLY_LENGTH = 255;

std::vector<unsigned char> message()
{
    std::vector<unsigned char> bytes;
    for (int i = 0; i < REPLY_LENGTH; ++i)
        bytes.push_back(static_cast<unsigned char>(i * 37));
    return bytes;
}

quint16 crcBitByBit(const unsigned char* bytes, int length)
{
    unsigned int crc = 0xFFFF;
    for (int i = 0; i < length; ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0xA001 : crc >> 1;
    }
    return static_cast<quint16>(crc);
}

void crc(benchmark::State& state, quint16 (*compute)(const unsigned char*, int))
{
    std::vector<unsigned char> bytes = message();
    for (auto _ : state) {
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(compute(bytes.data(), REPLY_LENGTH));
    }
    if (compute(bytes.data(), REPLY_LENGTH) != crcBitByBit(bytes.data(), REPLY_LENGTH))
        state.SkipWithError("wrong CRC");
}

BENCHMARK_CAPTURE(crc, driver, modbusCrc)->Name("crc");
BENCHMARK_CAPTURE(crc, bit_by_bit, crcBitByBit)->Name("crc_bit_by_bit");

} // namespace
