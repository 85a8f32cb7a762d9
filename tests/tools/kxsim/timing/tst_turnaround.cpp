// How long simulated controllers think.

#include "kxsim/timing/turnaround.h"

#include <QtTest/QTest>

using kxsim::DurationRange;
using kxsim::Moment;
using kxsim::parseTurnaround;
using kxsim::Turnaround;
using std::chrono::microseconds;

class TurnaroundTest : public QObject
{
    Q_OBJECT

private slots:
    void theOptionIsRead_data();
    void theOptionIsRead();
    void aWrongOneIsRefused_data();
    void aWrongOneIsRefused();
    void aSingleTimeIsAlwaysThat();
    void aRangeIsDrawnFromTheSeed();
    void bothEndsOfARangeAreDrawn();
};

void TurnaroundTest::theOptionIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("from"); // microseconds
    QTest::addColumn<int>("to");
    QTest::newRow("a time") << "800us" << 800 << 800;
    QTest::newRow("a range") << "5..20ms" << 5000 << 20000;
    QTest::newRow("the longest") << "60s" << 60000000 << 60000000;
}

void TurnaroundTest::theOptionIsRead()
{
    QFETCH(QString, text);
    DurationRange range;
    QString error;
    QVERIFY2(parseTurnaround(text, &range, &error), qPrintable(error));
    QTEST(int(range.from.count()), "from");
    QTEST(int(range.to.count()), "to");
}

void TurnaroundTest::aWrongOneIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no unit")
        << "5"
        << "--turnaround 5: write a time such as 5ms or 800us, or a range such "
           "as 5..20ms";
    QTest::newRow("a range that ends before it begins")
        << "20..5ms"
        << "--turnaround 20..5ms: the range ends before it begins";
    QTest::newRow("too long") << "2min"
                              << "--turnaround 2min: 60s is the longest";
    QTest::newRow("a range that gets too long") << "1s..61s"
                                                << "--turnaround 1s..61s: 60s is the longest";
}

void TurnaroundTest::aWrongOneIsRefused()
{
    QFETCH(QString, text);
    DurationRange range;
    QString error;
    QVERIFY(!parseTurnaround(text, &range, &error));
    QTEST(error, "expected");
    QCOMPARE(range.to.count(), microseconds::rep(0));
}

void TurnaroundTest::aSingleTimeIsAlwaysThat()
{
    Turnaround turnaround({microseconds(800), microseconds(800)}, 1);
    for (int reply = 0; reply < 5; ++reply)
        QCOMPARE(turnaround.next().count(), Moment::rep(800000));
}

// The generator's first numbers for seed 1 are 1791095845, 4282876139 and 3093770124; the
// range has 15001 times.
void TurnaroundTest::aRangeIsDrawnFromTheSeed()
{
    Turnaround turnaround({microseconds(5000), microseconds(20000)}, 1);
    QCOMPARE(turnaround.next().count(), Moment::rep((5000 + 1791095845u % 15001) * 1000));
    QCOMPARE(turnaround.next().count(), Moment::rep((5000 + 4282876139u % 15001) * 1000));
    QCOMPARE(turnaround.next().count(), Moment::rep((5000 + 3093770124u % 15001) * 1000));
}

void TurnaroundTest::bothEndsOfARangeAreDrawn()
{
    Turnaround turnaround({microseconds(7), microseconds(9)}, 3);
    QSet<int> drawn;
    for (int reply = 0; reply < 200; ++reply)
        drawn << static_cast<int>(turnaround.next().count());
    QCOMPARE(drawn, QSet<int>({7000, 8000, 9000}));
}

QTEST_APPLESS_MAIN(TurnaroundTest)

#include "tst_turnaround.moc"
