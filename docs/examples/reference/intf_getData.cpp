// Reads a word, a counter and two bits that were written before.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void valueChanged(int, int, QString, int) {}

int main()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    intf_setAddrValueChangeCallBack(valueChanged);
    const QString wordType = QString::fromLatin1("D");
    const QString counterType = QString::fromLatin1("32CV");
    const QString bitType = QString::fromLatin1("Y");
    unsigned char written[] = {0xD2, 0x04};
    intf_setData(1, wordType, 100, 1, written, WRITE_JOB);
    unsigned char counted[] = {0xA0, 0x86, 0x01, 0x00};
    intf_setData(1, counterType, 200, 2, counted, WRITE_JOB);

    unsigned char word[2];
    intf_getData(1, wordType, 100, 1, word);
    std::printf("D100 = %d\n", word[0] | word[1] << 8);

    unsigned char counter[4]; // count 2: two registers make one value
    intf_getData(1, counterType, 200, 2, counter);
    std::printf("32CV200 = %d\n",
                counter[0] | counter[1] << 8 | counter[2] << 16 | counter[3] << 24);

    unsigned char bits[2]; // never read: 0
    intf_getData(1, bitType, 8, 2, bits);
    std::printf("Y10 = %d, Y11 = %d\n", bits[0], bits[1]);
}
