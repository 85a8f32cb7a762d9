// Asks for the property page.
#include <tarvelan_kx_series.h>

#include <cstdio>

int main()
{
    QString page;
    intf_getDriverPropertyPage(page);
    std::printf("property page \"%s\"\n", page.toLatin1().constData());
}
