#include "kxpanel/line/limit/limit_curve.h"

#include "../../mouse_moves.h"
#include "kxpanel/line/limit/limit_costs.h"
#include "registers/register_types.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

class LimitCurveTest : public QObject
{
    Q_OBJECT

private slots:
    void clickingChooses();
    void draggingChooses();
    void marksTheBest();
};

void LimitCurveTest::clickingChooses()
{
    LimitCosts costs;
    LimitCurve curve(&costs);
    curve.resize(500, 200);
    QSignalSpy chosen(&curve, &LimitCurve::chosen);
    const auto click = [&curve](double x) {
        QTest::mouseClick(&curve, Qt::LeftButton, Qt::NoModifier, QPoint(qRound(x), 100));
    };
    click(curve.xOf(32));
    click(0);
    click(499);
    QCOMPARE(chosen.count(), 3);
    QCOMPARE(chosen.at(0).at(0).toInt(), 32);
    QCOMPARE(chosen.at(1).at(0).toInt(), 1);
    QCOMPARE(chosen.at(2).at(0).toInt(), 125);
}

void LimitCurveTest::draggingChooses()
{
    LimitCosts costs;
    LimitCurve curve(&costs);
    curve.resize(500, 200);
    QSignalSpy chosen(&curve, &LimitCurve::chosen);
    moveMouse(&curve, QPoint(qRound(curve.xOf(20)), 100));
    QTest::mousePress(&curve, Qt::LeftButton, Qt::NoModifier, QPoint(qRound(curve.xOf(40)), 100));
    moveMouse(&curve, QPoint(qRound(curve.xOf(60)), 100), Qt::LeftButton);
    QCOMPARE(chosen.count(), 2); // not where the mouse was up
    QCOMPARE(chosen.at(0).at(0).toInt(), 40);
    QCOMPARE(chosen.at(1).at(0).toInt(), 60);
}

void LimitCurveTest::marksTheBest()
{
    LimitCosts costs;
    LimitCurve curve(&costs);
    curve.resize(500, 200);
    const QImage empty = curve.grab().toImage();
    costs.start({{{findRegisterType(QString("D")), 100, 40, 1}, 0}}, AnswerPace());
    QTRY_VERIFY(costs.isFinished());
    const QImage image = curve.grab().toImage();
    const QColor colour = curve.palette().color(QPalette::Highlight);
    int deepest = 0; // of the dot: the curve is thinner
    for (int y = 0; y < image.height(); ++y) {
        bool isFilled = true;
        for (int x = -1; x <= 1; ++x)
            isFilled = isFilled && image.pixelColor(qRound(curve.xOf(40)) + x, y) == colour;
        deepest += isFilled;
    }
    QVERIFY(deepest >= 4);
    QVERIFY(empty != image);
    curve.setMeasured(100000);
    QVERIFY(curve.grab().toImage() != image);
}

QTEST_MAIN(LimitCurveTest)

#include "tst_limit_curve.moc"
