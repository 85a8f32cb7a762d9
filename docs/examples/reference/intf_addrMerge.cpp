// Watches three ranges of words and one of bits in as few requests as possible.
#include <tarvelan_kx_series.h>

#include <cstdio>

static KEY_ADDRESS range(const char* type, int address, int count)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1(type);
    key.address = address;
    key.count = count;
    return key;
}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);

    // [example]
    QList<KEY_ADDRESS> watched;
    watched << range("D", 40, 1) << range("D", 0, 2) << range("D", 10, 1) << range("M", 0, 8);
    const int requests = intf_addrMerge(watched);
    // [/example]

    std::printf("%d requests\n", requests);
    for (const VARIABLE& job : driver.readList)
        std::printf("%s%d, count %d\n", job.regType.toLatin1().constData(), job.address, job.count);
}
