#include "kxpanel/line/cycle/cycle_marks.h"

#include "../../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

class CycleMarksTest : public QObject
{
    Q_OBJECT

private slots:
    void marks_data();
    void marks();
    void whatIsNoNewPoll();
};

void CycleMarksTest::marks_data()
{
    // Each letter is a poll of another address; a bar stands before one that begins a cycle.
    QTest::addColumn<QString>("expected");
    QTest::newRow("one request") << QString("|a|a|a");
    QTest::newRow("three in turn") << QString("|abc|abc|abc");
    QTest::newRow("one more often than the first") << QString("|abb|bc|b|b");
    QTest::newRow("another list") << QString("|ab|abcdcd|cd|cd");
}

void CycleMarksTest::marks()
{
    QFETCH(QString, expected);
    CycleMarks marks;
    QString marked;
    for (const QChar letter : expected) {
        if (letter == '|')
            continue;
        Exchange exchange = answeredPoll();
        exchange.range.address = letter.unicode();
        if (marks.begins(exchange))
            marked += '|';
        marked += letter;
    }
    QCOMPARE(marked, expected);
}

void CycleMarksTest::whatIsNoNewPoll()
{
    CycleMarks marks;
    QVERIFY(!marks.begins(refusedWrite()));
    Exchange repeated = answeredPoll();
    repeated.wasRepeated = true;
    QVERIFY(!marks.begins(repeated));
    Exchange without = answeredPoll();
    without.range.type = nullptr;
    QVERIFY(!marks.begins(without));
    QVERIFY(marks.begins(unansweredPoll()));
    Exchange longer = answeredPoll();
    longer.range.values = 3;
    QVERIFY(!marks.begins(longer)); // it is another request
    Exchange elsewhere = answeredPoll();
    elsewhere.range.station = 2;
    QVERIFY(!marks.begins(elsewhere));
    QVERIFY(marks.begins(answeredPoll()));
}

QTEST_GUILESS_MAIN(CycleMarksTest)

#include "tst_cycle_marks.moc"
