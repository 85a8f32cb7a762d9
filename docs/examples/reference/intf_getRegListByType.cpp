// Lists bit types, then word types, into one list.
#include <tarvelan_kx_series.h>

#include <QtCore/QStringList>

#include <cstdio>

int main()
{
    const int kinds[] = {0, 1, 2};
    QList<QString> names;
    for (const int kind : kinds) {
        const int result = intf_getRegListByType(kind, names);
        std::printf("kind %d: result %d,", kind, result);
        for (const QString& name : names)
            std::printf(" %s", name.toLatin1().constData());
        std::printf("\n");
    }
}
