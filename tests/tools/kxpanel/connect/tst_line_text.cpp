#include "kxpanel/connect/line_text.h"
#include "kxpanel/window/theme.h"

#include <QtTest/QTest>

#include <cmath>

using namespace kxpanel;

class LineTextTest : public QObject
{
    Q_OBJECT

private slots:
    void states_data();
    void states();
    void coloursCanBeRead_data() { states_data(); }
    void coloursCanBeRead();
};

namespace
{

/// As the guidelines for accessible pages count it.
double luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
           + 0.0722 * part(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace

void LineTextTest::states_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("symbol");
    QTest::newRow("never opened") << int(LineState::Closed) << ""
                                  << "not connected" << 0x25cb;
    QTest::newRow("could not be opened") << int(LineState::Closed) << "no such port"
                                         << "failed" << 0x2716;
    QTest::newRow("opening") << int(LineState::Opening) << ""
                             << "connecting" << 0x25d4;
    QTest::newRow("open") << int(LineState::Open) << ""
                          << "connected" << 0x25cf;
    QTest::newRow("a station is silent") << int(LineState::Open) << "station 2 does not answer"
                                         << "faulty" << 0x25b2;
    QTest::newRow("lost") << int(LineState::Interrupted) << "line lost"
                          << "lost, reopening" << 0x2716;
}

void LineTextTest::states()
{
    QFETCH(int, state);
    QFETCH(QString, fault);
    QFETCH(int, symbol);
    const LineStatus status{static_cast<LineState>(state), QString(), fault, {}};
    QTEST(stateText(status), "text");
    QCOMPARE(stateSymbol(status), QString(QChar(symbol)));
}

void LineTextTest::coloursCanBeRead()
{
    QFETCH(int, state);
    QFETCH(QString, fault);
    const LineStatus status{static_cast<LineState>(state), QString(), fault, {}};
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const QColor window = palette.color(QPalette::Window);
        QVERIFY(contrast(stateColour(status, palette), window) > 4.5);
        QVERIFY(contrast(faultColour(palette), window) > 4.5);
    }
}

QTEST_MAIN(LineTextTest)
#include "tst_line_text.moc"
