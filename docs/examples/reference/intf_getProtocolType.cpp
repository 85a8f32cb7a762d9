// Asks for the protocol type.
#include <tarvelan_kx_series.h>

#include <cstdio>

int main()
{
    int type = -1;
    intf_getProtocolType(&type);
    std::printf("protocol type %d\n", type);
}
