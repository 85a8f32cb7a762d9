// How long characters take.

#include "kxsim/timing/pace.h"

#include <QtTest/QTest>

using kxsim::Moment;
using kxsim::Pace;
using kxsim::parsePace;

class PaceTest : public QObject
{
    Q_OBJECT

private slots:
    void charactersTakeTheirTime_data();
    void charactersTakeTheirTime();
    void withoutABaudRateTheyTakeNone();
    void aWrongOneIsRefused_data();
    void aWrongOneIsRefused();
};

void PaceTest::charactersTakeTheirTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("characters");
    QTest::addColumn<qint64>("expected"); // nanoseconds
    QTest::newRow("10 bits at 9600") << "9600" << 1 << qint64(1041666);
    QTest::newRow("rounded once for all") << "9600" << 3 << qint64(3125000);
    QTest::newRow("no parity, one stop bit") << "19200,8N1" << 96 << qint64(50000000);
    QTest::newRow("even parity, one stop bit") << "19200,8E1" << 96 << qint64(55000000);
    QTest::newRow("odd parity, one stop bit") << "19200,8o1" << 96 << qint64(55000000);
    QTest::newRow("no parity, two stop bits") << "19200,8n2" << 96 << qint64(55000000);
    QTest::newRow("even parity, two stop bits") << "19200,8E2" << 96 << qint64(60000000);
    QTest::newRow("a rate that no table has") << "187500" << 3 << qint64(160000);
    QTest::newRow("the slowest") << "50" << 256 << qint64(51200000000);
    QTest::newRow("the fastest") << "4000000" << 2 << qint64(5000);
}

void PaceTest::charactersTakeTheirTime()
{
    QFETCH(QString, text);
    QFETCH(int, characters);
    Pace pace;
    QString error;
    QVERIFY2(parsePace(text, &pace, &error), qPrintable(error));
    QTEST(qint64(pace.timeOf(characters).count()), "expected");
}

void PaceTest::withoutABaudRateTheyTakeNone()
{
    QCOMPARE(Pace().timeOf(256).count(), Moment::rep(0));
}

void PaceTest::aWrongOneIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("no number") << "fast";
    QTest::newRow("too slow") << "49";
    QTest::newRow("too fast") << "4000001";
    QTest::newRow("7 data bits") << "9600,7E1";
    QTest::newRow("mark parity") << "9600,8M1";
    QTest::newRow("3 stop bits") << "9600,8N3";
    QTest::newRow("a format left empty") << "9600,";
    QTest::newRow("a unit") << "9600bd";
}

void PaceTest::aWrongOneIsRefused()
{
    QFETCH(QString, text);
    Pace pace;
    QString error;
    QVERIFY(!parsePace(text, &pace, &error));
    QCOMPARE(error, QStringLiteral("--pace %1: write bits per second, 50 to 4000000, and if need "
                                   "be the format of a character: 9600 or 19200,8E1")
                        .arg(text));
    QCOMPARE(pace.baud, 0);
}

QTEST_APPLESS_MAIN(PaceTest)

#include "tst_pace.moc"
