#include "kxpanel/line/limit/answer_pace.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

AnswerPace usual()
{
    AnswerPace pace;
    pace.turnarounds = {{1, 8000}, {2, 1000}};
    return pace;
}

} // namespace

Q_DECLARE_METATYPE(AnswerPace)

class AnswerPaceTest : public QObject
{
    Q_OBJECT

private slots:
    void farApart_data();
    void farApart();
};

void AnswerPaceTest::farApart_data()
{
    QTest::addColumn<AnswerPace>("other");
    QTest::addColumn<bool>("areFar");
    AnswerPace other = usual();
    QTest::newRow("the same") << other << false;
    other.turnarounds[1] = 10000;
    QTest::newRow("a quarter more") << other << false;
    other.turnarounds[1] = 10001;
    QTest::newRow("more than that") << other << true;
    other.turnarounds[1] = 5999;
    QTest::newRow("less") << other << true;
    other = usual();
    other.turnarounds[2] = 1500;
    QTest::newRow("much, but little time") << other << false;
    other.turnarounds[2] = 1501;
    QTest::newRow("more time") << other << true;
    other = usual();
    other.turnarounds.insert(3, 1000);
    QTest::newRow("another station") << other << true;
    other = usual();
    other.isNetwork = true;
    QTest::newRow("a network") << other << true;
    other = usual();
    other.line.parityBits = 1;
    QTest::newRow("other characters") << other << true;
    other = usual();
    other.replyTimeout = 300000;
    QTest::newRow("another time-out") << other << true;
    other = usual();
    other.shortened[1].maxWords = 16;
    QTest::newRow("one that refuses") << other << true;
    other = usual();
    other.perByte = 10;
    QTest::newRow("a little for each byte") << other << false;
    other.perByte = 11;
    QTest::newRow("more for each byte") << other << true;
    other = usual();
    other.each.insert(1, 3000);
    QTest::newRow("for each request") << other << true;
}

void AnswerPaceTest::farApart()
{
    QFETCH(AnswerPace, other);
    QTEST(areFarApart(usual(), other), "areFar");
    QCOMPARE(usual() == other, QString(QTest::currentDataTag()) == "the same");
}

QTEST_GUILESS_MAIN(AnswerPaceTest)

#include "tst_answer_pace.moc"
