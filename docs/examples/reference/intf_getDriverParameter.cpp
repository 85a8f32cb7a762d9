// Prints the defaults, one item per line.
#include <tarvelan_kx_series.h>

#include <QtCore/QStringList>

#include <cstdio>

int main()
{
    QString parameters;
    intf_getDriverParameter(parameters);
    const QStringList items = parameters.split(QLatin1Char(','));
    for (int i = 0; i < items.size(); ++i)
        std::printf("%2d %s\n", i + 1, items.at(i).toLatin1().constData());
}
