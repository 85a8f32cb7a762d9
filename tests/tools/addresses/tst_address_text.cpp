// Addresses as a panel's user types them.

#include "addresses/address_text.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class AddressTextTest : public QObject
{
    Q_OBJECT

private slots:
    void anAddressIsRead_data();
    void anAddressIsRead();
    void aWrongAddressIsRefusedInOneLine_data();
    void aWrongAddressIsRefusedInOneLine();
    void anEmbeddedNulIsNoDigit_data();
    void anEmbeddedNulIsNoDigit();
    void theDriverCountsTwoRegistersPer32BitCounter();
    void anAddressIsWrittenInItsOwnRadix_data();
    void anAddressIsWrittenInItsOwnRadix();
};

void AddressTextTest::anAddressIsRead_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("values");
    QTest::addColumn<int>("station");
    QTest::newRow("a word") << "D100"
                            << "D" << 100 << 1 << -1;
    QTest::newRow("with a count") << "D100:4"
                                  << "D" << 100 << 4 << -1;
    QTest::newRow("with a station") << "M0@2"
                                    << "M" << 0 << 1 << 2;
    QTest::newRow("with both") << "M8:16@247"
                               << "M" << 8 << 16 << 247;
    QTest::newRow("lowest station") << "M0@1"
                                    << "M" << 0 << 1 << 1;
    QTest::newRow("X is octal") << "X17"
                                << "X" << 15 << 1 << -1;
    QTest::newRow("highest X") << "X377"
                               << "X" << 255 << 1 << -1;
    QTest::newRow("Y is octal") << "Y10"
                                << "Y" << 8 << 1 << -1;
    QTest::newRow("the count of X is decimal") << "X0:10"
                                               << "X" << 0 << 10 << -1;
    QTest::newRow("leading zeros") << "D0007"
                                   << "D" << 7 << 1 << -1;
    QTest::newRow("a type that starts with digits") << "32CV200"
                                                    << "32CV" << 200 << 1 << -1;
    QTest::newRow("highest 32CV") << "32CV255"
                                  << "32CV" << 255 << 1 << -1;
    QTest::newRow("all of 32CV") << "32CV200:56"
                                 << "32CV" << 200 << 56 << -1;
    QTest::newRow("all of D") << "D0:8000"
                              << "D" << 0 << 8000 << -1;
    QTest::newRow("highest M") << "M10239"
                               << "M" << 10239 << 1 << -1;
    QTest::newRow("highest SM") << "SM511"
                                << "SM" << 511 << 1 << -1;
    QTest::newRow("highest S") << "S1023"
                               << "S" << 1023 << 1 << -1;
    QTest::newRow("highest T") << "T255"
                               << "T" << 255 << 1 << -1;
    QTest::newRow("highest C") << "C255"
                               << "C" << 255 << 1 << -1;
    QTest::newRow("highest SD") << "SD511"
                                << "SD" << 511 << 1 << -1;
    QTest::newRow("highest CV") << "CV199"
                                << "CV" << 199 << 1 << -1;
    QTest::newRow("highest TV") << "TV255"
                                << "TV" << 255 << 1 << -1;
    QTest::newRow("highest Z") << "Z15"
                               << "Z" << 15 << 1 << -1;
}

void AddressTextTest::anAddressIsRead()
{
    QFETCH(QString, typed);
    AddressRange range;
    QString error;
    QVERIFY2(parseAddressRange(typed, &range, &error), qPrintable(error));
    QVERIFY(range.type);
    QTEST(QString::fromLatin1(range.type->name), "type");
    QTEST(range.address, "address");
    QTEST(range.values, "values");
    QTEST(range.station, "station");
}

void AddressTextTest::aWrongAddressIsRefusedInOneLine_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("error");
    const char* const notAnAddress = ": not an address; write TYPENUMBER[:COUNT][@STATION] "
                                     "without spaces, such as D100:4, X17 or 32CV200@2";
    const char* const unknown = "; the types are X, Y, M, SM, S, T, C, D, SD, CV, 32CV, TV, Z";
    const auto row = [](const char* name, const char* typed, const QString& error) {
        QTest::newRow(name) << text(typed) << error;
    };
    row("nothing", "", text(notAnAddress));
    row("no type", "100", text("100") + text(notAnAddress));
    row("a space in front", " D100", text(" D100") + text(notAnAddress));
    row("a lower-case type", "d100", text("d100: unknown register type 'd'") + text(unknown));
    row("a type that is not", "Q5", text("Q5: unknown register type 'Q'") + text(unknown));
    row("digits before a word type", "32D5",
        text("32D5: unknown register type '32D'") + text(unknown));
    row("no number", "D", "D: '' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a letter in the number", "D1x",
        "D1x: '1x' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a space in the middle", "D 5",
        "D 5: ' 5' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a line end", "D5\n",
        "D5\\n: '5\\n' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    const QString zero = QChar(0);
    const auto withZero = [&](const char* name, const QString& typed, const QString& error) {
        QTest::newRow(name) << typed << typed + error;
    };
    withZero("a zero character behind the number", "D5" + zero,
             ": '5" + zero + "' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    withZero("digits behind a zero character", "X5" + zero + "1",
             ": '5" + zero + "1' is not an octal number; the addresses are X0 to X377 (octal)");
    withZero("a zero character in the count", "D5:2" + zero, ": the count must be 1 or more");
    withZero("a zero character in the station", "D5@2" + zero, ": the station must be 1 to 247");
    row("a plus sign", "D+5",
        "D+5: '+5' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a minus sign", "CV-1",
        "CV-1: '-1' is not a decimal number; the addresses are CV0 to CV199 (decimal)");
    row("full-width digits", "D\uFF11\uFF10\uFF10",
        "D\uFF11\uFF10\uFF10: '\uFF11\uFF10\uFF10' is not a decimal number; the addresses are D0 "
        "to "
        "D7999 (decimal)");
    row("Arabic digits", "D\u0665",
        "D\u0665: '\u0665' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a full-width type", "\uFF24100", text("\uFF24100") + text(notAnAddress));
    row("a tab", "D\t5",
        "D\t5: '\t5' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a hexadecimal number", "D0x10",
        "D0x10: '0x10' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a hexadecimal octal number", "X0x1",
        "X0x1: '0x1' is not an octal number; the addresses are X0 to X377 (octal)");
    row("a fraction", "D1.5",
        "D1.5: '1.5' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a plus sign in the count", "D1:+2", "D1:+2: the count must be 1 or more");
    row("full-width digits in the count", "D1:\uFF12", "D1:\uFF12: the count must be 1 or more");
    row("a hexadecimal count", "D1:0x2", "D1:0x2: the count must be 1 or more");
    row("a tab in the station", "D1@\t2", "D1@\t2: the station must be 1 to 247");
    row("a plus sign in the station", "D1@+2", "D1@+2: the station must be 1 to 247");
    row("full-width digits in the station", "D1@\uFF12", "D1@\uFF12: the station must be 1 to 247");
    row("a station larger than an int", "D1@4294967297",
        "D1@4294967297: the station must be 1 to 247");
    row("an octal digit 8", "X8",
        "X8: '8' is not an octal number; the addresses are X0 to X377 (octal)");
    row("an octal digit 9", "Y19",
        "Y19: '19' is not an octal number; the addresses are Y0 to Y377 (octal)");
    row("past the last word", "D8000",
        "D8000: out of range; the addresses are D0 to D7999 (decimal)");
    row("past the last input", "X400", "X400: out of range; the addresses are X0 to X377 (octal)");
    row("below the first 32-bit counter", "32CV199",
        "32CV199: out of range; the addresses are 32CV200 to 32CV255 (decimal)");
    row("past the last 32-bit counter", "32CV256",
        "32CV256: out of range; the addresses are 32CV200 to 32CV255 (decimal)");
    row("larger than an int", "D99999999999",
        "D99999999999: out of range; the addresses are D0 to D7999 (decimal)");
    row("a count of nothing", "D100:", "D100:: the count must be 1 or more");
    row("a count of 0", "D100:0", "D100:0: the count must be 1 or more");
    row("a negative count", "D100:-4", "D100:-4: the count must be 1 or more");
    row("a count with a space", "D100: 4", "D100: 4: the count must be 1 or more");
    row("a count past the end", "D7999:2",
        "D7999:2: 2 values run past the last address; the addresses are D0 to D7999 (decimal)");
    row("a count of counters past the end", "32CV255:2",
        "32CV255:2: 2 values run past the last address; the addresses are 32CV200 to 32CV255 "
        "(decimal)");
    row("a count larger than an int", "D0:99999999999",
        "D0:99999999999: 99999999999 values run past the last address; the addresses are D0 to "
        "D7999 (decimal)");
    row("no station", "D1@", "D1@: the station must be 1 to 247");
    row("the broadcast station", "D1@0", "D1@0: the station must be 1 to 247");
    row("past the last station", "D1@248", "D1@248: the station must be 1 to 247");
    row("a station in letters", "D1@a", "D1@a: the station must be 1 to 247");
    row("a line end after the station", "D1@2\n", "D1@2\\n: the station must be 1 to 247");
    row("two stations", "D1@2@3", "D1@2@3: the station must be 1 to 247");
    row("a per cent sign", "D1@%2", "D1@%2: the station must be 1 to 247");
}

void AddressTextTest::aWrongAddressIsRefusedInOneLine()
{
    QFETCH(QString, typed);
    AddressRange range;
    QString error;
    QVERIFY(!parseAddressRange(typed, &range, &error));
    QTEST(error, "error");
}

void AddressTextTest::anEmbeddedNulIsNoDigit_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("in front") << QString(1, QChar(0)) + text("D5");
    QTest::newRow("behind the type") << text("D") + QChar(0) + text("5");
    QTest::newRow("behind the number") << text("D5") + QChar(0);
    QTest::newRow("and text behind it") << text("D5") + QChar(0) + text("abc");
    QTest::newRow("in the count") << text("D5:1") + QChar(0);
    QTest::newRow("in the station") << text("D5@1") + QChar(0);
}

void AddressTextTest::anEmbeddedNulIsNoDigit()
{
    QFETCH(QString, typed);
    AddressRange range;
    QString error;
    QVERIFY(!parseAddressRange(typed, &range, &error));
    QVERIFY2(error.startsWith(typed + text(": ")), qPrintable(error));
}

void AddressTextTest::theDriverCountsTwoRegistersPer32BitCounter()
{
    AddressRange range;
    QString error;
    QVERIFY(parseAddressRange(text("32CV200:3"), &range, &error));
    QCOMPARE(range.driverCount(), 6);
    QVERIFY(parseAddressRange(text("D200:3"), &range, &error));
    QCOMPARE(range.driverCount(), 3);
    QVERIFY(parseAddressRange(text("M200:3"), &range, &error));
    QCOMPARE(range.driverCount(), 3);
}

void AddressTextTest::anAddressIsWrittenInItsOwnRadix_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<QString>("written");
    QTest::newRow("octal input") << "X" << 15 << "X17";
    QTest::newRow("octal output") << "Y" << 255 << "Y377";
    QTest::newRow("decimal") << "D" << 15 << "D15";
    QTest::newRow("counter") << "32CV" << 200 << "32CV200";
}

void AddressTextTest::anAddressIsWrittenInItsOwnRadix()
{
    QFETCH(QString, type);
    QFETCH(int, address);
    QTEST(addressText(findRegisterType(type), address), "written");
}

QTEST_APPLESS_MAIN(AddressTextTest)
#include "tst_address_text.moc"
