#include "kxpanel/trend/plot/trend_scales.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtTest/QTest>

#include <memory>
#include <qwt_date_scale_engine.h>
#include <qwt_scale_draw.h>

namespace
{

/// Texts of ticks, from a moment on in steps of some milliseconds; rows stand apart by '|'.
QStringList labelsOf(const QDateTime& first, qint64 step, int count)
{
    QList<double> ticks;
    for (int tick = 0; tick < count; ++tick)
        ticks << double(first.toMSecsSinceEpoch() + tick * step);
    const std::unique_ptr<QwtScaleDraw> scale(kxpanel::timeScale());
    scale->setScaleDiv(QwtScaleDiv(ticks.first(), ticks.last(), {}, {}, ticks));
    QStringList labels;
    for (const double tick : qAsConst(ticks))
        labels << scale->label(tick).text().replace('\n', '|');
    return labels;
}

} // namespace

class TrendScalesTest : public QObject
{
    Q_OBJECT

public:
    /// Central Europe, without asking the computer's own table of zones.
    static void initMain() { qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3"); }

private slots:
    void timesHaveTheirDateFirstAndAtMidnight_data()
    {
        QTest::addColumn<QDateTime>("first");
        QTest::addColumn<qint64>("step");
        QTest::addColumn<QStringList>("labels");

        const QDateTime evening(QDate(2026, 11, 23), QTime(23, 58));
        QTest::newRow("minutes over midnight")
            << evening << qint64(60000)
            << QStringList{"23:58|2026-11-23", "23:59| ", "00:00|2026-11-24", "00:01| "};
        QTest::newRow("hours of a day")
            << QDateTime(QDate(2026, 11, 23), QTime(10, 0)) << qint64(3600000)
            << QStringList{"10:00|2026-11-23", "11:00| ", "12:00| "};
        QTest::newRow("seconds") << evening << qint64(1000)
                                 << QStringList{"23:58:00|2026-11-23", "23:58:01| "};
        QTest::newRow("milliseconds")
            << evening << qint64(5) << QStringList{"23:58:00.000|2026-11-23", "23:58:00.005| "};
    }

    void timesHaveTheirDateFirstAndAtMidnight()
    {
        QFETCH(QDateTime, first);
        QFETCH(qint64, step);
        QFETCH(QStringList, labels);
        QCOMPARE(labelsOf(first, step, static_cast<int>(labels.size())), labels);
    }

    void aDayOnWhichTheClockIsSet_data()
    {
        QTest::addColumn<QDateTime>("from"); // in UTC
        QTest::addColumn<qint64>("span");
        QTest::addColumn<QString>("labels");

        const qint64 minute = 60000; // milliseconds
        const qint64 hour = 60 * minute;
        const auto utc = [](int month, int day, int hours, int minutes = 0) {
            return QDateTime(QDate(2026, month, day), QTime(hours, minutes), Qt::UTC);
        };
        QTest::newRow("back, minutes around it")
            << utc(10, 25, 0, 50) << 20 * minute
            << "02:50|2026-10-25, 02:55|UTC+2, 02:00|UTC+1, 02:05|UTC+1, 02:10|UTC+1";
        QTest::newRow("back, behind it")
            << utc(10, 25, 1, 50) << 20 * minute
            << "02:50|2026-10-25, 02:55|UTC+1, 03:00| , 03:05| , 03:10| ";
        QTest::newRow("back, in hours")
            << utc(10, 24, 22) << 8 * hour
            << "00:00|2026-10-25, 01:00| , 02:00|UTC+2, 02:00|UTC+1, 03:00| , 04:00| , 05:00| , "
               "06:00| , 07:00| ";
        QTest::newRow("back, in steps of hours")
            << utc(10, 24, 22) << 30 * hour
            << "00:00|2026-10-25, 04:00| , 08:00| , 12:00| , 16:00| , 20:00| , "
               "00:00|2026-10-26, 04:00| ";
        QTest::newRow("back, in days")
            << utc(10, 23, 22) << 97 * hour
            << "2026-10-24, 2026-10-25, 2026-10-26, 2026-10-27, 2026-10-28";
        QTest::newRow("forward, in hours")
            << utc(3, 28, 23) << 7 * hour
            << "00:00|2026-03-29, 01:00| , 03:00| , 04:00| , 05:00| , 06:00| , 07:00| , 08:00| ";
        QTest::newRow("forward, in steps of hours")
            << utc(3, 28, 23) << 30 * hour
            << "00:00|2026-03-29, 04:00| , 08:00| , 12:00| , 16:00| , 20:00| , "
               "00:00|2026-03-30, 04:00| ";
        QTest::newRow("months over both") << utc(1, 31, 23) << 240 * 24 * hour
                                          << "2026-02, 2026-03, 2026-04, 2026-05, 2026-06, "
                                             "2026-07, 2026-08, 2026-09";
    }

    void aDayOnWhichTheClockIsSet()
    {
        QFETCH(QDateTime, from);
        QFETCH(qint64, span);
        const double begin = double(from.toMSecsSinceEpoch());
        const QwtScaleDiv division =
            QwtDateScaleEngine(Qt::LocalTime).divideScale(begin, begin + double(span), 8, 5);
        QCOMPARE(division.lowerBound(), begin);
        QCOMPARE(division.upperBound(), begin + double(span));
        const std::unique_ptr<QwtScaleDraw> scale(kxpanel::timeScale());
        scale->setScaleDiv(division);
        QStringList labels;
        for (const double tick : division.ticks(QwtScaleDiv::MajorTick))
            labels << scale->label(tick).text().replace('\n', '|');
        QTEST(labels.join(", "), "labels");
    }

    /// "1.500" would be fifteen hundred in one language and one and a half in the tables.
    void numbersAreTheSameInAllLanguages()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        const std::unique_ptr<QwtScaleDraw> scale(kxpanel::valueScale());
        QCOMPARE(scale->label(1.5).text(), QString("1.5"));
        QCOMPARE(scale->label(1500).text(), QString("1500"));
        QCOMPARE(scale->label(0.1 + 0.2).text(), QString("0.3"));
        QLocale::setDefault(before);
    }
};

QTEST_GUILESS_MAIN(TrendScalesTest)
#include "tst_trend_scales.moc"
