// Any text as an address, as a register type and as the parameters of the driver,
// with lengths, counts and steps at every edge.

#include "support/panel.h"
#include "support/require.h"
#include "support/values.h"

#include <QtCore/QStringList>

namespace
{

const int UNTOUCHED = 0x5A5A5A5A;
const int MOST_DOUBLINGS = 9; // of a parameter string, 65,280 bytes then

// Also code units that make no character.
QString anyText(InputReader* input)
{
    const int encoding = input->below(8);
    if (encoding >= 4)
        return QString::number(anyNumber(input), encoding == 4 ? 8 : 10);
    const QByteArray bytes = input->text();
    if (encoding == 0)
        return QString::fromUtf8(bytes);
    if (encoding == 1)
        return QString();
    if (encoding == 2)
        return QString::fromLatin1(bytes);
    QString text;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(static_cast<uchar>(bytes.at(i)), static_cast<uchar>(bytes.at(i + 1)));
    return text;
}

int radixOf(const QString& regType)
{
    return regType == QLatin1String("X") || regType == QLatin1String("Y") ? 8 : 10;
}

int highestAddress(const QString& regType)
{
    QList<QString> description;
    if (intf_getRegDiscription(regType, description) == 0)
        return 0;
    return description.at(2).toInt(nullptr, radixOf(regType));
}

void checkAnswer(const QString& regType, int result, int address, int length)
{
    require(result >= 0 && result <= 6, "a check gives a code from 0 to 6");
    require(isKnown(regType) || result == 3, "an unknown type is refused");
    if (result == 1 || result == 3 || result == 5 || result == 6)
        require(address == UNTOUCHED, "a refusal by type leaves the number alone");
    if (result == 4)
        require(address == 0, "text that is no number gives 0");
    if (result != 0)
        return;
    require(address >= 0, "a valid address is not negative");
    // 32CV255 takes two registers.
    const int beyond = regType == QLatin1String("32CV") ? 2 : 1;
    require(static_cast<qint64>(address) + length <= highestAddress(regType) + beyond,
            "a valid tag ends within its type");
}

// Both checks of the same address as the same kind of tag, and of its number written
// out.
void checkAddress(InputReader* input)
{
    const QString regType = anyType(input);
    const QString text = anyText(input);
    const int length = anyNumber(input);
    const int isWord = input->below(2);
    int number = UNTOUCHED;
    const int result = intf_checkAddrValidity(regType, text, &number, length, isWord);
    checkAnswer(regType, result, number, length);

    const int dataType = isWord ? 1 : -1;
    int same = UNTOUCHED;
    require(intf_checkAddr(regType, text, &same, dataType, length, 0) == result && same == number,
            "both checks agree");
    if (text.contains(QChar(0)))
        require(result != 0 && result != 2, "a text with a zero character is no number");
    if (result == 0) {
        const QString written = QString::number(number, radixOf(regType));
        require(intf_checkAddrValidity(regType, written, &same, length, isWord) == 0
                    && same == number,
                "a number written out is the same address");
    }
}

void checkWithAccess(InputReader* input)
{
    const QString regType = anyType(input);
    const QString text = anyText(input);
    const int length = anyNumber(input);
    const int dataType = input->flag() ? input->below(12) - 1 : anyNumber(input);
    const int access = anyNumber(input);
    int number = UNTOUCHED;
    const int result = intf_checkAddr(regType, text, &number, dataType, length, access);
    // Also for an unknown type a data type or access may be refused first.
    if (isKnown(regType))
        checkAnswer(regType, result, number, length);
}

void copyAddress(InputReader* input)
{
    const QString regType = anyType(input);
    const int start = anyNumber(input);
    const int count = affordableCount(input);
    const int step = anyNumber(input);
    QVector<QString> texts(1, QString::fromLatin1("before"));
    QVector<int> numbers(1, UNTOUCHED);
    const int result = intf_multiCopy(regType, start, count, step, texts, numbers);

    const int copies = isKnown(regType) && count > 0 ? count : 0;
    require(texts.size() == 1 + copies && numbers.size() == 1 + copies, "one address per copy");
    require(numbers.first() == UNTOUCHED, "what was there stays there");
    require((result == 0) == !isKnown(regType), "an unknown type is refused");
    for (int i = 1; i <= copies; ++i) {
        bool isNumber = false;
        const uint value = texts.at(i).toUInt(&isNumber, radixOf(regType));
        require(isNumber && static_cast<int>(value) == numbers.at(i), "text and number agree");
        require(numbers.at(i) <= highestAddress(regType), "no address past the highest");
    }
}

// The driver reads up to the first zero byte.
void initialise(InputReader* input, Panel* panel)
{
    const QByteArray parameters = input->text().repeated(1 << input->below(MOST_DOUBLINGS));
    const int before[] = {driver.linkId, driver.writeLocalOnly, driver.param2, driver.retryLimit,
                          driver.maxWords};
    panel->initialise(parameters.constData(), input->flag());

    const QStringList items = QString::fromLatin1(parameters.constData()).split(QLatin1Char('#'));
    const int now[] = {driver.linkId, driver.writeLocalOnly, driver.param2, driver.retryLimit,
                       driver.maxWords};
    for (int i = 0; i < 5; ++i)
        require(now[i] == (items.size() < 5 ? before[i] : items.at(i).toInt()),
                "five items set the parameters, fewer none");
    require(driver.maxWordsPerJob == driver.maxWords, "the limit of registers is taken over");
}

void askForTexts(InputReader* input)
{
    QList<QString> names;
    const int kind = anyNumber(input);
    require(intf_getRegListByType(kind, names) == (kind == 0 || kind == 1 ? 1 : 0),
            "types are listed for the kinds 0 and 1");
    QList<QString> description;
    const QString regType = input->flag() ? anyType(input) : anyText(input);
    require(intf_getRegDiscription(regType, description) == (isKnown(regType) ? 1 : 0),
            "the 13 types have a description");
    QString text = anyText(input);
    intf_SetDriverPropertyPage(text);
    require(text.isEmpty(), "the property page is taken");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    InputReader input(bytes, size);
    Panel panel("1#0#0#3#32");
    while (!input.isEmpty()) {
        switch (input.below(5)) {
        case 0:
            checkAddress(&input);
            break;
        case 1:
            checkWithAccess(&input);
            break;
        case 2:
            copyAddress(&input);
            break;
        case 3:
            initialise(&input, &panel);
            break;
        default:
            askForTexts(&input);
            break;
        }
    }
    return 0;
}
