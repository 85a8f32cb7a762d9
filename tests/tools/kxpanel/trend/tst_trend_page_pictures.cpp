// What a trend draws, on the screen and into files.

#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/trend/trend_page_fixture.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QAction>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <limits>
#include <memory>

using kxpanel::BLUE;
using kxpanel::Reading;
using kxpanel::readingOf;
using kxpanel::TagList;
using kxpanel::tagOf;
using kxpanel::TrendPlot;
using kxpanel::TrendSide;
using kxpanel::Window;

namespace
{

QByteArray svgOf(Window& window, const QString& path)
{
    window.page.files()->savePicture(path);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TrendPagePicturesTest : public QObject
{
    Q_OBJECT

private slots:
    void anyNumbersAreDrawn_data();
    void anyNumbersAreDrawn();
    void eachUnitHasItsScale();
    void aPlotFullOfCurvesIsDrawnAtOnce();
    void picturesAreSaved();
    void lettersOfAnSvgAreThoseOfThePlot();
    void lowLanesHaveNoLabels();
};

void TrendPagePicturesTest::anyNumbersAreDrawn_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");

    QTest::newRow("as far apart as numbers can be") << -1.7e308 << 1.7e308;
    QTest::newRow("as near as they can be") << 0.0 << 5e-324;
    QTest::newRow("neighbours") << 1e15 << 1e15 + 0.125;
    QTest::newRow("equal, and large") << 1.7e308 << 1.7e308;
    QTest::newRow("equal, and small") << 5e-324 << 5e-324;
}

void TrendPagePicturesTest::anyNumbersAreDrawn()
{
    QFETCH(double, low);
    QFETCH(double, high);
    kxpanel::TrendChannel channel;
    channel.number = -1;
    channel.endsAt = 60000;
    channel.store = std::make_shared<kxpanel::TrendStore>();
    channel.store->append(10000, low);
    channel.store->append(30000, high);
    kxpanel::TrendChannel lane = channel;
    lane.number = -2;
    lane.wanted = kxpanel::TrendAxis::Lane;
    TagList tags;
    kxpanel::TrendChannels channels(&tags);
    channels.setRecorded({channel, lane});
    kxpanel::TrendView view;
    view.show(0, 60000);
    TrendPlot plot(&channels, &view);
    plot.resize(600, 400);
    plot.refresh();
    QVERIFY(!plot.grab().isNull());
    const kxpanel::TrendView::Range shown = plot.shownValues(TrendSide::Left);
    QVERIFY(std::isfinite(shown.high - shown.low));
    QVERIFY(shown.low < shown.high);
    QVERIFY(shown.low <= low || low < -1e300);
    QVERIFY(shown.high >= high || high > 1e300);
    const QwtScaleDiv scale = plot.axisScaleDiv(QwtPlot::yLeft);
    QVERIFY(scale.ticks(QwtScaleDiv::MajorTick).size() <= 20);
    for (const double tick : scale.ticks(QwtScaleDiv::MajorTick))
        QVERIFY(std::isfinite(tick));
}

void TrendPagePicturesTest::eachUnitHasItsScale()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    QVERIFY(!window.plot->axisEnabled(QwtPlot::yRight));
    QCOMPARE(window.plot->axisTitle(QwtPlot::yLeft).text(), QString("bar"));
    // 10 to 14.9 and one of 90
    QCOMPARE(window.plot->shownValues(TrendSide::Left).low, 0.0);
    QCOMPARE(window.plot->shownValues(TrendSide::Left).high, 100.0);
    window.drop({window.numbers.at(1)});
    window.waitUntilDrawn();
    QVERIFY(window.plot->axisEnabled(QwtPlot::yRight));
    QCOMPARE(window.plot->axisTitle(QwtPlot::yRight).text(), QString("mm"));
    // A lane takes its part of the canvas from the scales.
    const double foot = window.plot->axisScaleDiv(QwtPlot::yLeft).lowerBound();
    QCOMPARE(foot, 0.0);
    window.drop({window.numbers.at(2)});
    window.waitUntilDrawn();
    QVERIFY(window.plot->axisScaleDiv(QwtPlot::yLeft).lowerBound() < -1);
    QCOMPARE(window.plot->shownValues(TrendSide::Left).low, 0.0);
}

void TrendPagePicturesTest::aPlotFullOfCurvesIsDrawnAtOnce()
{
    Window window;
    QList<kx::Tag> tags;
    for (int tag = 0; tag < 8; ++tag)
        tags << tagOf("", qPrintable(QStringLiteral("D%1@1/u16").arg(200 + tag)));
    const QList<int> numbers = window.tags.insert(3, tags);
    window.drop(numbers);
    QVector<Reading> readings;
    for (int index = 0; index < 20000; ++index) {
        for (const int number : numbers)
            readings << readingOf(number, index * 97 * number % 977, window.firstRead + index * 2);
    }
    emit window.machine.valuesRead(readings);
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const auto costOf = [](const std::function<void()>& paint) {
        std::clock_t least = std::numeric_limits<std::clock_t>::max();
        for (int attempt = 0; attempt < 3; ++attempt) {
            const std::clock_t begin = std::clock();
            paint();
            least = std::min(least, std::clock() - begin);
        }
        return double(least);
    };
    QWidget* const canvas = window.plot->canvas();
    QImage picture(canvas->size(), QImage::Format_ARGB32_Premultiplied);
    const double curves = costOf([&] {
        window.plot->refresh();
        canvas->render(&picture);
    });
    QVERIFY(window.pixelsOf(BLUE) > 0);
    const double columns = costOf([&] {
        QPainter painter(&picture);
        for (int curve = 0; curve < 8; ++curve) {
            for (int x = 0; x < picture.width(); ++x)
                painter.drawLine(x, 0, x, picture.height());
        }
    });
    const double times = curves / columns;
    QVERIFY2(times < 5, qPrintable(QString::number(times)));
}

void TrendPagePicturesTest::picturesAreSaved()
{
    QTemporaryDir folder;
    Window window;
    window.drop(window.numbers);
    window.read();
    window.waitUntilDrawn();
    window.page.files()->savePicture(folder.filePath("plot.png"));
    QCOMPARE(window.said.last().at(0).toString(), folder.filePath("plot.png") + " is saved");
    const QImage picture(folder.filePath("plot.png"));
    QCOMPARE(picture.width(), 2 * window.plot->width());
    QVERIFY(picture.height() > 2 * window.plot->height());

    window.key(Qt::Key_Space);
    window.key(Qt::Key_2);
    window.page.findChild<QAction*>("live")->trigger();
    window.page.files()->savePicture(folder.filePath("plot.svg"));
    QFile svg(folder.filePath("plot.svg"));
    QVERIFY(svg.open(QIODevice::ReadOnly));
    const QByteArray text = svg.readAll();
    QVERIFY(text.contains("<svg"));
    QVERIFY(text.contains("Pressure"));
    // Which cursor a value is of
    QVERIFY(QString::fromUtf8(text).contains(
        QRegularExpression("Pressure {2}\\[bar\\] {2}2: [0-9.]+\\s*<")));
    QVERIFY(text.contains("#0072b2"));

    window.page.files()->savePicture(folder.filePath("plot.bmp"));
    QCOMPARE(window.said.last().at(0).toString(),
             folder.filePath("plot.bmp") + ": its name must end with .png or .svg");
}

void TrendPagePicturesTest::lettersOfAnSvgAreThoseOfThePlot()
{
    QTemporaryDir folder;
    Window window;
    window.drop(window.numbers);
    window.read();
    window.waitUntilDrawn();
    const QByteArray text = svgOf(window, folder.filePath("plot.svg"));
    QVERIFY(!text.contains("Keys 1 and 2")); // a picture has none
    const QRegularExpressionMatch head =
        QRegularExpression("<svg width=\"([0-9.]+)mm\"").match(QString::fromUtf8(text));
    QVERIFY(head.hasMatch());
    // As wide on paper as on the screen
    const double pixels = head.captured(1).toDouble() / 25.4 * window.plot->logicalDpiX();
    QVERIFY2(qAbs(pixels - window.plot->width()) < 1, qPrintable(head.captured(0)));
    // Of the bit's name, in its lane and in the legend
    const QString font = QStringLiteral("font-family=\"%1\"").arg(window.plot->font().family());
    int named = 0;
    for (const QString& piece : QString::fromUtf8(text).split("<text ").mid(1)) {
        if (!piece.section("</text", 0, 0).endsWith(">Pump"))
            continue;
        ++named;
        QVERIFY2(piece.contains(font), qPrintable(piece));
    }
    QCOMPARE(named, 2);
}

void TrendPagePicturesTest::lowLanesHaveNoLabels()
{
    QTemporaryDir folder;
    Window window;
    QList<kx::Tag> tags;
    for (int tag = 0; tag < 60; ++tag)
        tags << tagOf("", qPrintable(QStringLiteral("M%1@1").arg(100 + tag)));
    window.drop(window.tags.insert(3, tags));
    window.waitUntilDrawn();
    const QByteArray text = svgOf(window, folder.filePath("plot.svg"));
    QCOMPARE(text.count("M105"), 1); // in the legend
}

QTEST_MAIN(TrendPagePicturesTest)
#include "tst_trend_page_pictures.moc"
