#include "kxpanel/trend/plot/trend_scales.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtTest/QTest>

#include <memory>
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
