#include "kxpanel/trend/trend_page.h"

#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/trend/plot/trend_drop.h"
#include "kxpanel/trend/plot/trend_picture.h"
#include "kxpanel/trend/plot/trend_plot.h"
#include "tools/kxpanel/frames.h"
#include "tools/kxpanel/mouse_moves.h"
#include "tools/kxpanel/trend/model/trend_tags.h"
#include "tools/kxpanel/value_drags.h"

#include <QtCore/QDateTime>
#include <QtCore/QMimeData>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QAccessible>
#include <QtGui/QDropEvent>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTableView>

#include <algorithm>
#include <ctime>
#include <functional>
#include <limits>
#include <memory>

using kxpanel::LineState;
using kxpanel::LineStatus;
using kxpanel::Machine;
using kxpanel::Reading;
using kxpanel::readingOf;
using kxpanel::TagList;
using kxpanel::tagOf;
using kxpanel::TrendLegend;
using kxpanel::TrendPage;
using kxpanel::TrendPlot;
using kxpanel::TrendSide;

namespace
{

const QColor BLUE(0x00, 0x72, 0xB2); // the first curve, on light ground

/// A page without a line: the machine's signals are emitted by hand.
struct Window {
    Machine machine;
    TagList tags;
    QList<int> numbers;
    TrendPage page{{&machine, &tags}};
    TrendPlot* plot = page.findChild<TrendPlot*>();
    TrendLegend* legend = page.findChild<TrendLegend*>();
    QSignalSpy said{&page, &TrendPage::said};
    qint64 firstRead = QDateTime::currentMSecsSinceEpoch() - 50000;

    Window()
    {
        numbers =
            tags.insert(0, {tagOf("Pressure", "D100@1/s16*0.1,unit=bar"),
                            tagOf("Level", "D101@1/u16*0.5,unit=mm"), tagOf("Pump", "Y10@1")});
        QPalette light(QColor(0xEE, 0xEE, 0xEE));
        light.setColor(QPalette::Base, Qt::white);
        page.setPalette(light);
        page.resize(900, 600);
        page.show();
        page.activateWindow();
        plot->canvas()->setFocus();
        if (!QTest::qWaitForWindowActive(&page))
            qFatal("no window has become active");
    }

    void drop(const QList<int>& dropped)
    {
        kxpanel::ValueDrag drag(&page, kxpanel::valuesData(dropped));
        drag.moveTo(plot->canvas());
        drag.drop();
    }

    /// 50 seconds, one of which ended a moment ago.
    void read()
    {
        QVector<Reading> readings;
        for (int index = 0; index <= 500; ++index) {
            const qint64 at = firstRead + 100 * index;
            readings << readingOf(numbers.at(0), index == 200 ? 900 : 100 + index % 50, at)
                     << readingOf(numbers.at(1), 2000 + index % 300, at)
                     << readingOf(numbers.at(2), index / 90 % 2, at);
        }
        emit machine.valuesRead(readings);
    }

    void waitUntilDrawn() { kxpanel::passFrames(2); }

    QAction* action(const char* name) const { return page.findChild<QAction*>(name); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(plot->canvas(), key, modifiers);
    }
    void drag(Qt::MouseButton button, const QPoint& begin, const QPoint& end,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* canvas = plot->canvas();
        QTest::mousePress(canvas, button, modifiers, begin);
        QMouseEvent move(QEvent::MouseMove, end, canvas->mapToGlobal(end), Qt::NoButton, button,
                         modifiers);
        QApplication::sendEvent(canvas, &move);
        QTest::mouseRelease(canvas, button, modifiers, end);
    }
    QString state() const
    {
        for (const QLabel* label : page.findChildren<QLabel*>()) {
            if (label->objectName() == "cursors")
                return label->text();
        }
        return QString();
    }
    QString text(int row, int column) const { return legend->index(row, column).data().toString(); }
    int pixelsOf(const QColor& colour) const
    {
        const QImage image = plot->canvas()->grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
        return count;
    }
    qint64 from() const { return plot->timeAt(0); }
    qint64 to() const { return plot->timeAt(plot->canvas()->width()); }
};

/// D1 of station 1, over a second.
struct Recording {
    QTemporaryDir folder;
    QString path = folder.filePath("a.csv");

    Recording()
    {
        QFile file(path);
        const QByteArray rows =
            "time,D1@1,gaps\n2026-11-23T10:00:00.000Z,1,\n2026-11-23T10:00:01.000Z,2,\n";
        if (!file.open(QIODevice::WriteOnly) || file.write(rows) != rows.size())
            qFatal("the recording cannot be made");
    }
};

QByteArray svgOf(Window& window, const QString& path)
{
    window.page.files()->savePicture(path);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray svgOf(TrendPlot* plot, const TrendLegend& legend)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("plot.svg"));
    QString error;
    const bool isSaved =
        kxpanel::saveTrendPicture(file.fileName(), plot, legend, QString(), &error);
    return isSaved && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TrendPageTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreDroppedAndDrawn();
    void valuesAreNamedByKeyboard();
    void aNameIsCompletedByKeyboard();
    void otherDropsAreRefused();
    void whatAnotherProgramDragsIsRefused();
    void aDropNeverTakesAwayFromTheList();
    void keysWorkOnThePage();
    void spacePausesAndHomeGoesOn();
    void keysZoomAndPan();
    void theWheelZoomsAroundTheMouse();
    void aBandZoomsIn();
    void aBandOverLanesZoomsTheTimeAlone();
    void aBandEndsAtTheEdgeOfThePlot();
    void theWheelOverLanesKeepsTheCurves();
    void theMiddleButtonPans();
    void cursorsByKeyAndMouse();
    void cursorsStayWhereTheyAreSeen();
    void anotherButtonWhileDragging();
    void textsMakeNoPageWide();
    void eachUnitHasItsScale();
    void anyNumbersAreDrawn_data();
    void anyNumbersAreDrawn();
    void aPlotFullOfCurvesIsDrawnAtOnce();
    void deleteTakesAValueOut();
    void aHiddenPageGoesOnCollecting();
    void layoutComesBack();
    void layoutsOfAnySizeAreTaken();
    void anotherProjectBeginsAnew();
    void readsOfALaterClockAreShown();
    void whatWasReadMovesWithTheClock();
    void whatWasMissedIsNotDrawn();
    void picturesAreSaved();
    void lettersOfAnSvgAreThoseOfThePlot();
    void lowLanesHaveNoLabels();
    void theLegendShowsFiveValues();
    void aRecordingIsOpened();
    void aRecordingCountsUntilItsEnd();
    void aFileThatCannotBeReadLeavesTheOneBeingRead();
    void aRecordingGoesWithItsProject();
    void aFileBeingReadIsNotShownInAnotherProject();
    void allHaveKeysTipsAndNames();
};

void TrendPageTest::valuesAreDroppedAndDrawn()
{
    Window window;
    window.waitUntilDrawn();
    QCOMPARE(window.pixelsOf(BLUE), 0);
    window.drop(window.numbers);
    window.read();
    window.waitUntilDrawn();
    QCOMPARE(window.legend->rowCount(), 3);
    QVERIFY(window.pixelsOf(BLUE) > 100);
    QCOMPARE(window.text(0, TrendLegend::Now), QString("10"));
}

void TrendPageTest::valuesAreNamedByKeyboard()
{
    Window window;
    QLineEdit* field = window.page.findChild<QLineEdit*>();
    field->setFocus();
    QTest::keyClicks(field, "nothing");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(window.said.last().at(0).toString(), QString("No watched value is called nothing"));
    field->clear();
    QTest::keyClicks(field, "y10");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(window.legend->rowCount(), 1);
    QCOMPARE(window.text(0, TrendLegend::Name), QString("Pump"));
    QTRY_COMPARE(field->text(), QString());
}

void TrendPageTest::aNameIsCompletedByKeyboard()
{
    Window window;
    QLineEdit* field = window.page.findChild<QLineEdit*>();
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return); // nothing is named
    QCOMPARE(window.said.size(), 0);
    QTest::keyClicks(field, "ump");
    QTest::keyClick(field->completer()->popup(), Qt::Key_Down);
    QTest::keyClick(field->completer()->popup(), Qt::Key_Return);
    QCOMPARE(window.legend->rowCount(), 1);
    QCOMPARE(window.text(0, TrendLegend::Name), QString("Pump"));
    QTRY_COMPARE(field->text(), QString()); // for the next one
}

void TrendPageTest::otherDropsAreRefused()
{
    Window window;
    QMimeData text;
    text.setText("1");
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.plot, &enter);
    QVERIFY(!enter.isAccepted());
    QMimeData broken;
    broken.setData(QLatin1String(kxpanel::VALUES_MIME_TYPE), "x\n-4\n99999999999\n7\n");
    QCOMPARE(kxpanel::draggedValues(broken), QList<int>{7});
}

/// Numbers are a program's own: of another window they mean other values.
void TrendPageTest::whatAnotherProgramDragsIsRefused()
{
    Window window;
    QMimeData* const data = kxpanel::valuesData(window.numbers);
    data->setData(QLatin1String(kxpanel::PROCESS_MIME_TYPE), "1");
    kxpanel::ValueDrag drag(&window.page, data);
    drag.moveTo(window.plot->canvas());
    QCOMPARE(drag.drop(), Qt::IgnoreAction);
    QCOMPARE(window.legend->rowCount(), 0);
}

void TrendPageTest::aDropNeverTakesAwayFromTheList()
{
    Window window;
    kxpanel::ValueDrag both(&window.page, kxpanel::valuesData(window.numbers),
                            Qt::CopyAction | Qt::MoveAction);
    both.moveTo(window.plot->canvas());
    QCOMPARE(both.drop(), Qt::CopyAction);
    QCOMPARE(window.legend->rowCount(), 3);
    window.page.setLayout({});
    kxpanel::ValueDrag move(&window.page, kxpanel::valuesData(window.numbers), Qt::MoveAction);
    move.moveTo(window.plot->canvas());
    QCOMPARE(move.drop(), Qt::IgnoreAction);
    QCOMPARE(window.legend->rowCount(), 0);
}

void TrendPageTest::keysWorkOnThePage()
{
    Window window;
    window.page.findChild<QLineEdit*>()->setFocus();
    window.page.mainPart()->setFocus(); // as the window does when the page is chosen
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(!window.action("live")->isChecked());
}

void TrendPageTest::spacePausesAndHomeGoesOn()
{
    Window window;
    window.waitUntilDrawn();
    const qint64 live = window.to();
    QTRY_VERIFY(window.to() > live);
    window.key(Qt::Key_Space);
    QVERIFY(!window.action("live")->isChecked());
    window.waitUntilDrawn();
    const qint64 paused = window.to();
    kxpanel::passFrames(4); // in which it would move by some pixels
    QCOMPARE(window.to(), paused);
    window.key(Qt::Key_Home);
    QVERIFY(window.action("live")->isChecked());
    QTRY_VERIFY(window.to() > paused);
}

void TrendPageTest::keysZoomAndPan()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const qint64 from = window.from();
    const qint64 to = window.to();
    window.key(Qt::Key_Plus);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.from() - (from + 15000)) <= 150); // of a minute the middle half
    QVERIFY(qAbs(window.to() - (to - 15000)) <= 150);
    window.key(Qt::Key_Minus);
    window.key(Qt::Key_Left);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - (to - 15000)) <= 150); // a quarter
    window.key(Qt::Key_Right);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - to) <= 150);
    QComboBox* spans = window.page.findChild<QComboBox*>();
    QCOMPARE(spans->currentText(), QString("1 min"));
    window.key(Qt::Key_Minus);
    QCOMPARE(spans->currentIndex(), -1);
    QCOMPARE(spans->placeholderText(), QString("2 min"));
}

void TrendPageTest::theWheelZoomsAroundTheMouse()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const QPoint place(window.plot->canvas()->width() / 4, 50);
    const qint64 anchor = window.plot->timeAt(place.x());
    const qint64 span = window.to() - window.from();
    QWheelEvent wheel(place, window.plot->canvas()->mapToGlobal(place), QPoint(), QPoint(0, 240),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window.plot->canvas(), &wheel);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.plot->timeAt(place.x()) - anchor) <= 150);
    // Two notches of 1.25
    QVERIFY(qAbs(double(window.to() - window.from()) * 1.5625 / double(span) - 1) < 0.01);

    const kxpanel::TrendView::Range before = window.plot->shownValues(TrendSide::Left);
    QWheelEvent values(place, window.plot->canvas()->mapToGlobal(place), QPoint(), QPoint(0, 120),
                       Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window.plot->canvas(), &values);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range after = window.plot->shownValues(TrendSide::Left);
    QVERIFY(qAbs((after.high - after.low) * 1.25 / (before.high - before.low) - 1) < 0.001);
    window.key(Qt::Key_A);
    window.waitUntilDrawn();
    QCOMPARE(window.plot->shownValues(TrendSide::Left).high, before.high);
}

void TrendPageTest::aBandZoomsIn()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    QWidget* canvas = window.plot->canvas();
    const QPoint begin(canvas->width() / 4, canvas->height() / 4);
    const QPoint end(canvas->width() / 2, canvas->height() / 2);
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const qint64 from = window.plot->timeAt(begin.x());
    const qint64 to = window.plot->timeAt(end.x());
    const double high = window.plot->valueAt(TrendSide::Left, begin.y());
    window.drag(Qt::LeftButton, begin, end);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.from() - from) <= 150);
    QVERIFY(qAbs(window.to() - to) <= 150);
    QVERIFY(qAbs(window.plot->shownValues(TrendSide::Left).high - high) < 1);
    QVERIFY(!window.action("live")->isChecked());
}

/// The scales end above the lanes: a band there means no values.
void TrendPageTest::aBandOverLanesZoomsTheTimeAlone()
{
    Window window;
    window.drop(window.numbers);
    const QList<int> bits = window.tags.insert(
        3, {tagOf("", "M1@1"), tagOf("", "M2@1"), tagOf("", "M3@1"), tagOf("", "M4@1")});
    window.drop(bits);
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const QWidget* canvas = window.plot->canvas();
    const kxpanel::TrendView::Range before = window.plot->shownValues(TrendSide::Left);
    const QPoint foot(canvas->width() / 2, canvas->height() - 2);
    const qint64 to = window.plot->timeAt(foot.x());
    const QPoint inLanes(canvas->width() / 4,
                         canvas->height() - 2 - 3 * window.plot->fontMetrics().height());
    QVERIFY(window.plot->valueAt(TrendSide::Left, inLanes.y()) < before.low); // in the lanes
    window.drag(Qt::LeftButton, inLanes, foot);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - to) <= 150);
    QVERIFY(window.plot->shownValues(TrendSide::Left).high > before.low);
    // From the curves down into the lanes: to the foot of the scale.
    window.key(Qt::Key_Home);
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range whole = window.plot->shownValues(TrendSide::Left);
    window.drag(Qt::LeftButton, QPoint(canvas->width() / 4, canvas->height() / 8), foot);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range shown = window.plot->shownValues(TrendSide::Left);
    QCOMPARE(shown.low, whole.low);
    QVERIFY(shown.high < whole.high);
    QVERIFY(shown.high > whole.low);
}

void TrendPageTest::aBandEndsAtTheEdgeOfThePlot()
{
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const qint64 from = window.from();
    const double high = window.plot->valueAt(TrendSide::Left, 0);
    window.drag(Qt::LeftButton, QPoint(window.plot->canvas()->width() / 2, 200), QPoint(-80, -90));
    window.waitUntilDrawn();
    QVERIFY2(qAbs(window.from() - from) <= 150, qPrintable(QString::number(window.from() - from)));
    QVERIFY(window.plot->shownValues(TrendSide::Left).high <= high);
}

void TrendPageTest::theWheelOverLanesKeepsTheCurves()
{
    Window window;
    window.drop(window.numbers);
    window.read();
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range before = window.plot->shownValues(TrendSide::Left);
    QWidget* const canvas = window.plot->canvas();
    const QPoint foot(canvas->width() / 2, canvas->height() - 2);
    QWheelEvent wheel(foot, canvas->mapToGlobal(foot), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas, &wheel);
    window.waitUntilDrawn();
    const kxpanel::TrendView::Range after = window.plot->shownValues(TrendSide::Left);
    QCOMPARE(after.low, before.low);
    QCOMPARE(after.high, before.low + (before.high - before.low) / 1.25);
}

void TrendPageTest::theMiddleButtonPans()
{
    Window window;
    window.key(Qt::Key_Space);
    window.waitUntilDrawn();
    const QWidget* canvas = window.plot->canvas();
    const QPoint begin(canvas->width() / 4, 50);
    const QPoint end(canvas->width() / 2, 60);
    const qint64 to = window.to();
    const qint64 quarter = window.plot->timeAt(end.x()) - window.plot->timeAt(begin.x());
    window.drag(Qt::MiddleButton, begin, end);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - (to - quarter)) <= 150);
    window.drag(Qt::LeftButton, end, begin, Qt::ShiftModifier);
    window.waitUntilDrawn();
    QVERIFY(qAbs(window.to() - to) <= 150);
}

void TrendPageTest::cursorsByKeyAndMouse()
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

void TrendPageTest::cursorsStayWhereTheyAreSeen()
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

void TrendPageTest::anotherButtonWhileDragging()
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

void TrendPageTest::anyNumbersAreDrawn_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");

    QTest::newRow("as far apart as numbers can be") << -1.7e308 << 1.7e308;
    QTest::newRow("as near as they can be") << 0.0 << 5e-324;
    QTest::newRow("neighbours") << 1e15 << 1e15 + 0.125;
    QTest::newRow("equal, and large") << 1.7e308 << 1.7e308;
    QTest::newRow("equal, and small") << 5e-324 << 5e-324;
}

void TrendPageTest::anyNumbersAreDrawn()
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

void TrendPageTest::eachUnitHasItsScale()
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

/// Curves that go from edge to edge in each column cost about as much as a line in each column. A
/// polyline wider than a pixel, which crosses itself thousands of times, costs forty times that.
void TrendPageTest::aPlotFullOfCurvesIsDrawnAtOnce()
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

/// What was zoomed to and pointed at was about other values.
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

/// The line keeps the clock that it was opened with; the system's may be set back meanwhile.
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
    QVERIFY(qAbs(window.to() - now) < 2000);
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

void TrendPageTest::picturesAreSaved()
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

void TrendPageTest::lettersOfAnSvgAreThoseOfThePlot()
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

void TrendPageTest::lowLanesHaveNoLabels()
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

void TrendPageTest::aRecordingIsOpened()
{
    QTemporaryDir folder;
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    window.page.files()->saveValues(folder.filePath("plot.csv"));
    QCOMPARE(window.said.last().at(0).toString(),
             QString("Saving %1 \u2026").arg(folder.filePath("plot.csv")));
    window.page.files()->saveValues(folder.filePath("other.csv"));
    QCOMPARE(window.said.last().at(0).toString(),
             folder.filePath("plot.csv") + " is still being saved");
    QTRY_COMPARE(window.said.last().at(0).toString(), folder.filePath("plot.csv") + " is saved");
    QVERIFY(!QFile::exists(folder.filePath("other.csv")));

    Window other;
    QVERIFY(!other.action("showRecording")->isEnabled());
    other.page.files()->open(folder.filePath("plot.csv"));
    QTRY_COMPARE(other.legend->rowCount(), 1);
    other.waitUntilDrawn();
    QCOMPARE(other.text(0, TrendLegend::Name), QString("Pressure (recorded)"));
    QVERIFY(!other.action("live")->isChecked());
    QCOMPARE(other.from(), window.firstRead);
    QVERIFY(other.pixelsOf(BLUE) > 100);
    QVERIFY(other.said.last().at(0).toString().startsWith(folder.filePath("plot.csv")));
    other.key(Qt::Key_Home); // and back
    other.waitUntilDrawn();
    QVERIFY(other.from() != window.firstRead);
    other.key(Qt::Key_R);
    other.waitUntilDrawn();
    QCOMPARE(other.from(), window.firstRead);
    other.page.files()->open(folder.filePath("none.csv"));
    QVERIFY(other.said.last().at(0).toString().startsWith(folder.filePath("none.csv") + ": "));
    QCOMPARE(other.legend->rowCount(), 1);
}

/// Its last value is not how things are now, though nothing says that the recorder stopped.
void TrendPageTest::aRecordingCountsUntilItsEnd()
{
    kxpanel::TrendChannel channel;
    channel.number = -1;
    channel.name = QStringLiteral("Level (recorded)");
    channel.endsAt = 20000;
    channel.store = std::make_shared<kxpanel::TrendStore>();
    channel.store->append(10000, 700);
    kxpanel::TrendChannel lane = channel;
    lane.number = -2;
    lane.name = QStringLiteral("Tank");
    lane.wanted = kxpanel::TrendAxis::Lane;
    TagList tags;
    kxpanel::TrendChannels channels(&tags);
    channels.setRecorded({channel, lane});
    kxpanel::TrendView view;
    TrendPlot plot(&channels, &view);
    const TrendLegend legend(&channels, &view);
    plot.resize(600, 400);
    view.show(20000, 60000);
    plot.refresh();
    QVERIFY(plot.shownValues(TrendSide::Left).high > 700);
    QVERIFY(svgOf(&plot, legend).contains(">Tank  700 ")); // the lane's lowest and highest
    view.show(20001, 60000);
    plot.refresh();
    QVERIFY(plot.shownValues(TrendSide::Left).high < 700);
    const QByteArray behind = svgOf(&plot, legend);
    QCOMPARE(behind.count(">Tank"), 2); // one of them the legend's
    QVERIFY(!behind.contains(">Tank  700 "));
}

void TrendPageTest::aFileThatCannotBeReadLeavesTheOneBeingRead()
{
    const Recording recording;
    Window window;
    window.page.files()->open(recording.path);
    window.page.files()->open(recording.folder.filePath("none.csv"));
    QTRY_COMPARE(window.legend->rowCount(), 1);
    QVERIFY2(window.said.last().at(0).toString().startsWith(recording.path),
             qPrintable(window.said.last().at(0).toString()));
}

void TrendPageTest::aRecordingGoesWithItsProject()
{
    const Recording recording;
    Window window;
    window.drop({window.numbers.at(0)});
    const QJsonObject project = window.page.layout();
    window.page.files()->open(recording.path);
    QTRY_COMPARE(window.legend->rowCount(), 2);
    QVERIFY(window.action("showRecording")->isEnabled());
    window.page.setLayout(project);
    QCOMPARE(window.legend->rowCount(), 1);
    QCOMPARE(window.text(0, TrendLegend::Name), QString("Pressure"));
    QVERIFY(!window.action("showRecording")->isEnabled());
    window.key(Qt::Key_R);
    QVERIFY(window.action("live")->isChecked());
    window.page.files()->open(recording.path); // which may come back
    QTRY_COMPARE(window.legend->rowCount(), 2);
    QVERIFY(window.action("showRecording")->isEnabled());
}

void TrendPageTest::aFileBeingReadIsNotShownInAnotherProject()
{
    const Recording recording;
    Window window;
    window.page.files()->open(recording.path);
    window.page.setLayout({});
    window.waitUntilDrawn();
    QCOMPARE(window.legend->rowCount(), 0);
    QVERIFY(window.action("live")->isChecked());
    QCOMPARE(window.said.last().at(0).toString(), recording.path + " is no longer read");
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
