// What a person writes from the page. Most have no line: writes end at once, in vain.

#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "tools/kxpanel/grid/watch_page_fixture.h"

#include <QtCore/QScopeGuard>
#include <QtWidgets/QLayout>
#include <QtWidgets/QPlainTextEdit>

using namespace kxpanel;

class WatchPageWritesTest : public WatchPageFixture
{
    Q_OBJECT

private slots:
    void init() { makePage(); }
    void cleanup() { m_page.reset(); }
    void enterWritesAndSaysWhyNot();
    void leavingACellWritesNothing_data();
    void leavingACellWritesNothing();
    void aWrongValueIsExplainedAndNotSent();
    void spaceSwitchesAKnownBit();
    void clicksOnTheSwitchAlone();
    void rowsThatHaveJustMovedAreNotSwitched_data();
    void rowsThatHaveJustMovedAreNotSwitched();
    void rowsThatMovedWithThePageAreNotSwitched();
    void whatIsNotKnownIsNotSwitched();
    void whatCanOnlyBeReadSaysWhy();
    void severalAskFirst();
    void writesThatFailAreAllTold();
    void whatIsSelectedIsSwitched();
    void aWriteWhoseRowHasGoneIsTold();
    void escapeCallsOffWhatWaits();
    void editsOfTheListAndEscapeCallAQuestionOff();
    void aControllerConfirmsAWrite();
    void aWriteWithoutAReplyMayBeDone();

private:
    /// Its switch, by the mouse.
    void pressPump();
};

void WatchPageWritesTest::pressPump()
{
    QStyleOptionViewItem option;
    option.rect = m_table->visualRect(m_table->cellOf(3));
    option.fontMetrics = m_table->fontMetrics();
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      switchRect(option).center());
}

void WatchPageWritesTest::enterWritesAndSaysWhyNot()
{
    read(1, {100});
    go(0);
    QTest::keyClick(m_table, Qt::Key_F2);
    QVERIFY(editor());
    QCOMPARE(editor()->text(), QStringLiteral("10.0"));
    editor()->selectAll();
    QTest::keyClicks(editor(), QStringLiteral("12.5"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(state(0).startsWith(QLatin1String("not written: ")), qPrintable(state(0)));
    QCOMPARE(cell(0, WatchModel::Value).data().toString(), QStringLiteral("10.0"));
    QVERIFY2(message().contains(QLatin1String("Pressure = 12.5 not written: ")),
             qPrintable(message()));
}

void WatchPageWritesTest::leavingACellWritesNothing_data()
{
    QTest::addColumn<int>("key"); // 0: the mouse
    QTest::newRow("Escape") << static_cast<int>(Qt::Key_Escape);
    QTest::newRow("Tab") << static_cast<int>(Qt::Key_Tab);
    QTest::newRow("a click elsewhere") << 0;
}

void WatchPageWritesTest::leavingACellWritesNothing()
{
    QFETCH(int, key);
    go(0);
    QTest::keyClick(m_table, Qt::Key_F2);
    editor()->selectAll();
    QTest::keyClicks(editor(), QStringLiteral("5"));
    if (key != 0)
        QTest::keyClick(editor(), static_cast<Qt::Key>(key));
    else
        QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier,
                          m_table->visualRect(cell(3, WatchModel::Name)).center());
    QTRY_VERIFY(!editor() || !editor()->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    QCOMPARE(state(0), QStringLiteral("never read"));
}

void WatchPageWritesTest::aWrongValueIsExplainedAndNotSent()
{
    go(0);
    QTest::keyClicks(m_table, QStringLiteral("1"));
    QVERIFY(editor());
    QTest::keyClicks(editor(), QStringLiteral("7"));
    QCOMPARE(message().mid(2),
             QStringLiteral("Pressure=17: 17 is refused; it must be at least 0 and at most 16"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(editor());
    QCOMPARE(m_ended->size(), 0);
    editor()->setText(QStringLiteral("7")); // as pasted by the mouse
    QCOMPARE(message(), QString());
    go(3); // Enter was for what did not fit
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
}

void WatchPageWritesTest::spaceSwitchesAKnownBit()
{
    read(3, {1});
    go(2);
    QTest::keyClick(m_table, Qt::Key_Space);
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pump = 0 not written: ")), qPrintable(message()));
}

void WatchPageWritesTest::clicksOnTheSwitchAlone()
{
    read(3, {0});
    QStyleOptionViewItem option;
    option.rect = m_table->visualRect(cell(2, WatchModel::Value));
    option.fontMetrics = m_table->fontMetrics();
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      option.rect.center() + QPoint(option.rect.width() / 4, 0));
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      switchRect(option).center());
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      switchRect(option).center());
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pump = 1 not written: ")), qPrintable(message()));
}

void WatchPageWritesTest::rowsThatHaveJustMovedAreNotSwitched_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<int>("above"); // pixels that something takes there
    QTest::addColumn<int>("below"); // the same
    QTest::addColumn<int>("ago");   // milliseconds
    QTest::addColumn<int>("writes");
    QTest::newRow("rows above went") << "Pump" << 0 << 0 << 499 << 0;
    QTest::newRow("something came above") << "" << 60 << 0 << 499 << 0;
    QTest::newRow("something came below") << "" << 0 << 60 << 0 << 1;
    QTest::newRow("rows below went") << "1" << 0 << 0 << 0 << 1;
    QTest::newRow("rows above went long ago") << "Pump" << 0 << 0 << 500 << 1;
    QTest::newRow("something came above long ago") << "" << 60 << 0 << 500 << 1;
}

// Who aims at a switch would hit that of the row that came there.
void WatchPageWritesTest::rowsThatHaveJustMovedAreNotSwitched()
{
    QFETCH(QString, filter);
    QFETCH(int, above);
    QFETCH(int, below);
    QFETCH(int, ago);
    read(3, {0});
    const int height = m_table->height();
    m_page->findChild<WatchFilter*>()->setText(filter);
    QMargins margins = m_page->QWidget::layout()->contentsMargins();
    margins += QMargins(0, above, 0, below);
    m_page->QWidget::layout()->setContentsMargins(margins);
    QTRY_COMPARE(m_table->height(), height - above - below);
    m_now += ago;
    pressPump();
    QTRY_VERIFY(!message().isEmpty());
    QTEST(static_cast<int>(m_ended->size()), "writes");
    QCOMPARE(message().endsWith(QLatin1String("The rows have just moved; press the switch again")),
             m_ended->isEmpty());
    const bool hasMoved = m_table->hasJustMoved(m_table->cellOf(3));
    QCOMPARE(hasMoved, m_ended->isEmpty()); // a message moves nothing
}

// On a small screen the page is as small as it can be: what comes above it makes it no smaller.
void WatchPageWritesTest::rowsThatMovedWithThePageAreNotSwitched()
{
    read(3, {0});
    QWidget window;
    m_page->setParent(&window);
    const auto takeBack = qScopeGuard([this] { m_page->setParent(nullptr); });
    window.resize(m_page->width(), m_page->height() + 60);
    window.show();
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    m_now += 1000;
    m_page->move(0, 60);
    pressPump();
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    m_now += 500;
    pressPump();
    QTRY_COMPARE(m_ended->size(), 1);
}

void WatchPageWritesTest::whatIsNotKnownIsNotSwitched()
{
    go(2);
    QTest::keyClick(m_table, Qt::Key_Space);
    QCOMPARE(message().mid(2),
             QStringLiteral("The value of Pump is not known now; type 0 or 1 to write it"));
    read(2, {1});
    go(1);
    QTest::keyClick(m_table, Qt::Key_Space);
    QCOMPARE(message().mid(2), QStringLiteral("X17 is an input and can only be read"));
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
}

void WatchPageWritesTest::whatCanOnlyBeReadSaysWhy()
{
    go(1);
    QTest::keyClick(m_table, Qt::Key_F2);
    QCOMPARE(message().mid(2), QStringLiteral("X17 is an input and can only be read"));
    go(1, WatchModel::Raw);
    QTest::keyClick(m_table, Qt::Key_F2);
    QCOMPARE(message().mid(2), QStringLiteral("Raw cannot be edited"));
}

void WatchPageWritesTest::severalAskFirst()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_table->select({3, 4});
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(bar->isVisible());
    QTest::keyClicks(bar->edit(), QStringLiteral("1"));
    QCOMPARE(m_ended->size(), 0);
    QTest::keyClick(bar->edit(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 2);
    QVERIFY(!bar->isVisible());
    QVERIFY(state(2).startsWith(QLatin1String("not written")));
    QVERIFY(state(3).startsWith(QLatin1String("not written")));
}

void WatchPageWritesTest::writesThatFailAreAllTold()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_table->select({3, 4});
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(bar->edit(), QStringLiteral("1"));
    QTest::keyClick(bar->edit(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 2);
    QCOMPARE(message().mid(2), QStringLiteral("2 of 2 values not confirmed"));
    const QStringList faults =
        m_page->findChild<QPlainTextEdit*>()->toPlainText().split(QLatin1Char('\n'));
    QCOMPARE(faults.size(), 2);
    QVERIFY2(faults.at(0).startsWith(QLatin1String("Pump = 1 not written: ")),
             qPrintable(faults.at(0)));
    QVERIFY2(faults.at(1).startsWith(QLatin1String("D0 = 1 not written: ")),
             qPrintable(faults.at(1)));
}

void WatchPageWritesTest::whatIsSelectedIsSwitched()
{
    m_tags->insert(4, {tagOf("Y11", "Horn")}); // number 5
    read(3, {1});
    read(5, {1});
    m_table->select({3});
    m_table->selectionModel()->setCurrentIndex(cell(4, WatchModel::Value),
                                               QItemSelectionModel::NoUpdate);
    QTest::keyClick(m_table, Qt::Key_Space);
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pump = 0 not written: ")), qPrintable(message()));
    m_table->clearSelection(); // the current row is none that is seen to be meant
    QTest::keyClick(m_table, Qt::Key_Space);
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QCoreApplication::processEvents();
    QVERIFY(!editor());
    QCOMPARE(m_ended->size(), 1);
}

void WatchPageWritesTest::aWriteWhoseRowHasGoneIsTold()
{
    m_table->model()->setData(cell(0, WatchModel::Value), QStringLiteral("12.5"));
    m_tags->remove({1});
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pressure = 12.5 not written: ")),
             qPrintable(message()));
}

void WatchPageWritesTest::escapeCallsOffWhatWaits()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_table->select({3, 4});
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(bar->edit(), QStringLiteral("1"));
    QTest::keyClick(bar->edit(), Qt::Key_Return);
    QTest::keyClick(m_table, Qt::Key_Escape);
    QCOMPARE(message().mid(2), QStringLiteral("D0 = 1 not written: called off before it was sent"));
    QTRY_COMPARE(m_ended->size(), 1);
}

void WatchPageWritesTest::editsOfTheListAndEscapeCallAQuestionOff()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_table->selectAll();
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(bar->isVisible());
    m_tags->remove({4});
    QVERIFY(!bar->isVisible());
    m_table->selectAll();
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(bar->isVisible());
    QTest::keyClicks(bar->edit(), QStringLiteral("1"));
    QTest::keyClick(bar->edit(), Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    QCOMPARE(m_ended->size(), 0);
}

void WatchPageWritesTest::aControllerConfirmsAWrite()
{
    m_tags->setValues({{9, tagOf("D7000/s16*0.1", "Limit")}});
    connect(m_machine.get(), &Machine::valuesRead, m_tags.get(), &TagList::takeReadings);
    m_machine->setValues(m_tags->values());
    m_machine->openLine(simulated());
    QTRY_COMPARE(cell(0, WatchModel::Value).data().toString(), QStringLiteral("0.0"));
    go(0);
    QTest::keyClick(m_table, Qt::Key_F2);
    QTest::keyClicks(editor(), QStringLiteral("12.5"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(state(0), QStringLiteral("written"));
    QCOMPARE(message(), QStringLiteral("Limit = 12.5 written"));
    QTRY_COMPARE(m_tags->reading(9).raw, QList<qint64>{125});
}

// Of a reply that is lost the controller knows nothing: it has the value.
void WatchPageWritesTest::aWriteWithoutAReplyMayBeDone()
{
    m_tags->setValues({{9, tagOf("D7000/s16*0.1", "Limit")}});
    kx::ConnectionOptions options = simulated();
    options.faults.chances = {{kxsim::Fault::Silence, 1}};
    options.session.retries = 1;
    options.session.exchange.replyTimeout = 50;
    const MachineLog log(m_machine.get());
    m_machine->openLine(options);
    QTRY_VERIFY(log.states.contains(QStringLiteral("open")));
    go(0);
    QTest::keyClick(m_table, Qt::Key_F2);
    QTest::keyClicks(editor(), QStringLiteral("12.5"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 1);
    QTRY_COMPARE(
        message().mid(2),
        QStringLiteral("Limit = 12.5 not confirmed: no reply; the controller may have it"));
    QCOMPARE(state(0), QStringLiteral("not confirmed: no reply"));
}

QTEST_MAIN(WatchPageWritesTest)
#include "tst_watch_page_writes.moc"
