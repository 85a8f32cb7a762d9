// The texts that the tools read: tags files, recipe files, dumps, recordings, sequences, addresses,
// assignments and arguments. What is accepted must be right, and what is refused must say why.

#include "registers/register_types.h"
#include "support/require.h"
#include "tool_texts/texts.h"

#include <QtCore/QCoreApplication>

using namespace kx;

namespace
{

const char PERCENT = '%';
const char STAND_IN = '$'; // means as little to every parser

// Of the first byte; below, inputs keep their meaning.
const int DUMPS_FROM = 0xE0;
const int RECORDINGS_FROM = 0xF0;

} // namespace

bool takes(const Parser& parse, const QByteArray& text)
{
    QString error;
    if (parse(text, &error))
        return true;
    require(!error.isEmpty(), "a refusal says why");
    require(!error.contains(QLatin1Char('\n')), "a refusal is one line");

    QByteArray plain = text;
    plain.replace(PERCENT, STAND_IN);
    QString plainError;
    require(!parse(plain, &plainError), "a percent sign makes no difference");
    error.replace(QLatin1Char(PERCENT), QLatin1Char(STAND_IN));
    require(plainError.replace(QLatin1Char(PERCENT), QLatin1Char(STAND_IN)) == error,
            "a percent sign in the text stays one in the refusal");
    return false;
}

void checkRange(const AddressRange& range)
{
    require(range.type != nullptr, "an address has a type");
    require(range.address >= range.type->lowestAddress, "an address is not below the lowest");
    require(range.values >= 1 && range.values - 1 <= highestAddress(range.type) - range.address,
            "a range ends within its type");
    require(range.station == -1 || (range.station >= 1 && range.station <= 247),
            "a station is 1 to 247");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static int argumentCount = 1;
    static const QCoreApplication application(argumentCount, arguments); // for help texts

    InputReader input(bytes, size);
    const int choice = input.byte();
    if (choice >= RECORDINGS_FROM) {
        readRecording(&input);
        return 0;
    }
    if (choice >= DUMPS_FROM) {
        readDump(&input);
        return 0;
    }
    switch (choice % 4) {
    case 0:
        readTags(&input);
        break;
    case 1:
        readRecipe(&input);
        break;
    case 2:
        readAddresses(&input);
        break;
    default:
        readArguments(&input);
        break;
    }
    return 0;
}
