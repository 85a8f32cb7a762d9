#include "kxpanel/trend/trend_page.h"

#include "kxpanel/machine/machine.h"
#include "tools/kxpanel/trend/trend_page_fixture.h"

#include <QtCore/QDateTime>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTableView>

using kxpanel::BLUE;
using kxpanel::LineState;
using kxpanel::LineStatus;
using kxpanel::readingOf;
using kxpanel::TrendLegend;
using kxpanel::TrendPage;
using kxpanel::TrendSide;
using kxpanel::Window;

class TrendPageTest : public QObject
{
    Q_OBJECT

private slots:
    void keysWorkOnThePage();
    void textsMakeNoPageWide();
    void deleteTakesAValueOut();
    void aHiddenPageGoesOnCollecting();
    void layoutComesBack();
    void layoutsOfAnySizeAreTaken();
    void anotherProjectBeginsAnew();
    void readsOfALaterClockAreShown();
    void whatWasReadMovesWithTheClock();
    void whatWasMissedIsNotDrawn();
    void theLegendShowsFiveValues();
    void allHaveKeysTipsAndNames();
};

void TrendPageTest::keysWorkOnThePage()
{
    Window window;
    window.page.findChild<QLineEdit*>()->setFocus();
    window.page.mainPart()->setFocus(); // as the window does when the page is chosen
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(!window.action("live")->isChecked());
}

void TrendPageTest::textsMakeNoPageWide()
{
    Window window;
    window.waitUntilDrawn();
    const int width = window.page.minimumSizeHint().width();
    window.action("firstCursor")->trigger();
    window.action("secondCursor")->trigger();
    window.waitUntilDrawn();
    QCOMPARE(window.page.minimumSizeHint().width(), width);
    QVERIFY(width < window.page.fontMetrics().averageCharWidth() * 80);
}

void TrendPageTest::deleteTakesAValueOut()
{
    Window window;
    window.drop(window.numbers);
    QTableView* table = window.page.findChild<QTableView*>();
    table->setFocus();
    table->selectRow(1);
    QTest::keyClick(table, Qt::Key_Delete);
    QCOMPARE(window.legend->rowCount(), 2);
    QCOMPARE(window.text(1, TrendLegend::Name), QString("Pump"));
    QCOMPARE(window.tags.size(), 3);
}

void TrendPageTest::aHiddenPageGoesOnCollecting()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.page.hide();
    window.read();
    LineStatus lost;
    lost.state = LineState::Interrupted;
    emit window.machine.lineChanged(lost);
    window.page.show();
    window.waitUntilDrawn();
    QCOMPARE(window.text(0, TrendLegend::Now), QString("(line lost)"));
    QVERIFY(window.pixelsOf(BLUE) > 100);
}

void TrendPageTest::layoutComesBack()
{
    Window window;
    QSignalSpy changes(&window.page, &TrendPage::layoutChanged);
    window.drop({window.numbers.at(2), window.numbers.at(0)});
    QVERIFY(changes.size() >= 1);
    window.key(Qt::Key_Minus);
    const QJsonObject layout = window.page.layout();
    QCOMPARE(window.page.key(), QString("trend"));
    QCOMPARE(layout.value("span").toInt(), 120000);

    Window other;
    other.page.setLayout(layout);
    QCOMPARE(other.text(0, TrendLegend::Name), QString("Pump"));
    QCOMPARE(other.text(1, TrendLegend::Name), QString("Pressure"));
    QCOMPARE(other.page.layout(), layout);
    other.page.setLayout({{"span", "long"}, {"channels", 7}});
    QCOMPARE(other.legend->rowCount(), 0);
    QCOMPARE(other.page.layout().value("span").toInt(), 60000);
}

void TrendPageTest::layoutsOfAnySizeAreTaken()
{
    Window window;
    for (const double span : {1e30, 1e-3, -5.0, 1e18}) {
        window.page.setLayout({{"span", span}});
        QCOMPARE(window.page.layout().value("span").toInt(), 60000);
    }
}

void TrendPageTest::anotherProjectBeginsAnew()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    const double high = window.plot->shownValues(TrendSide::Left).high;
    window.drag(Qt::LeftButton, QPoint(100, 50), QPoint(300, 150)); // a band
    window.key(Qt::Key_1);
    window.key(Qt::Key_Minus);
    window.page.setLayout({});
    QCOMPARE(window.page.layout().value("span").toInt(), 60000);
    QVERIFY(window.action("live")->isChecked());
    QVERIFY(window.state().startsWith("Keys 1 and 2"));
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    QCOMPARE(window.plot->shownValues(TrendSide::Left).high, high);
}

void TrendPageTest::readsOfALaterClockAreShown()
{
    Window window;
    window.drop({window.numbers.at(0)});
    const qint64 later = QDateTime::currentMSecsSinceEpoch() + 3600000;
    emit window.machine.valuesRead({readingOf(window.numbers.at(0), 100, later - 20000)});
    emit window.machine.valuesRead({readingOf(window.numbers.at(0), 200, later)});
    window.waitUntilDrawn();
    QCOMPARE(window.text(0, TrendLegend::Now), QString("20"));
    QVERIFY(window.to() >= later);
    QVERIFY(window.pixelsOf(BLUE) > 100);
}

void TrendPageTest::whatWasReadMovesWithTheClock()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    const qint64 hour = 3600000;
    emit window.machine.clockSet(-hour);
    const qint64 now = QDateTime::currentMSecsSinceEpoch() - hour;
    emit window.machine.valuesRead({readingOf(window.numbers.at(0), 200, now)});
    window.waitUntilDrawn();
    QCOMPARE(window.text(0, TrendLegend::Now), QString("20"));
    QVERIFY(qAbs(window.to() - now) < hour / 2);
    QVERIFY(window.pixelsOf(BLUE) > 100); // of all that was before
}

void TrendPageTest::whatWasMissedIsNotDrawn()
{
    Window window;
    window.drop({window.numbers.at(0)});
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    emit window.machine.valuesRead({readingOf(window.numbers.at(0), 100, now - 40000)});
    emit window.machine.valuesRead({readingOf(window.numbers.at(0), 100, now - 1000)});
    window.waitUntilDrawn();
    const int whole = window.pixelsOf(BLUE);
    Window other;
    other.drop({other.numbers.at(0)});
    emit other.machine.valuesRead({readingOf(other.numbers.at(0), 100, now - 40000)});
    emit other.machine.missed({now - 39000, now, 100});
    emit other.machine.valuesRead({readingOf(other.numbers.at(0), 100, now - 1000)});
    other.waitUntilDrawn();
    QVERIFY(whole > 100);
    QVERIFY2(other.pixelsOf(BLUE) < whole / 4, qPrintable(QString::number(other.pixelsOf(BLUE))));
}

void TrendPageTest::theLegendShowsFiveValues()
{
    const Window window;
    const QTableView* const table = window.page.findChild<QTableView*>();
    const int rows = table->viewport()->height() / table->verticalHeader()->defaultSectionSize();
    QVERIFY2(rows >= 5, qPrintable(QString::number(rows)));
    const QString longest = "(recorder stopped)";
    for (const int column : {TrendLegend::Now, TrendLegend::First, TrendLegend::Second})
        QVERIFY(table->columnWidth(column) > table->fontMetrics().horizontalAdvance(longest));
}

void TrendPageTest::allHaveKeysTipsAndNames()
{
    Window window;
    const char* const names[] = {"live",         "toNow",      "zoomIn",        "zoomOut",
                                 "earlier",      "later",      "fitValues",     "firstCursor",
                                 "secondCursor", "cursorLeft", "cursorRight",   "clearCursors",
                                 "remove",       "open",       "exportPicture", "exportValues"};
    for (const char* const name : names) {
        const QString key = window.action(name)->shortcut().toString(QKeySequence::NativeText);
        QVERIFY2(!key.isEmpty(), name);
        QVERIFY2(window.action(name)->toolTip().endsWith('(' + key + ')'), name);
    }
    for (const QWidget* widget : {static_cast<QWidget*>(window.plot),
                                  static_cast<QWidget*>(window.page.findChild<QTableView*>()),
                                  static_cast<QWidget*>(window.page.findChild<QComboBox*>()),
                                  static_cast<QWidget*>(window.page.findChild<QLineEdit*>())})
        QVERIFY(!widget->accessibleName().isEmpty());
}

QTEST_MAIN(TrendPageTest)
#include "tst_trend_page.moc"
