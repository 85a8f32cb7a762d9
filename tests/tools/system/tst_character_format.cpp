#include "system/character_format.h"

#include <QtTest/QTest>

using namespace kx;

class CharacterFormatTest : public QObject
{
    Q_OBJECT

private slots:
    void parities_data();
    void parities();
    void refusals_data();
    void refusals();
    void dataBits();
};

void CharacterFormatTest::parities_data()
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

void CharacterFormatTest::parities()
{
    QFETCH(char, parity);
    char read = '?';
    QString error;
    QVERIFY(parseParity(QString::fromLatin1(QTest::currentDataTag()), &read, &error));
    QCOMPARE(read, parity);
    QCOMPARE(error, QString());
}

void CharacterFormatTest::refusals_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("another parity") << QStringLiteral("Mark");
    QTest::newRow("a beginning of two letters") << QStringLiteral("ev");
    QTest::newRow("a space behind") << QStringLiteral("even ");
    QTest::newRow("empty") << QString();
}

void CharacterFormatTest::refusals()
{
    QFETCH(QString, typed);
    char read = '?';
    QString error;
    QVERIFY(!parseParity(typed, &read, &error));
    QCOMPARE(read, '?');
    QCOMPARE(error, QStringLiteral("--parity %1: must be none, even or odd").arg(typed));
}

void CharacterFormatTest::dataBits()
{
    QString error;
    QVERIFY(parseDataBits(QStringLiteral("8"), &error));
    QCOMPARE(error, QString());
    for (const char* const typed : {"7", "08", "9", "", "eight"}) {
        QVERIFY(!parseDataBits(QString::fromLatin1(typed), &error));
        QCOMPARE(error, QStringLiteral("--data-bits %1: Modbus RTU needs 8 data bits")
                            .arg(QLatin1String(typed)));
    }
}

QTEST_GUILESS_MAIN(CharacterFormatTest)
#include "tst_character_format.moc"
