// Checks addresses of bit and word tags.
#include <tarvelan_kx_series.h>

#include <cstdio>

static void check(const char* type, const char* text, int length, int isWord)
{
    int address = -1;
    const int result = intf_checkAddrValidity(QString::fromLatin1(type), QString::fromLatin1(text),
                                              &address, length, isWord);
    std::printf("%s tag %s%s, length %d: result %d, address %d\n", isWord ? "word" : "bit", type,
                text, length, result, address);
}

int main()
{
    check("X", "377", 1, 0);    // octal
    check("X", "8", 1, 0);      // not an octal digit
    check("D", "7999", 1, 1);   // the last one
    check("D", "7999", 2, 1);   // one past it
    check("D", "100", 1, 0);    // a word type for a bit tag
    check("32CV", "255", 2, 1); // two registers
    check("Q", "1", 1, 1);      // no such type
}
