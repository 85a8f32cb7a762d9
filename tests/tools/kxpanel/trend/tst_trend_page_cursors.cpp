// The two cursors of a trend.

#include "tools/kxpanel/mouse_moves.h"
#include "tools/kxpanel/trend/trend_page_fixture.h"

#include <QtCore/QDateTime>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

using kxpanel::TrendLegend;
using kxpanel::Window;

class TrendPageCursorsTest : public QObject
{
    Q_OBJECT

public:
    /// Where no time is there twice, which would be shown with its offset.
    static void initMain() { qputenv("TZ", "UTC"); }

private slots:
    void cursorsByKeyAndMouse();
    void cursorsStayWhereTheyAreSeen();
    void anotherButtonWhileDragging();
};

void TrendPageCursorsTest::cursorsByKeyAndMouse()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    window.action("firstCursor")->trigger(); // the mouse is elsewhere: in the middle
    const QString middle = window.state();
    QVERIFY(middle.startsWith("Cursor 1: "));
    QVERIFY(!window.text(0, TrendLegend::First).isEmpty());
    const QWidget* canvas = window.plot->canvas();
    const QPoint quarter(canvas->width() / 4, 50);
    const qint64 time = window.plot->timeAt(quarter.x());
    window.drag(Qt::LeftButton, QPoint(canvas->width() / 2, 50), quarter);
    window.waitUntilDrawn();
    QCOMPARE(window.state(),
             "Cursor 1: "
                 + QDateTime::fromMSecsSinceEpoch(time).toString("yyyy-MM-dd hh:mm:ss.zzz"));
    QCOMPARE(window.plot->timeAt(quarter.x()), time); // a cursor, no band
    window.key(Qt::Key_2);
    QVERIFY(window.state().contains("Difference: "));
    QVERIFY(!window.text(0, TrendLegend::Difference).isEmpty());
    const QString second = window.state();
    const QLabel* const label = window.page.findChild<QLabel*>("cursors");
    const QAccessibleInterface* const spoken =
        QAccessible::queryAccessibleInterface(const_cast<QLabel*>(label));
    QCOMPARE(spoken->text(QAccessible::Name), second); // a name of its own would hide it
    window.key(Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(window.state() != second);
    window.key(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(window.state(), second);
    window.key(Qt::Key_Escape);
    QCOMPARE(window.text(0, TrendLegend::First), QString());
    QVERIFY(window.state().startsWith("Keys 1 and 2"));
}

void TrendPageCursorsTest::cursorsStayWhereTheyAreSeen()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    window.action("firstCursor")->trigger();
    window.waitUntilDrawn();
    const QWidget* canvas = window.plot->canvas();
    window.drag(Qt::LeftButton, QPoint(canvas->width() / 2, 50), QPoint(-300, 50));
    QCOMPARE(
        window.state(),
        "Cursor 1: "
            + QDateTime::fromMSecsSinceEpoch(window.from()).toString("yyyy-MM-dd hh:mm:ss.zzz"));
}

void TrendPageCursorsTest::anotherButtonWhileDragging()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    window.action("firstCursor")->trigger();
    window.waitUntilDrawn();
    QWidget* canvas = window.plot->canvas();
    const QPoint middle(canvas->width() / 2, 50);
    const QPoint quarter(canvas->width() / 4, 50);
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mousePress(canvas, Qt::RightButton, Qt::NoModifier, quarter);
    kxpanel::moveMouse(canvas, quarter, Qt::LeftButton | Qt::RightButton);
    QTest::mouseRelease(canvas, Qt::RightButton, Qt::NoModifier, quarter);
    kxpanel::moveMouse(canvas, quarter + QPoint(20, 0), Qt::LeftButton);
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, quarter + QPoint(20, 0));
    const qint64 time = window.plot->timeAt(quarter.x() + 20);
    QCOMPARE(window.state(),
             "Cursor 1: "
                 + QDateTime::fromMSecsSinceEpoch(time).toString("yyyy-MM-dd hh:mm:ss.zzz"));
}

QTEST_MAIN(TrendPageCursorsTest)
#include "tst_trend_page_cursors.moc"
