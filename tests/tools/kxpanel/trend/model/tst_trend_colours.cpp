#include "kxpanel/trend/model/trend_colours.h"

#include <QtTest/QTest>

#include <algorithm>
#include <cmath>

using kxpanel::trendColour;
using kxpanel::trendPen;

namespace
{

double light(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// Relative luminance as WCAG 2 has it.
double luminance(const QColor& colour)
{
    return 0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF())
           + 0.0722 * light(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

} // namespace

class TrendColoursTest : public QObject
{
    Q_OBJECT

private slots:
    /// 3 to 1 is what graphics need to be seen by people who see less.
    void eachIsSeenOnItsGround()
    {
        for (int look = 0; look < kxpanel::TREND_LOOKS; ++look) {
            QVERIFY(contrast(trendColour(look, Qt::white), Qt::white) >= 4.5);
            QVERIFY(contrast(trendColour(look, QColor(0x23, 0x26, 0x29)), QColor(0x23, 0x26, 0x29))
                    >= 4.5);
        }
    }

    void noTwoLooksAreAlike()
    {
        for (const QColor& ground : {QColor(Qt::white), QColor(Qt::black)}) {
            for (int one = 0; one < kxpanel::TREND_LOOKS; ++one) {
                for (int other = 0; other < one; ++other)
                    QVERIFY(trendPen(one, ground) != trendPen(other, ground));
            }
        }
        QCOMPARE(trendPen(24, Qt::white), trendPen(0, Qt::white));
    }

    void theFirstSixAreSolid()
    {
        QCOMPARE(trendPen(5, Qt::white).style(), Qt::SolidLine);
        QCOMPARE(trendPen(6, Qt::white).style(), Qt::DashLine);
        QCOMPARE(trendPen(0, Qt::white).color(), QColor(0x00, 0x72, 0xB2));
        QCOMPARE(trendPen(0, Qt::black).color(), QColor(0x56, 0xB4, 0xE9));
    }

    /// Colours come again, so the kind of line must be seen as well.
    void samplesOfAllLooksDiffer()
    {
        QList<QImage> samples;
        for (int look = 0; look < kxpanel::TREND_LOOKS; ++look) {
            QImage sample(32, 16, QImage::Format_RGB32);
            sample.fill(Qt::white);
            QPainter painter(&sample);
            kxpanel::drawTrendSample(look, Qt::white, sample.rect(), &painter);
            painter.end();
            QCOMPARE(samples.indexOf(sample), -1);
            samples << sample;
        }
        QCOMPARE(samples.first().pixelColor(16, 7), QColor(0x00, 0x72, 0xB2));
        QCOMPARE(samples.first().pixelColor(16, 0), QColor(Qt::white));
    }
};

QTEST_APPLESS_MAIN(TrendColoursTest)
#include "tst_trend_colours.moc"
