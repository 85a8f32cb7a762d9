#include "registers/checked_address.h"

#include <QtTest/QTest>

namespace
{

const QStringList BIT_TYPES = {"X", "Y", "M", "SM", "S", "T", "C"};
const QStringList WORD_TYPES = {"D", "SD", "CV", "32CV", "TV", "Z"};

} // namespace

class AddressCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void ranges_data();
    void ranges();
    void bitAndWordTypes();
    void tagsByKind_data();
    void tagsByKind();
    void tagsByDataType_data();
    void tagsByDataType();
};

// Both checks test the same ranges: for an address as a tag of the type's own
// kind, with a data type that 32CV takes.
void AddressCheckTest::ranges_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("address");
    const auto row = [](const QString& type, const QString& text, int length, int result,
                        int address) {
        const QString name = QString("%1 '%2' length %3").arg(type, text).arg(length);
        QTest::newRow(qPrintable(name)) << type << text << length << result << address;
    };
    for (const char* type : {"X", "Y"}) {
        row(type, "0", 1, 0, 0);
        row(type, "377", 1, 0, 255);
        row(type, "377", 2, 2, 255);
        row(type, "400", 1, 2, 256);
        row(type, "8", 1, 4, 0);
        row(type, "19", 1, 4, 0);
        row(type, "10", 1, 0, 8);
        row(type, "0", 256, 0, 0);
        row(type, "0", 257, 2, 0);
        row(type, "-1", 1, 2, -1);
    }
    const struct {
        const char* type;
        int lowest;
        int limit;
    } decimals[] = {{"T", 0, 256},   {"C", 0, 256},  {"TV", 0, 256}, {"SM", 0, 512},
                    {"SD", 0, 512},  {"S", 0, 1024}, {"CV", 0, 200}, {"32CV", 200, 257},
                    {"M", 0, 10240}, {"D", 0, 8000}, {"Z", 0, 16}};
    for (const auto& type : decimals) {
        const QString lowest = QString::number(type.lowest);
        row(type.type, lowest, 1, 0, type.lowest);
        row(type.type, QString::number(type.lowest - 1), 1, 2, type.lowest - 1);
        row(type.type, lowest, type.limit - type.lowest, 0, type.lowest);
        row(type.type, lowest, type.limit - type.lowest + 1, 2, type.lowest);
        row(type.type, QString::number(type.limit - 1), 1, 0, type.limit - 1);
        row(type.type, QString::number(type.limit - 1), 2, 2, type.limit - 1);
        row(type.type, QString::number(type.limit), 0, 0, type.limit);
        row(type.type, QString::number(type.limit), 1, 2, type.limit);
    }
    row("D", "7999", 1, 0, 7999);
    row("D", "7999", 2, 2, 7999);
    row("32CV", "199", 2, 2, 199);
    row("32CV", "255", 2, 0, 255);
    row("32CV", "255", 3, 2, 255);
    row("CV", "-1", 1, 2, -1);
    row("M", "10240", 0, 0, 10240);
    row("M", "10250", -10, 0, 10250);
    row("M", "10251", -10, 2, 10251);
    row("M", "-1", -5, 2, -1);
    // A length near the edge of int must not wrap into the range.
    row("D", "1", HIGHEST_INT, 2, 1);
    row("D", "2147483647", 1, 2, 2147483647);
    row("D", "2147483648", 1, 4, 0);
    row("D", "", 1, 4, 0);
    row("D", "abc", 1, 4, 0);
    row("D", "1a", 1, 4, 0);
    row("D", "1.5", 1, 4, 0);
    row("D", "0x10", 1, 4, 0);
    row("D", "D10", 1, 4, 0);
    row("D", "0010", 1, 0, 10);
    row("D", "+5", 1, 0, 5);
    row("Q", "1", 1, 3, UNTOUCHED);
    row("Q", "abc", 1, 3, UNTOUCHED);
    row("d", "1", 1, 3, UNTOUCHED);
    row("", "1", 1, 3, UNTOUCHED);
}

void AddressCheckTest::ranges()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(int, length);
    QFETCH(int, result);
    QFETCH(int, address);
    const bool isBit = BIT_TYPES.contains(type);
    const Checked byKind = validity(type, text, length, isBit ? 0 : 1);
    QCOMPARE(byKind.result, result);
    QCOMPARE(byKind.address, address);
    const Checked byDataType = check(type, text, isBit ? BIT_TAG : 3, length, 0);
    QCOMPARE(byDataType.result, result);
    QCOMPARE(byDataType.address, address);
}

void AddressCheckTest::bitAndWordTypes()
{
    for (const QString& type : BIT_TYPES) {
        for (const int wordTag : {1, -1, 2})
            QCOMPARE(validity(type, "1", 1, wordTag).result, 1);
        for (const int wordDataType : {0, 1, 3, -2})
            QCOMPARE(check(type, "1", wordDataType, 1, 0).result, 1);
    }
    for (const QString& type : WORD_TYPES) {
        QCOMPARE(validity(type, "200", 1, 0).result, 1);
        QCOMPARE(check(type, "200", BIT_TAG, 1, 0).result, 1);
    }
}

void AddressCheckTest::tagsByKind_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("isWord");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("address");
    QTest::newRow("bit type for a word tag") << "X"
                                             << "10" << 1 << 1 << UNTOUCHED;
    QTest::newRow("word type for a bit tag") << "Z"
                                             << "1" << 0 << 1 << UNTOUCHED;
    QTest::newRow("any nonzero value means word") << "D"
                                                  << "7" << -3 << 0 << 7;
    QTest::newRow("kind before malformed text") << "X"
                                                << "9" << 1 << 1 << UNTOUCHED;
    QTest::newRow("kind before range") << "D"
                                       << "8000" << 0 << 1 << UNTOUCHED;
    QTest::newRow("an unknown type suits a word tag") << "Q"
                                                      << "abc" << 1 << 3 << UNTOUCHED;
    QTest::newRow("an unknown type suits a bit tag") << "Q"
                                                     << "abc" << 0 << 3 << UNTOUCHED;
}

void AddressCheckTest::tagsByKind()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(int, isWord);
    QFETCH(int, result);
    QFETCH(int, address);
    const Checked checked = validity(type, text, 1, isWord);
    QCOMPARE(checked.result, result);
    QCOMPARE(checked.address, address);
}

void AddressCheckTest::tagsByDataType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("dataType");
    QTest::addColumn<int>("access");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("address");
    const auto row = [](const char* name, const char* type, const char* text, int dataType,
                        int access, int result, int address) {
        QTest::newRow(name) << type << text << dataType << access << result << address;
    };
    row("X, access 0", "X", "7", BIT_TAG, 0, 0, 7);
    row("X, access 1", "X", "0", BIT_TAG, 1, 6, UNTOUCHED);
    row("X, access 2", "X", "0", BIT_TAG, 2, 6, UNTOUCHED);
    row("X, access 3", "X", "7", BIT_TAG, 3, 0, 7);
    row("X, access -1", "X", "7", BIT_TAG, -1, 0, 7);
    row("Y, access 1", "Y", "0", BIT_TAG, 1, 0, 0);
    row("Y, access 2", "Y", "0", BIT_TAG, 2, 0, 0);
    row("D, access 1", "D", "0", 2, 1, 0, 0);
    row("kind before access", "X", "0", 1, 1, 1, UNTOUCHED);
    row("access before malformed text", "X", "9", BIT_TAG, 1, 6, UNTOUCHED);
    row("malformed text", "X", "9", BIT_TAG, 0, 4, 0);
    for (const int allowed : {1, 3, 5, 6, 9}) {
        const QByteArray name = "32CV, data type " + QByteArray::number(allowed);
        row(name.constData(), "32CV", "200", allowed, 0, 0, 200);
    }
    for (const int refused : {-2, 0, 2, 4, 7, 8, 10, 11, 13}) {
        const QByteArray name = "32CV, data type " + QByteArray::number(refused);
        row(name.constData(), "32CV", "200", refused, 0, 5, UNTOUCHED);
    }
    row("kind before data type", "32CV", "200", BIT_TAG, 0, 1, UNTOUCHED);
    row("data type before malformed text", "32CV", "abc", 2, 0, 5, UNTOUCHED);
    row("data type before range", "32CV", "0", 2, 1, 5, UNTOUCHED);
    row("D takes every data type", "D", "5", 2, 0, 0, 5);
    row("CV takes every data type", "CV", "5", 4, 0, 0, 5);
    row("an unknown type suits a bit tag", "Q", "abc", BIT_TAG, 1, 3, UNTOUCHED);
    row("an unknown type suits a word tag", "Q", "abc", 2, 1, 3, UNTOUCHED);
}

void AddressCheckTest::tagsByDataType()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(int, dataType);
    QFETCH(int, access);
    QFETCH(int, result);
    QFETCH(int, address);
    const Checked checked = check(type, text, dataType, 1, access);
    QCOMPARE(checked.result, result);
    QCOMPARE(checked.address, address);
}

QTEST_APPLESS_MAIN(AddressCheckTest)
#include "tst_address_check.moc"
