// How values come into a trend.

#include "kxpanel/trend/plot/trend_drop.h"
#include "tools/kxpanel/trend/trend_page_fixture.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QLineEdit>

using kxpanel::BLUE;
using kxpanel::TrendLegend;
using kxpanel::Window;

class TrendPageValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreDroppedAndDrawn();
    void valuesAreNamedByKeyboard();
    void aNameIsCompletedByKeyboard();
    void otherDropsAreRefused();
    void whatAnotherProgramDragsIsRefused();
    void aDropNeverTakesAwayFromTheList();
};

void TrendPageValuesTest::valuesAreDroppedAndDrawn()
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

void TrendPageValuesTest::valuesAreNamedByKeyboard()
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

void TrendPageValuesTest::aNameIsCompletedByKeyboard()
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

void TrendPageValuesTest::otherDropsAreRefused()
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

void TrendPageValuesTest::whatAnotherProgramDragsIsRefused()
{
    Window window;
    QMimeData* const data = kxpanel::valuesData(window.numbers);
    data->setData(QLatin1String(kxpanel::PROCESS_MIME_TYPE), "1");
    kxpanel::ValueDrag drag(&window.page, data);
    drag.moveTo(window.plot->canvas());
    QCOMPARE(drag.drop(), Qt::IgnoreAction);
    QCOMPARE(window.legend->rowCount(), 0);
}

void TrendPageValuesTest::aDropNeverTakesAwayFromTheList()
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

QTEST_MAIN(TrendPageValuesTest)
#include "tst_trend_page_values.moc"
