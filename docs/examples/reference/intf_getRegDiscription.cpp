// Asks how addresses of three types are typed and how far they go.
#include <tarvelan_kx_series.h>

#include <cstdio>

int main()
{
    const char* const types[] = {"X", "32CV", "x"};
    for (const char* const type : types) {
        QList<QString> description;
        const int result = intf_getRegDiscription(QString::fromLatin1(type), description);
        std::printf("%s: result %d", type, result);
        for (const QString& column : description)
            std::printf(", %s", column.toLatin1().constData());
        std::printf("\n");
    }
}
