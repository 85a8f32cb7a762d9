// Writes two registers; the controller confirms.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void valueChanged(int /*link*/, int /*station*/, QString name, int address)
{
    std::printf("%s%d reported\n", name.toLatin1().constData(), address);
}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    intf_setAddrValueChangeCallBack(valueChanged);

    // [example]
    unsigned char values[] = {0xD2, 0x04, 0x07, 0x00}; // 1234 and 7, low byte first
    intf_setData(1, QString::fromLatin1("D"), 100, 2, values, WRITE_JOB);
    // [/example]

    unsigned char word[2];
    intf_getData(1, QString::fromLatin1("D"), 100, 1, word);
    std::printf("D100 = %d, not sent yet\n", word[0] | word[1] << 8);

    FRAME_PRO request = FRAME_PRO();
    intf_getSendFrame(&request);
    for (int i = 0; i < request.sendLen; ++i)
        std::printf("%02X%s", unsigned(request.frame[i]), i + 1 < request.sendLen ? " " : "\n");
    QByteArray reply = QByteArray::fromHex("0110 0064 0002 0017");
    QString error;
    std::printf("result %d\n", intf_dealRcvFrame(reply, error));
}
