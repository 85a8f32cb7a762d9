#include "support/values.h"

#include <climits>
#include <cstring>

namespace
{

const int EDGES[] = {INT_MIN,     INT_MIN + 1, -65536, -1025, -256,        -8,
                     -7,          -2,          -1,     0,     1,           2,
                     3,           7,           8,      9,     15,          16,
                     17,          31,          32,     33,    63,          64,
                     124,         125,         126,    127,   128,         129,
                     199,         200,         201,    254,   255,         256,
                     257,         258,         510,    511,   512,         513,
                     514,         1015,        1022,   1023,  1024,        1025,
                     2047,        2048,        2049,   4095,  7999,        8000,
                     8191,        10239,       10240,  12000, 30000,       32767,
                     32768,       65534,       65535,  65536, INT_MAX / 2, INT_MAX / 2 + 1,
                     INT_MAX - 1, INT_MAX};
const int EDGE_COUNT = static_cast<int>(sizeof EDGES / sizeof EDGES[0]);
const int SMALL_NUMBERS = 32;

const char* const TYPES[] = {"X", "Y",  "M",  "SM",   "S",  "T", "C",
                             "D", "SD", "CV", "32CV", "TV", "Z"};
const int TYPE_COUNT = 13;
const char* const ODD_TYPES[] = {"", "x", "XX", "32", "32C", "32CVV", "D ", "Q", "D_bit", "RWI"};
const int ODD_TYPE_COUNT = 10;

} // namespace

int anyNumber(InputReader* input)
{
    const int choice = input->byte();
    if (choice < EDGE_COUNT)
        return EDGES[choice];
    if (choice < EDGE_COUNT + SMALL_NUMBERS)
        return choice - EDGE_COUNT;
    if (choice < 0xF0)
        return input->byte() << 4 | (choice & 0xF);
    return input->word();
}

int affordableCount(InputReader* input)
{
    const int number = anyNumber(input);
    return number > MOST_ELEMENTS ? number % (MOST_ELEMENTS + 1) : number;
}

QString anyType(InputReader* input)
{
    const int choice = input->byte();
    if (choice < 0xD0)
        return QString::fromLatin1(TYPES[choice % TYPE_COUNT]);
    if (choice < 0xF0)
        return QString::fromLatin1(ODD_TYPES[choice % ODD_TYPE_COUNT]);
    return QString::fromUtf8(input->text());
}

bool isKnown(const QString& regType)
{
    for (const char* const name : TYPES) {
        if (regType == QLatin1String(name))
            return true;
    }
    return false;
}

int anyStation(InputReader* input)
{
    const int choice = input->byte();
    return choice < 0xF0 ? choice % 4 : anyNumber(input);
}

int countFor(InputReader* input, const QString& regType)
{
    return isKnown(regType) ? affordableCount(input) : anyNumber(input);
}

KEY_ADDRESS anyKey(InputReader* input)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = anyStation(input);
    key.regType = anyType(input);
    key.address = anyNumber(input);
    key.count = countFor(input, key.regType);
    key.bitIndex = input->flag() ? -1 : 0;
    return key;
}

VARIABLE anyJob(InputReader* input)
{
    VARIABLE job = VARIABLE();
    job.kind = input->byte();
    job.station = anyStation(input);
    job.regType = anyType(input);
    job.address = anyNumber(input);
    job.count = anyNumber(input);
    const QByteArray payload = input->text();
    std::memcpy(job.data, payload.constData(), static_cast<std::size_t>(payload.size()));
    return job;
}
