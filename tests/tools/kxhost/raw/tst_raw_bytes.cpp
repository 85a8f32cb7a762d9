#include "kxhost/raw/raw_bytes.h"

#include <QtTest/QTest>

using namespace kx;

class RawBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void waysToWriteThem_data();
    void waysToWriteThem();
    void whatIsNoByte_data();
    void whatIsNoByte();
};

void RawBytesTest::waysToWriteThem_data()
{
    QTest::addColumn<QStringList>("words");
    const auto row = [](const char* name, const char* arguments) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split('|');
    };
    row("an argument for each", "01|03|00|64|00|0a");
    row("in one argument", "01 03  00 64 00 0A ");
    row("without blanks", "01030064000A");
    row("with commas", "01,03,00,64,00,0a");
    row("commas and blanks", "01, 03, 00, 64, 00, 0A");
    row("with 0x", "0x01|0X03|0x00,0x64|0x000A");
    row("without zeros in front", "1|3|0|64|0|a");
    row("on several lines", "01 03\n00 64\t00 0A");
}

void RawBytesTest::waysToWriteThem()
{
    QFETCH(QStringList, words);
    QByteArray bytes;
    QString error;
    QVERIFY2(parseRawBytes(words, &bytes, &error), qPrintable(error));
    QCOMPARE(bytes.toHex(' '), QByteArray("01 03 00 64 00 0a"));
}

void RawBytesTest::whatIsNoByte_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("error");
    const auto wrong = [](const char* name, const char* words, const char* part) {
        QTest::newRow(name) << QString::fromLatin1(words)
                            << QString::fromLatin1(part)
                                   + ": must be bytes in hexadecimal, such as 01 03 00 00 00 01";
    };
    const QString none = "nothing to send; name bytes such as 01 03 00 00 00 01";
    QTest::newRow("nothing") << "" << none;
    QTest::newRow("blanks and commas") << " , ," << none;
    wrong("half a byte", "01 030", "030");
    wrong("other digits", "01 0G", "0G");
    wrong("a prefix alone", "0x", "0x");
    wrong("a sign", "01 -3", "-3");
    wrong("a prefix twice", "0x0x01", "0x0x01");
}

void RawBytesTest::whatIsNoByte()
{
    QFETCH(QString, words);
    QByteArray bytes;
    QString error;
    QVERIFY(!parseRawBytes({words}, &bytes, &error));
    QTEST(error, "error");
}

QTEST_APPLESS_MAIN(RawBytesTest)
#include "tst_raw_bytes.moc"
