// Takes the request for D100 and D101; without a reply the same one comes again.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void print(const FRAME_PRO& request)
{
    for (int i = 0; i < request.sendLen; ++i)
        std::printf("%02X ", unsigned(request.frame[i]));
    std::printf("(expect %d bytes)\n", request.recvLen);
}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    FRAME_PRO request = FRAME_PRO();
    std::printf("%d\n", intf_getSendFrame(&request)); // nothing to send yet

    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1("D");
    key.address = 100;
    key.count = 2;
    QList<KEY_ADDRESS> watched = QList<KEY_ADDRESS>() << key;
    intf_addrMerge(watched);

    std::printf("%d\n", intf_getSendFrame(&request));
    print(request);
    std::printf("%d\n", intf_getSendFrame(&request));
    print(request);
}
