// Checks addresses with data type and access.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void check(const char* type, const char* text, int dataType, int length, int access)
{
    int address = -1;
    const int result = intf_checkAddr(QString::fromLatin1(type), QString::fromLatin1(text),
                                      &address, dataType, length, access);
    std::printf("%s%s, data type %d, access %d: result %d, address %d\n", type, text, dataType,
                access, result, address);
}

int main()
{
    check("Y", "17", -1, 1, 1); // a bit tag
    check("X", "17", -1, 1, 1); // inputs refuse access 1 and 2
    check("32CV", "200", 3, 2, 0);
    check("32CV", "200", 2, 2, 0); // data type 2 does not fit
    check("D", "100", -1, 1, 0);   // a word type for a bit tag
}
