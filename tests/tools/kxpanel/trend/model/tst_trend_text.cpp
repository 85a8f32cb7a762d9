#include "kxpanel/trend/model/trend_text.h"

#include <QtCore/QDateTime>
#include <QtTest/QTest>

#include <ctime>

using kxpanel::TrendView;

namespace
{

/// Local time elsewhere, while it is there.
class ZoneOf
{
public:
    explicit ZoneOf(const QByteArray& zone) : m_usual(qgetenv("TZ")) { take(zone); }
    ~ZoneOf() { take(m_usual); }
    Q_DISABLE_COPY(ZoneOf)

private:
    static void take(const QByteArray& zone)
    {
        qputenv("TZ", zone);
        tzset();
    }

    QByteArray m_usual;
};

} // namespace

class TrendTextTest : public QObject
{
    Q_OBJECT

public:
    /// Central Europe, without asking the computer's own table of zones.
    static void initMain() { qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3"); }

private slots:
    void spans_data()
    {
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << qint64(0) << "0 ms";
        QTest::newRow("below a second") << qint64(999) << "999 ms";
        QTest::newRow("a second") << qint64(1000) << "1 s";
        QTest::newRow("seconds") << qint64(59999) << "59.999 s";
        QTest::newRow("a minute") << qint64(60000) << "1 min";
        QTest::newRow("minutes") << qint64(200500) << "3 min 20.5 s";
        QTest::newRow("a little more than minutes") << qint64(120020) << "2 min 20 ms";
        QTest::newRow("an hour") << qint64(3600000) << "1 h";
        QTest::newRow("hours without their seconds") << qint64(93930000) << "26 h 5 min";
        QTest::newRow("back") << qint64(-1500) << "-1.5 s";
    }

    void spans()
    {
        QFETCH(qint64, milliseconds);
        QTEST(kxpanel::spanText(milliseconds), "text");
    }

    void cursors()
    {
        TrendView view;
        QVERIFY(kxpanel::cursorText(view).startsWith("Keys 1 and 2"));
        const QDateTime first(QDate(2026, 11, 23), QTime(10, 3, 12, 345));
        view.setCursor(0, first.toMSecsSinceEpoch());
        QCOMPARE(kxpanel::cursorText(view), QString("Cursor 1: 2026-11-23 10:03:12.345"));
        view.setCursor(1, first.addMSecs(2655).toMSecsSinceEpoch());
        QCOMPARE(kxpanel::cursorText(view),
                 QString("Cursor 1: 2026-11-23 10:03:12.345    Cursor 2: 2026-11-23 10:03:15.000"
                         "    Difference: 2.655 s"));
    }

    void longDifferencesAreExact()
    {
        TrendView view;
        const QDateTime first(QDate(2026, 11, 23), QTime(10, 0));
        view.setCursor(0, first.toMSecsSinceEpoch());
        const auto difference = [&](qint64 milliseconds) {
            view.setCursor(1, first.addMSecs(milliseconds).toMSecsSinceEpoch());
            return kxpanel::cursorText(view).section("Difference: ", 1);
        };
        QCOMPARE(difference(3600000), QString("1 h"));
        QCOMPARE(difference(3630250), QString("1 h 30.25 s"));
        QCOMPARE(difference(93930001), QString("26 h 5 min 30.001 s"));
        QCOMPARE(difference(-3600001), QString("-1 h 1 ms"));
    }

    /// Where the clock was set back, an hour is there twice.
    void timesThatAreThereTwice()
    {
        TrendView view;
        const QDateTime first(QDate(2026, 10, 25), QTime(0, 30), Qt::UTC);
        view.setCursor(0, first.toMSecsSinceEpoch());
        view.setCursor(1, first.addSecs(3600).toMSecsSinceEpoch());
        QCOMPARE(kxpanel::cursorText(view),
                 QString("Cursor 1: 2026-10-25 02:30:00.000 UTC+2    "
                         "Cursor 2: 2026-10-25 02:30:00.000 UTC+1    Difference: 1 h"));
        const auto offsetAt = [](int hours, int minutes, int seconds = 0) {
            return kxpanel::offsetText(
                QDateTime(QDate(2026, 10, 25), QTime(hours, minutes, seconds), Qt::UTC)
                    .toLocalTime());
        };
        QCOMPARE(offsetAt(23, 59), QString());
        QCOMPARE(offsetAt(0, 0), QString("UTC+2"));
        QCOMPARE(offsetAt(0, 59, 59), QString("UTC+2"));
        QCOMPARE(offsetAt(1, 0), QString("UTC+1"));
        QCOMPARE(offsetAt(1, 59, 59), QString("UTC+1"));
        QCOMPARE(offsetAt(2, 0), QString());
        const QDateTime forward(QDate(2026, 3, 29), QTime(1, 0), Qt::UTC);
        for (const int minutes : {-90, -1, 0, 1, 90})
            QCOMPARE(kxpanel::offsetText(forward.addSecs(60 * minutes).toLocalTime()), QString());
    }

    void timesThatAreThereTwiceElsewhere_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QDateTime>("back"); // in UTC
        QTest::addColumn<int>("doubled");    // minutes
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("behind");
        QTest::newRow("set by half an hour")
            << QByteArray("LHST-10:30LHDT-11,M10.1.0,M4.1.0")
            << QDateTime(QDate(2026, 4, 4), QTime(15, 0), Qt::UTC) << 30 << "UTC+11"
            << "UTC+10:30";
        QTest::newRow("west, with half an hour")
            << QByteArray("NST3:30NDT,M3.2.0,M11.1.0")
            << QDateTime(QDate(2026, 11, 1), QTime(4, 30), Qt::UTC) << 60 << "UTC-2:30"
            << "UTC-3:30";
    }

    void timesThatAreThereTwiceElsewhere()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QDateTime, back);
        QFETCH(int, doubled);
        const ZoneOf place(zone);
        const auto offsetAt = [back](int minutes) {
            return kxpanel::offsetText(
                QDateTime::fromMSecsSinceEpoch(back.toMSecsSinceEpoch() + 60000 * minutes));
        };
        QCOMPARE(offsetAt(-doubled - 1), QString());
        QTEST(offsetAt(-doubled), "before");
        QTEST(offsetAt(-1), "before");
        QTEST(offsetAt(0), "behind");
        QTEST(offsetAt(doubled - 1), "behind");
        QCOMPARE(offsetAt(doubled), QString());
    }
};

QTEST_GUILESS_MAIN(TrendTextTest)
#include "tst_trend_text.moc"
