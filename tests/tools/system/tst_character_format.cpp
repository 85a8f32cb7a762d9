#include "system/character_format.h"

#include <QtTest/QTest>

using namespace kx;

class TestCharacterFormat : public QObject
{
    Q_OBJECT

private slots:
    void parities_data();
    void parities();
    void refusals_data();
    void refusals();
    void dataBits();
};

void TestCharacterFormat::parities_data()
{
    QTest::addColumn<char>("parity");
    QTest::newRow("none") << 'N';
    QTest::newRow("even") << 'E';
    QTest::newRow("odd") << 'O';
    QTest::newRow("Even") << 'E';
    QTest::newRow("ODD") << 'O';
    QTest::newRow("n") << 'N';
    QTest::newRow("e") << 'E';
    QTest::newRow("O") << 'O';
}

void TestCharacterFormat::parities()
{
    QFETCH(char, parity);
    char read = '?';
    QString error;
    QVERIFY(readParity(QString::fromLatin1(QTest::currentDataTag()), &read, &error));
    QCOMPARE(read, parity);
    QCOMPARE(error, QString());
}

void TestCharacterFormat::refusals_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("another parity") << QStringLiteral("Mark");
    QTest::newRow("a beginning of two letters") << QStringLiteral("ev");
    QTest::newRow("a space behind") << QStringLiteral("even ");
    QTest::newRow("empty") << QString();
}

void TestCharacterFormat::refusals()
{
    QFETCH(QString, typed);
    char read = '?';
    QString error;
    QVERIFY(!readParity(typed, &read, &error));
    QCOMPARE(read, '?');
    QCOMPARE(error, QStringLiteral("--parity %1: must be none, even or odd").arg(typed));
}

void TestCharacterFormat::dataBits()
{
    QString error;
    QVERIFY(checkDataBits(QStringLiteral("8"), &error));
    QCOMPARE(error, QString());
    for (const char* const typed : {"7", "08", "9", "", "eight"}) {
        QVERIFY(!checkDataBits(QString::fromLatin1(typed), &error));
        QCOMPARE(error, QStringLiteral("--data-bits %1: Modbus RTU needs 8 data bits")
                            .arg(QLatin1String(typed)));
    }
}

QTEST_GUILESS_MAIN(TestCharacterFormat)
#include "tst_character_format.moc"
