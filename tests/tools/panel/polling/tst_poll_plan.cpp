#include "panel/polling/poll_plan.h"

#include "tools/panel/plan/range_texts.h"

#include <QtTest/QTest>

using namespace kx;

class PollPlanTest : public QObject
{
    Q_OBJECT

private slots:
    void rangesOfOneIntervalShareRequests_data();
    void rangesOfOneIntervalShareRequests();
    void theDriverMayJoinRegisters();
    void theDriverIsGivenNoValueBeyondItsLimit();
};

namespace
{

/// Of "D0:4@1 D9@1/500".
QList<PolledRange> polledRanges(const QString& texts)
{
    QList<PolledRange> ranges;
    for (const QString& text : texts.split(QLatin1Char(' '))) {
        const QStringList parts = text.split(QLatin1Char('/'));
        ranges << PolledRange{rangesOf(parts.first()).first(), parts.value(1).toInt()};
    }
    return ranges;
}

QString textOf(const QList<PolledRange>& polls)
{
    QStringList texts;
    for (const PolledRange& poll : polls)
        texts << textOfRanges({poll.range})
                     + (poll.interval == 0 ? QString() : QStringLiteral("/%1").arg(poll.interval));
    return texts.join(QLatin1Char(' '));
}

} // namespace

void PollPlanTest::rangesOfOneIntervalShareRequests_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QString>("polls");
    QTest::newRow("without intervals") << "D5@1 D0@1 M0@1"
                                       << "M0:1@1 D0:6@1";
    QTest::newRow("two intervals apart") << "D0@1 D1@1/500 D2@1/500"
                                         << "D0:1@1 D1:2@1/500";
    QTest::newRow("what is read anyway is not read again") << "D0@1 D9@1 D5@1/500 D10@1/500"
                                                           << "D0:10@1 D10:1@1/500";
    QTest::newRow("the shorter interval counts") << "D0@1/500 D0@1/200 D0:2@1/1000"
                                                 << "D0:1@1/200 D1:1@1/1000";
    QTest::newRow("a value of which a part is read anyway") << "D1@1 D0x2@1/500 D1x2@1/900"
                                                            << "D1:1@1 D0:2@1/500 D1:2@1/900";
    QTest::newRow("a value that is read anyway") << "D0:4@1 D1x2@1/500"
                                                 << "D0:4@1";
}

void PollPlanTest::rangesOfOneIntervalShareRequests()
{
    QFETCH(QString, ranges);
    QTEST(textOf(plannedPolls(polledRanges(ranges), ReadRules(), RegisterPlanner())), "polls");
}

void PollPlanTest::theDriverMayJoinRegisters()
{
    const RegisterPlanner registers = [](const QList<AddressRange>& ranges) {
        return rangesOf(ranges.size() == 2 ? QStringLiteral("D0:100@1") : QStringLiteral("D7@1"));
    };
    QCOMPARE(textOf(plannedPolls(polledRanges(QStringLiteral("D0@1 D99@1 M0@1 M9@1 D500@1/70")),
                                 ReadRules(), registers)),
             QStringLiteral("M0:10@1 D0:100@1 D7:1@1/70"));
}

// It would halve D10 to D13, and join the rest.
void PollPlanTest::theDriverIsGivenNoValueBeyondItsLimit()
{
    QStringList given;
    const RegisterPlanner registers = [&given](const QList<AddressRange>& ranges) {
        given << textOfRanges(ranges);
        return ranges;
    };
    ReadRules rules;
    rules.usual.maxWords = 3;
    QCOMPARE(textOf(plannedPolls(polledRanges(QStringLiteral("D9@1 D10x4@1 D12@1 M0@1 D20x3@1")),
                                 rules, registers)),
             QStringLiteral("M0:1@1 D10:4@1 D9:1@1 D20:3@1"));
    QCOMPARE(given, QStringList{QStringLiteral("D9:1@1 D20:3@1")});
}

QTEST_APPLESS_MAIN(PollPlanTest)
#include "tst_poll_plan.moc"
