// Four copies of a tag, four inputs apart; the last two would be past X377.
#include <tarvelan_kx_series.h>

#include <cstdio>

int main()
{
    QVector<QString> texts;
    QVector<int> addresses;
    const int result = intf_multiCopy(QString::fromLatin1("X"), 248, 4, 4, texts, addresses);
    std::printf("result %d\n", result);
    for (int i = 0; i < texts.size(); ++i)
        std::printf("X%s is address %d\n", texts.at(i).toLatin1().constData(), addresses.at(i));
}
