// Hands a property page over; the driver empties the text and keeps nothing.
#include <tarvelan_kx_series.h>

#include <cstdio>

int main()
{
    QString page = QString::fromLatin1("0_0");
    intf_SetDriverPropertyPage(page);
    std::printf("property page \"%s\"\n", page.toLatin1().constData());
}
