// Stations that die and come back by schedule.

#include "kxsim/faults/outage.h"

#include <QtTest/QTest>

using kxsim::isDown;
using kxsim::Moment;
using kxsim::Outage;
using kxsim::parseOutage;
using std::chrono::microseconds;

class OutageTest : public QObject
{
    Q_OBJECT

private slots:
    void aStationIsDownAtTheseTimes_data();
    void aStationIsDownAtTheseTimes();
    void outagesAddUp();
    void aWrongTextIsRefused_data();
    void aWrongTextIsRefused();
};

void OutageTest::aStationIsDownAtTheseTimes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("now"); // microseconds
    QTest::addColumn<bool>("expected");
    const struct {
        const char* situation;
        const char* text;
        qint64 now;
        bool isDown;
    } rows[] = {
        {"before", "3@10s..30s", 9999999, false},
        {"the first moment", "3@10s..30s", 10000000, true},
        {"the last moment", "3@10s..30s", 29999999, true},
        {"back again", "3@10s..30s", 30000000, false},
        {"once only", "3@10s..30s", 75000000, false},
        {"from the start", "3@0s..1ms", 0, true},
        {"one unit for both", "3@10..30s", 20000000, true},
        {"alive before it dies for good", "3@10s..", 9999999, false},
        {"dead for good", "3@10s..", qint64(86400) * 1000000 * 365, true},
        {"another station", "4@10s..30s", 20000000, false},
        {"each minute, before", "3@10s..30s/1min", 69999999, false},
        {"each minute, the first moment", "3@10s..30s/1min", 70000000, true},
        {"each minute, back again", "3@10s..30s/1min", 90000000, false},
        {"each minute, an hour later", "3@10s..30s/1min", 3600000000 + 15000000, true},
        {"up to the period's end", "3@10s..60s/60s", 119999999, true},
        {"then it begins anew", "3@10s..60s/60s", 120000000, false},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << row.text << row.now << row.isDown;
}

void OutageTest::aStationIsDownAtTheseTimes()
{
    QFETCH(QString, text);
    QFETCH(qint64, now);
    Outage outage;
    QString error;
    QVERIFY2(parseOutage(text, &outage, &error), qPrintable(error));
    QTEST(isDown({outage}, 3, microseconds(now)), "expected");
}

void OutageTest::outagesAddUp()
{
    Outage first;
    Outage second;
    QString error;
    QVERIFY2(parseOutage("3@1s..2s", &first, &error), qPrintable(error));
    QVERIFY2(parseOutage("3@5s..6s", &second, &error), qPrintable(error));
    const QList<Outage> outages = {first, second};
    QVERIFY(isDown(outages, 3, std::chrono::milliseconds(1500)));
    QVERIFY(!isDown(outages, 3, std::chrono::milliseconds(3000)));
    QVERIFY(isDown(outages, 3, std::chrono::milliseconds(5500)));
    QVERIFY(!isDown({}, 3, Moment(0)));
}

void OutageTest::aWrongTextIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault"); // behind "--down TEXT: "
    const QString form = QStringLiteral("write STATION@FROM..TO, such as 3@10s..30s, 3@10s.. for "
                                        "good, or 3@10s..30s/60s for each minute");
    QTest::newRow("empty") << "" << form;
    QTest::newRow("a station alone") << "3" << form;
    QTest::newRow("one time") << "3@10s" << form;
    QTest::newRow("no units") << "3@10..30" << form;
    QTest::newRow("no station") << "@10s..30s" << form;
    QTest::newRow("an empty period") << "3@10s..30s/" << form;
    QTest::newRow("a period without unit") << "3@10s..30s/60" << form;
    QTest::newRow("two periods") << "3@10s..30s/60s/60s" << form;
    QTest::newRow("no beginning") << "3@..30s" << form;
    QTest::newRow("station 0") << "0@10s..30s"
                               << "the station must be 1 to 247";
    QTest::newRow("station 248") << "248@10s..30s"
                                 << "the station must be 1 to 247";
    QTest::newRow("backwards") << "3@30s..10s"
                               << "it ends before it begins";
    QTest::newRow("no time at all") << "3@30s..30s"
                                    << "it ends before it begins";
    QTest::newRow("longer than its period") << "3@10s..61s/60s"
                                            << "it ends behind its period";
    QTest::newRow("for good in a period") << "3@10s../60s"
                                          << "it ends behind its period";
    QTest::newRow("a period of nothing") << "3@10s..30s/0s"
                                         << "it ends behind its period";
}

void OutageTest::aWrongTextIsRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    Outage outage;
    QString error;
    QVERIFY(!parseOutage(text, &outage, &error));
    QCOMPARE(error, QStringLiteral("--down %1: %2").arg(text, fault));
    QCOMPARE(outage.station, 0);
}

QTEST_APPLESS_MAIN(OutageTest)

#include "tst_outage.moc"
