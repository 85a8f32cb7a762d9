// Plans one read and prints the request that goes on the wire.
#include <tarvelan_kx_series.h>

#include <QtCore/QMutex>

#include <cstdio>
#include <vector>

namespace
{

const int SHARED_BLOCK_SIZE = 60117; // up to and with the recipe request bytes

void valueChanged(int, int, QString, int) {}

} // namespace

int main()
{
    std::vector<unsigned char> shared(SHARED_BLOCK_SIZE);
    std::vector<unsigned short> recipes(16);
    QMutex mutex;
    int status = -1;
    intf_initProperty(shared.data(), nullptr, recipes.data(), &status, "1#0#0#3#32", &mutex);
    intf_setAddrValueChangeCallBack(valueChanged);

    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1("D");
    key.address = 100;
    key.count = 1;
    QList<KEY_ADDRESS> keys;
    keys.append(key);
    intf_addrMerge(keys);

    FRAME_PRO request = FRAME_PRO();
    if (intf_getSendFrame(&request) != 1)
        return 1;
    for (int i = 0; i < request.sendLen; ++i)
        std::printf("%02X", request.frame[i]);
    std::printf("\n");
    return 0;
}
