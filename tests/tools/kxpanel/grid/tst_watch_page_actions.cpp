// What a person does to the list, by keys and menus.

#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/edit/filter_line.h"
#include "kxpanel/grid/edit/write_bar.h"
#include "tools/kxpanel/grid/watch_page_fixture.h"

#include <QAction>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

using namespace kxpanel;

class WatchPageActionsTest : public WatchPageFixture
{
    Q_OBJECT

private slots:
    void init() { makePage(); }
    void cleanup() { m_page.reset(); }
    void typedAddressesAreAdded();
    void escapeTakesBackATypedAddress();
    void undoesAndRedoes();
    void keysOfTheTableAreItsAlone();
    void movesRows();
    void filtersAndShowsAllAgain();
    void tellsOfAddedRowsThatAreHidden();
    void eachActionHasALetterOfItsOwn();
    void columnsAreChosenInAMenu();
};

void WatchPageActionsTest::typedAddressesAreAdded()
{
    QTest::keyClick(m_table, Qt::Key_Insert);
    QWidget* const edit = QApplication::focusWidget();
    QTest::keyClicks(edit, QStringLiteral("M0:3"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_tags->size(), 7);
    QCOMPARE(m_table->selectedNumbers(), (QList<int>{5, 6, 7}));
    QCOMPARE(message(), QStringLiteral("3 values added"));
}

// Its reason goes with it.
void WatchPageActionsTest::escapeTakesBackATypedAddress()
{
    QTest::keyClick(m_table, Qt::Key_Insert);
    auto* const edit = m_page->findChild<AddLine*>()->edit();
    QTest::keyClicks(edit, QStringLiteral("D9999"));
    QVERIFY(!message().isEmpty());
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(edit->text(), QString());
    QCOMPARE(message(), QString());
    QVERIFY(m_table->hasFocus());
    QCOMPARE(m_tags->size(), 4);
}

void WatchPageActionsTest::undoesAndRedoes()
{
    go(1);
    QTest::keyClick(m_table, Qt::Key_Delete);
    QCOMPARE(m_tags->size(), 3);
    QTest::keyClick(m_table, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 4);
    QCOMPARE(m_tags->rowOf(2), 1);
    QTest::keyClick(m_table, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 3);
}

void WatchPageActionsTest::keysOfTheTableAreItsAlone()
{
    read(3, {1});
    go(2);
    auto* const states = m_page->findChild<FilterLine*>()->findChild<QComboBox*>();
    states->setFocus();
    QTest::keyClick(states, Qt::Key_Space);
    states->hidePopup();
    QTest::keyClick(states, Qt::Key_Delete);
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    QCOMPARE(m_tags->size(), 4);

    auto* const bar = m_page->findChild<WriteBar*>();
    m_table->select({3, 4});
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    auto* const cancel = bar->findChildren<QPushButton*>().last();
    cancel->setFocus();
    QTest::keyClick(cancel, Qt::Key_Space);
    QVERIFY(!bar->isVisible());
}

void WatchPageActionsTest::movesRows()
{
    m_table->select({3, 4});
    QTest::keyClick(m_table, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(m_tags->rowOf(3), 1);
    QCOMPARE(m_table->selectedNumbers(), (QList<int>{3, 4}));
    QTest::keyClick(m_table, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(m_tags->rowOf(3), 2);
    QTest::keyClick(m_table, Qt::Key_Down, Qt::AltModifier); // at the end
    QCOMPARE(m_tags->rowOf(3), 2);
    m_table->sortByColumn(WatchModel::Name, Qt::AscendingOrder);
    QTest::keyClick(m_table, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(m_tags->rowOf(3), 2);
    QVERIFY2(message().contains(QLatin1String("Shift+F5")), qPrintable(message()));
}

void WatchPageActionsTest::filtersAndShowsAllAgain()
{
    QTest::keyClick(m_table, Qt::Key_F, Qt::ControlModifier);
    QWidget* const edit = QApplication::focusWidget();
    QTest::keyClicks(edit, QStringLiteral("pump"));
    QCOMPARE(m_table->model()->rowCount(), 1);
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(m_table->model()->rowCount(), 4);
    QVERIFY(m_table->hasFocus());
}

void WatchPageActionsTest::tellsOfAddedRowsThatAreHidden()
{
    auto* const filter = m_page->findChild<FilterLine*>()->findChild<QLineEdit*>();
    filter->setText(QStringLiteral("Pump"));
    go(0);
    auto* const typed = m_page->findChild<AddLine*>()->edit();
    QTest::keyClicks(typed, QStringLiteral("D7"));
    QTest::keyClick(typed, Qt::Key_Return);
    QCOMPARE(message(), QStringLiteral("1 values added; the filter hides some"));
}

// In a menu one letter would mean two things.
void WatchPageActionsTest::eachActionHasALetterOfItsOwn()
{
    QMap<QString, QString> actions; // by letter
    for (const QAction* const action : m_page->actions()) {
        const int mark = static_cast<int>(action->text().indexOf(QLatin1Char('&')));
        if (mark < 0)
            continue;
        const QString letter = action->text().mid(mark + 1, 1).toUpper();
        QVERIFY2(!actions.contains(letter),
                 qPrintable(action->text() + QLatin1String(" and ") + actions.value(letter)));
        actions.insert(letter, action->text());
    }
    QVERIFY(actions.size() > 10);
}

// A heading cannot have the keyboard.
void WatchPageActionsTest::columnsAreChosenInAMenu()
{
    for (const QWidget* const place :
         {static_cast<QWidget*>(m_page.get()), static_cast<QWidget*>(m_table)}) {
        QMenu* menu = nullptr;
        for (const QAction* const action : place->actions())
            menu = action->menu() ? action->menu() : menu;
        QVERIFY(menu);
        QCOMPARE(menu->actions().size(), 12);
        menu->setActiveAction(menu->actions().at(WatchModel::Name));
        QTest::keyClick(menu, Qt::Key_Down);
        const bool wasHidden = m_table->isColumnHidden(WatchModel::Station);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(m_table->isColumnHidden(WatchModel::Station), !wasHidden);
    }
}

QTEST_MAIN(WatchPageActionsTest)
#include "tst_watch_page_actions.moc"
