// Reads D200 to D202 once, between the watched addresses.
#include <tarvelan_kx_series.h>

#include <cstdio>

static bool finished = false;

static void valueChanged(int link, int /*station*/, QString /*name*/, int address)
{
    if (link == -1) {
        finished = true;
        std::printf("ended with %d\n", address);
    }
}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    intf_setAddrValueChangeCallBack(valueChanged);

    // [example]
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1("D");
    key.address = 200;
    key.bitIndex = 0; // not -1: count is in registers
    key.count = 3;
    intf_addConditionRead(key, CONDITION_READ_JOB);
    // [/example]

    FRAME_PRO request = FRAME_PRO();
    QString error;
    while (!finished && intf_getSendFrame(&request) == 1) {
        // What a controller would answer: D200 = 10, D201 = 11, D202 = 12.
        QByteArray reply = QByteArray::fromHex("0103 06 000A 000B 000C C8B3");
        std::printf("result %d\n", intf_dealRcvFrame(reply, error));
    }
    unsigned char words[6];
    intf_getData(1, key.regType, 200, 3, words);
    std::printf("%d %d %d\n", words[0], words[2], words[4]);
}
