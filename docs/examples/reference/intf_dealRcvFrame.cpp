// Hands over a good reply, then none three times; three bad ones fail a request.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void valueChanged(int /*link*/, int station, QString name, int address)
{
    unsigned char word[2];
    intf_getData(station, name, address, 1, word); // not stored yet
    std::printf("%s%d changes, and is %d in here\n", name.toLatin1().constData(), address,
                word[0] | word[1] << 8);
}

static void exchange(const char* hex)
{
    FRAME_PRO request = FRAME_PRO();
    QByteArray reply = QByteArray::fromHex(hex);
    QString error;
    intf_getSendFrame(&request);
    const int result = intf_dealRcvFrame(reply, error);
    std::printf("result %d, error \"%s\"\n", result, error.toLatin1().constData());
}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    intf_setAddrValueChangeCallBack(valueChanged);
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1("D");
    key.address = 100;
    key.count = 1;
    QList<KEY_ADDRESS> watched = QList<KEY_ADDRESS>() << key;
    intf_addrMerge(watched);

    exchange("0103 02 04D2 3AD9"); // D100 = 1234
    exchange("");                  // the time-out was over
    exchange("");
    exchange("");

    unsigned char word[2];
    intf_getData(1, key.regType, 100, 1, word);
    std::printf("D100 = %d still\n", word[0] | word[1] << 8);
}
