#include "kxpanel/frames/frame_filter.h"

#include "../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

class FrameFilterTest : public QObject
{
    Q_OBJECT

private slots:
    void lets_data();
    void lets();
};

Q_DECLARE_METATYPE(kxpanel::FrameFilter)

void FrameFilterTest::lets_data()
{
    QTest::addColumn<FrameFilter>("filter");
    QTest::addColumn<bool>("answered"); // a poll of D100 at station 1
    QTest::addColumn<bool>("unanswered");
    QTest::addColumn<bool>("refused"); // a write of Y10 at station 2
    const auto of = [](int station, JobKind kind) {
        FrameFilter filter;
        filter.station = station;
        filter.kind = kind;
        return filter;
    };
    const auto verdicts = [](const QVector<ExchangeVerdict>& wanted) {
        FrameFilter filter;
        filter.verdicts = wanted;
        return filter;
    };
    const auto text = [](const char* wanted) {
        FrameFilter filter;
        filter.text = QString(wanted);
        return filter;
    };
    QTest::newRow("all") << FrameFilter() << true << true << true;
    QTest::newRow("a station") << of(2, NO_JOB) << false << false << true;
    QTest::newRow("a type") << of(-1, CYCLIC_READ_JOB) << true << true << false;
    QTest::newRow("accepted") << verdicts({ExchangeVerdict::Accepted}) << true << false << false;
    QTest::newRow("not accepted") << verdicts({ExchangeVerdict::Repeated, ExchangeVerdict::Failed})
                                  << false << true << true;
    QTest::newRow("failed") << verdicts({ExchangeVerdict::Failed}) << false << false << true;
    QTest::newRow("an address") << text("y10") << false << false << true;
    QTest::newRow("a word") << text("read") << true << true << false;
    QTest::newRow("station and type that no exchange has both")
        << of(1, WRITE_JOB) << false << false << false;
}

void FrameFilterTest::lets()
{
    QFETCH(FrameFilter, filter);
    QTEST(filter.lets(answeredPoll()), "answered");
    QTEST(filter.lets(unansweredPoll()), "unanswered");
    QTEST(filter.lets(refusedWrite()), "refused");
}

QTEST_GUILESS_MAIN(FrameFilterTest)

#include "tst_frame_filter.moc"
