// Registers a value-change function and lets a write call it.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void valueChanged(int link, int station, QString name, int address)
{
    std::printf("link %d, station %d: %s%d changed\n", link, station, name.toLatin1().constData(),
                address);
}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    intf_setAddrValueChangeCallBack(valueChanged);

    unsigned char on[] = {1};
    intf_setData(1, QString::fromLatin1("M"), 7, 1, on, WRITE_JOB);
}
