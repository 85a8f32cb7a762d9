// Prints the register map as a Markdown table, from the table that the driver itself
// works with. docs/register-map.md holds a copy; a test compares the two.
//   kx_register_map
#include "registers/register_types.h"

#include <QtCore/QString>

#include <cstdio>

namespace
{

/// Addresses of one type whose Modbus numbers follow each other.
struct Range {
    const RegisterType* type;
    int first;
    int last;
};

const char* kindOf(const RegisterType* type)
{
    switch (type->registerClass) {
    case BIT_CLASS:
        return "bit";
    case WORD_CLASS:
        return "16-bit word";
    case DOUBLE_WORD_CLASS:
        return "32-bit value";
    case UNKNOWN_CLASS:
        break;
    }
    return "";
}

QString fromTo(const QString& first, const QString& last)
{
    return first + QLatin1String(" to ") + last;
}

// As documents count that start at 1 and name the table: 0 coils, 4 holding registers.
QString oneBased(const RegisterType* type, int number)
{
    const bool isBit = type->registerClass == BIT_CLASS;
    return QString::fromLatin1(isBit ? "0%1" : "4%1").arg(number + 1, 5, 10, QLatin1Char('0'));
}

void print(const Range& range)
{
    const RegisterType* const type = range.type;
    const bool isBit = type->registerClass == BIT_CLASS;
    const QString name = QString::fromLatin1(type->name);
    const int firstNumber = modbusNumber(type, range.first);
    const int lastNumber = modbusNumber(type, range.last) + registersPerAddress(type) - 1;
    const QString cells[] = {
        name,
        QString::fromLatin1(kindOf(type)),
        fromTo(name + QString::number(range.first, type->radix),
               name + QString::number(range.last, type->radix)),
        fromTo(QString::number(range.first), QString::number(range.last)),
        QString::fromLatin1(isBit ? "coils " : "registers ")
            + fromTo(QString::number(firstNumber), QString::number(lastNumber)),
        fromTo(oneBased(type, firstNumber), oneBased(type, lastNumber)),
        QString::fromLatin1(isBit ? "1" : "3"),
        QString::fromLatin1(!type->writable ? "never"
                            : isBit         ? "5, 15"
                                            : "6, 16"),
    };
    for (const QString& cell : cells)
        std::printf("| %s ", qPrintable(cell));
    std::printf("|\n");
}

void printRanges(const RegisterType* type)
{
    const int last = QString::fromLatin1(type->highest).toInt(nullptr, type->radix);
    const bool jumps = type->split <= last && type->baseBelow != type->baseFrom;
    print({type, type->lowestAddress, jumps ? type->split - 1 : last});
    if (jumps)
        print({type, type->split, last});
}

} // namespace

int main()
{
    std::printf("| Type | Holds | As typed | `address` | Modbus numbers | From 1 on | Read with | "
                "Written with |\n|---|---|---|---|---|---|---|---|\n");
    for (const RegisterType& row : REGISTER_TYPES)
        printRanges(findRegisterType(QString::fromLatin1(row.name)));
}
