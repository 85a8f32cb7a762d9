// Mouse and keyboard on the page. Most have no line: writes end at once, in vain.

#include "kxpanel/grid/watch_page.h"

#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/edit/filter_line.h"
#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QSignalSpy>

#include <QAction>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtGui/QClipboard>
#include <QtGui/QDropEvent>
#include <QtGui/QTextDocument>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

using namespace kxpanel;

namespace
{

/// A language with long words.
class LongHeadings : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "kxpanel::WatchModel") == 0
                   ? QStringLiteral("as long as three words, %1").arg(QLatin1String(text))
                   : QString();
    }
};

} // namespace

class WatchPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void typedAddressesAreAdded();
    void undoesAndRedoes();
    void cutsAndPastes();
    void copiesWhatIsShown();
    void aTextIsCopiedAsOne();
    void enterWritesAndSaysWhyNot();
    void leavingACellWritesNothing_data();
    void leavingACellWritesNothing();
    void aWrongValueIsExplainedAndNotSent();
    void aNameIsEditedInPlace();
    void spaceSwitchesAKnownBit();
    void clicksOnTheSwitchAlone();
    void whatIsNotKnownIsNotSwitched();
    void severalAskFirst();
    void writesThatFailAreAllTold();
    void keysOfTheTableAreItsAlone();
    void whatIsSelectedIsSwitched();
    void anEditorKeepsWhatIsTyped();
    void anEditedRowIsNotFilteredAway();
    void aWriteWhoseRowHasGoneIsTold();
    void rowsOfAnotherProgramAreNotMoved();
    void manyAreSelectedAsOne();
    void namesAreNoMarkup();
    void valuesArePastedAfterAQuestion_data();
    void valuesArePastedAfterAQuestion();
    void aTextIsPastedOnCellsOfValuesAlone();
    void thousandsAreNotTakenForDecimals();
    void valuesThatDoNotFitAreNotPasted_data();
    void valuesThatDoNotFitAreNotPasted();
    void escapeCallsOffWhatWaits();
    void goesByTheClockOfTheLine();
    void agesGoOnWhenTheClockIsSetBack();
    void withoutALineNothingIsKnown();
    void savesTags();
    void whatCannotBeSavedIsSaid();
    void membersOfOthersAreKept();
    void editsOfTheListAndEscapeCallAQuestionOff();
    void movesRows();
    void filtersAndShowsAllAgain();
    void whatIsSelectedStaysSoWhenRowsAreHidden_data();
    void whatIsSelectedStaysSoWhenRowsAreHidden();
    void opensTags();
    void savedTagsAreOpenedAsTheyWere();
    void tellsOfAddedRowsThatAreHidden();
    void showsAllFaultsOfATagsFile();
    void layoutIsKept();
    void eachActionHasALetterOfItsOwn();
    void columnsAreChosenInAMenu();
    void headingsAreNotCutOff();
    void aPageThatIsNotSeenPaintsNothing();
    void onlyRowsThatAreSeenArePainted();
    void aControllerConfirmsAWrite();

private:
    QModelIndex cell(int row, int column) const { return m_table->model()->index(row, column); }
    void go(int row, int column = WatchModel::Value)
    {
        m_table->setCurrentIndex(cell(row, column));
    }
    QLineEdit* editor() const { return m_table->viewport()->findChild<QLineEdit*>(); }
    QString message() const;
    QString state(int row) const;
    void read(int number, const QList<qint64>& raw);

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<TagList> m_tags;
    std::unique_ptr<WatchPage> m_page;
    WatchTable* m_table = nullptr;
    std::unique_ptr<QSignalSpy> m_ended;
};

void WatchPageTest::init()
{
    m_machine.reset(new Machine);
    m_tags.reset(new TagList);
    m_tags->setValues({{1, tagOf("D100/s16*0.1,min=0,max=16,unit=bar", "Pressure")},
                       {2, tagOf("X17@2", "Ready")},
                       {3, tagOf("Y10", "Pump")},
                       {4, tagOf("D0")}});
    m_page.reset(new WatchPage({m_machine.get(), m_tags.get()}));
    m_table = m_page->findChild<WatchTable*>();
    m_ended.reset(new QSignalSpy(m_machine.get(), &Machine::jobEnded));
    m_page->resize(1000, 500);
    m_page->show();
    QApplication::setActiveWindow(m_page.get());
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_table->setFocus();
}

void WatchPageTest::cleanup()
{
    m_page.reset();
}

QString WatchPageTest::message() const
{
    for (const QLabel* const label : m_page->findChildren<QLabel*>()) {
        if (label->accessibleName() == QLatin1String("Message"))
            return label->text();
    }
    return QString();
}

QString WatchPageTest::state(int row) const
{
    return cell(row, WatchModel::State).data().toString().mid(2);
}

void WatchPageTest::read(int number, const QList<qint64>& raw)
{
    m_tags->takeReadings({readingOf(number, raw, QDateTime::currentMSecsSinceEpoch())});
}

void WatchPageTest::typedAddressesAreAdded()
{
    QTest::keyClick(m_table, Qt::Key_Insert);
    QWidget* const edit = QApplication::focusWidget();
    QTest::keyClicks(edit, QStringLiteral("M0:3"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_tags->size(), 7);
    QCOMPARE(m_table->selectedNumbers(), (QList<int>{5, 6, 7}));
    QCOMPARE(message(), QStringLiteral("3 values added"));
}

void WatchPageTest::undoesAndRedoes()
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

void WatchPageTest::cutsAndPastes()
{
    go(0);
    QTest::keyClick(m_table, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 3);
    go(1);
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 4);
    QCOMPARE(m_tags->values().at(2).tag.name, QStringLiteral("Pressure"));
    QCOMPARE(typedText(m_tags->values().at(2).tag),
             QStringLiteral("D100@1/s16*0.1,min=0,max=16,unit=bar"));
    QApplication::clipboard()->setText(QStringLiteral("D5\nD9999\n"));
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 4);
    QVERIFY2(message().contains(QLatin1String("Nothing pasted: row 2: D9999: ")),
             qPrintable(message()));
}

void WatchPageTest::copiesWhatIsShown()
{
    read(1, {125});
    for (QAction* const action : m_table->columnActions())
        action->setChecked(action->text() == QLatin1String("Name")
                           || action->text() == QLatin1String("Value"));
    go(0);
    QTest::keyClick(m_table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Name\tValue\nPressure\t12.5\n"));
    const QString html = QApplication::clipboard()->mimeData()->html();
    QVERIFY2(html.contains("<tr><td sdnum=\"1033;0;@\">Pressure</td>"
                           "<td sdval=\"12.5\" sdnum=\"1033;0;0.0\">12.5</td></tr>"),
             qPrintable(html));
}

void WatchPageTest::aTextIsCopiedAsOne()
{
    m_tags->setValues({{1, tagOf("D130/ascii:4", "Batch")}});
    read(1, {0x3030, 0x3720, 0x0000, 0x0000}); // "007 "
    go(0);
    QTest::keyClick(m_table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QString html = QApplication::clipboard()->mimeData()->html();
    QVERIFY2(html.contains("<td sdnum=\"1033;0;@\">007&#32;</td>"), qPrintable(html));
}

void WatchPageTest::enterWritesAndSaysWhyNot()
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

void WatchPageTest::leavingACellWritesNothing_data()
{
    QTest::addColumn<int>("key"); // 0: the mouse
    QTest::newRow("Escape") << static_cast<int>(Qt::Key_Escape);
    QTest::newRow("Tab") << static_cast<int>(Qt::Key_Tab);
    QTest::newRow("a click elsewhere") << 0;
}

void WatchPageTest::leavingACellWritesNothing()
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

void WatchPageTest::aWrongValueIsExplainedAndNotSent()
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

void WatchPageTest::aNameIsEditedInPlace()
{
    go(3, WatchModel::Name);
    QTest::keyClick(m_table, Qt::Key_F2);
    QTest::keyClicks(editor(), QStringLiteral("Speed"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_tags->find(4)->tag.name, QStringLiteral("Speed"));
    QCOMPARE(m_page->undoStack()->count(), 1);
}

void WatchPageTest::spaceSwitchesAKnownBit()
{
    read(3, {1});
    go(2);
    QTest::keyClick(m_table, Qt::Key_Space);
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pump = 0 not written: ")), qPrintable(message()));
}

void WatchPageTest::clicksOnTheSwitchAlone()
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

void WatchPageTest::whatIsNotKnownIsNotSwitched()
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

void WatchPageTest::severalAskFirst()
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

void WatchPageTest::writesThatFailAreAllTold()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_table->select({3, 4});
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(bar->edit(), QStringLiteral("1"));
    QTest::keyClick(bar->edit(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 2);
    QCOMPARE(message().mid(2), QStringLiteral("2 of 2 values not written"));
    const QStringList faults =
        m_page->findChild<QPlainTextEdit*>()->toPlainText().split(QLatin1Char('\n'));
    QCOMPARE(faults.size(), 2);
    QVERIFY2(faults.at(0).startsWith(QLatin1String("Pump = 1 not written: ")),
             qPrintable(faults.at(0)));
    QVERIFY2(faults.at(1).startsWith(QLatin1String("D0 = 1 not written: ")),
             qPrintable(faults.at(1)));
}

void WatchPageTest::keysOfTheTableAreItsAlone()
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

void WatchPageTest::whatIsSelectedIsSwitched()
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

void WatchPageTest::anEditorKeepsWhatIsTyped()
{
    go(0); // never read
    QTest::keyClick(m_table, Qt::Key_F2);
    read(1, {100});
    m_table->refreshVisible();
    QCOMPARE(editor()->text(), QString());
    QTest::keyClicks(editor(), QStringLiteral("5"));
    read(1, {101});
    m_table->refreshVisible();
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pressure = 5.0 not written: ")),
             qPrintable(message()));
}

void WatchPageTest::anEditedRowIsNotFilteredAway()
{
    auto* const states = m_page->findChild<FilterLine*>()->findChild<QComboBox*>();
    states->setCurrentIndex(static_cast<int>(StateFilter::NotRead));
    go(0);
    QTest::keyClick(m_table, Qt::Key_F2);
    QTest::keyClicks(editor(), QStringLiteral("5"));
    read(1, {100});
    m_table->refreshVisible();
    QTest::qWait(600); // states are looked at twice a second
    QVERIFY(editor());
    QCOMPARE(editor()->text(), QStringLiteral("5"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    QTRY_COMPARE(m_table->model()->rowCount(), 3);
}

void WatchPageTest::aWriteWhoseRowHasGoneIsTold()
{
    m_table->model()->setData(cell(0, WatchModel::Value), QStringLiteral("12.5"));
    m_tags->remove({1});
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(message().contains(QLatin1String("Pressure = 12.5 not written: ")),
             qPrintable(message()));
}

// They bring numbers of values, which are other values here.
void WatchPageTest::rowsOfAnotherProgramAreNotMoved()
{
    QMimeData data;
    data.setData(QString::fromLatin1(VALUES_MIME_TYPE), "1\n");
    QDragEnterEvent enter(m_table->visualRect(cell(3, 0)).center(), Qt::MoveAction, &data,
                          Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_table->viewport(), &enter);
    QVERIFY(!enter.isAccepted());
    QDropEvent drop(m_table->visualRect(cell(3, 0)).bottomLeft(), Qt::MoveAction, &data,
                    Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_table->viewport(), &drop);
    QCOMPARE(m_tags->rowOf(1), 0);
}

// Else each cell that is painted looks through as many ranges as there are rows.
void WatchPageTest::manyAreSelectedAsOne()
{
    QTest::keyClick(m_table, Qt::Key_Insert);
    QWidget* const edit = QApplication::focusWidget();
    QTest::keyClicks(edit, QStringLiteral("D1000:500"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_table->selectedNumbers().size(), 500);
    QCOMPARE(m_table->selectionModel()->selection().size(), 1);
    m_table->select({1, 3, 4});
    QCOMPARE(m_table->selectedNumbers(), (QList<int>{1, 3, 4}));
    QCOMPARE(m_table->selectionModel()->selection().size(), 2);
}

void WatchPageTest::namesAreNoMarkup()
{
    m_tags->setValues({{1, tagOf("D0", "<h1>Pump</h1>")}});
    for (const QLabel* const label : m_page->findChildren<QLabel*>()) {
        const bool isOfValues = label->accessibleName() == QLatin1String("Message")
                                || label->parentWidget() == m_page->findChild<WriteBar*>();
        QVERIFY(!isOfValues || label->textFormat() == Qt::PlainText);
    }
    const QString tip = cell(0, WatchModel::Name).data(Qt::ToolTipRole).toString();
    QVERIFY2(!Qt::mightBeRichText(tip) || tip.contains(QLatin1String("&lt;h1&gt;Pump")),
             qPrintable(tip));
}

void WatchPageTest::valuesArePastedAfterAQuestion_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QString>("question");
    QTest::newRow("one for each row")
        << "1\r\n7\r\n"
        << QList<int>{3, 4} << "Write 2 values of station 1: Pump = 1, D0 = 7.";
    QTest::newRow("from the selected row on") << "0\n65535\n"
                                              << QList<int>{3}
                                              << "Write 2 values of station 1: Pump = 0, "
                                                 "D0 = 65535.";
    QTest::newRow("one for all") << "1" << QList<int>{1, 3, 4}
                                 << "Write 3 values of station 1: Pressure = 1.0, Pump = 1, "
                                    "D0 = 1.";
    QTest::newRow("for one row") << "2.5\n"
                                 << QList<int>{1} << "Write 1 values of station 1: Pressure = 2.5.";
}

void WatchPageTest::valuesArePastedAfterAQuestion()
{
    QFETCH(QString, text);
    QFETCH(QList<int>, selected);
    QFETCH(QString, question);
    auto* const bar = m_page->findChild<WriteBar*>();
    QApplication::clipboard()->setText(text);
    m_table->select(selected);
    // Rows are what is seen to be selected, whichever column was clicked.
    m_table->selectionModel()->setCurrentIndex(
        m_table->currentIndex().siblingAtColumn(WatchModel::Address),
        QItemSelectionModel::NoUpdate);
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(bar->isVisible(), qPrintable(message()));
    QCOMPARE(bar->findChildren<QLabel*>().first()->text(), question);
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    QCOMPARE(m_tags->size(), 4);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!bar->isVisible());
    QTRY_COMPARE(m_ended->size(), qMax(selected.size(), text.count(QLatin1Char('\n'))));
}

// Elsewhere it may be meant as a name.
void WatchPageTest::aTextIsPastedOnCellsOfValuesAlone()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_tags->setValues({{1, tagOf("D130/ascii:4", "Batch")}});
    QApplication::clipboard()->setText(QStringLiteral("LOT A"));
    go(0, WatchModel::Name);
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!bar->isVisible());
    QVERIFY2(message().contains(QLatin1String("Nothing pasted: row 1: LOT A: ")),
             qPrintable(message()));
    m_table->select({1}); // in the column of values
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(bar->isVisible(), qPrintable(message()));
    QCOMPARE(bar->findChildren<QLabel*>().first()->text(),
             QStringLiteral("Write 1 values of station 1: Batch = LOT A."));
}

// A spreadsheet in German shows 1234 like that where it shows thousands.
void WatchPageTest::thousandsAreNotTakenForDecimals()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_tags->setValues({{1, tagOf("D0/float", "Flow")}, {2, tagOf("D2/float", "Return")}});
    QApplication::clipboard()->setText(QStringLiteral("2,5\n1.234\n"));
    m_table->select({1, 2});
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QLocale::setDefault(QLocale::c());
    QVERIFY(!bar->isVisible());
    QCOMPARE(message().mid(2),
             QStringLiteral("Nothing pasted: the point in 1.234 may stand for thousands; let the "
                            "spreadsheet show no thousands, or type the value"));
    QApplication::clipboard()->setText(QStringLiteral("2.5\n1.234\n"));
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(bar->isVisible(), qPrintable(message()));
}

void WatchPageTest::valuesThatDoNotFitAreNotPasted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QString>("reason");
    QTest::newRow("more than rows") << "1\n2\n3\n"
                                    << QList<int>{3, 4}
                                    << "3 values for other rows: select as many, or the first of "
                                       "them";
    QTest::newRow("past the last row") << "1\n2\n3\n"
                                       << QList<int>{3}
                                       << "3 values for other rows: select as many, or the first "
                                          "of them";
    QTest::newRow("an input among them")
        << "1\n1\n"
        << QList<int>{2, 3} << "X17 is an input and can only be read";
    QTest::newRow("out of its limits") << "99\n5\n"
                                       << QList<int>{1, 4} << "Pressure=99: 99 is refused";
    QTest::newRow("a gap") << "1\n\n1\n" << QList<int>{3, 4} << "row 2 is empty";
    QTest::newRow("a word") << "on\n" << QList<int>{3} << "row 1: on: ";
}

void WatchPageTest::valuesThatDoNotFitAreNotPasted()
{
    QFETCH(QString, text);
    QFETCH(QList<int>, selected);
    QFETCH(QString, reason);
    QApplication::clipboard()->setText(text);
    m_table->select(selected);
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!m_page->findChild<WriteBar*>()->isVisible());
    QVERIFY2(message().mid(2).startsWith(QLatin1String("Nothing pasted: ") + reason),
             qPrintable(message()));
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
    QCOMPARE(m_tags->size(), 4);
}

void WatchPageTest::escapeCallsOffWhatWaits()
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

/// The system's was set back by an hour while the line was open.
void WatchPageTest::goesByTheClockOfTheLine()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch() + 3600000;
    const QVector<Reading> readings = {readingOf(3, {1}, now), readingOf(4, {7}, now - 300000)};
    emit m_machine->valuesRead(readings);
    m_tags->takeReadings(readings);
    QCOMPARE(cell(3, WatchModel::Age).data().toString(), QStringLiteral("5 min"));
    go(3);
    QTest::keyClick(m_table, Qt::Key_F2);
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_ended->size(), 1);
    QVERIFY2(state(3).startsWith(QLatin1String("not written")), qPrintable(state(3)));
}

void WatchPageTest::agesGoOnWhenTheClockIsSetBack()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch() + 3600000;
    emit m_machine->valuesRead({readingOf(4, {7}, now)});
    emit m_machine->clockSet(-3600000);
    const QVector<Reading> toldAgain = {readingOf(4, {7}, now - 3600000 - 300000)};
    emit m_machine->valuesRead(toldAgain);
    m_tags->takeReadings(toldAgain);
    QCOMPARE(cell(3, WatchModel::Age).data().toString(), QStringLiteral("5 min"));
}

void WatchPageTest::withoutALineNothingIsKnown()
{
    LineStatus status;
    status.state = LineState::Open;
    emit m_machine->lineChanged(status);
    read(3, {1});
    QCOMPARE(state(2), QStringLiteral("ok"));
    status.state = LineState::Interrupted;
    emit m_machine->lineChanged(status);
    QCOMPARE(state(2), QStringLiteral("no line"));
    go(2);
    QTest::keyClick(m_table, Qt::Key_Space);
    QCOMPARE(message().mid(2),
             QStringLiteral("The value of Pump is not known now; type 0 or 1 to write it"));
    QCoreApplication::processEvents();
    QCOMPARE(m_ended->size(), 0);
}

void WatchPageTest::savesTags()
{
    kx::Tag odd = tagOf("D7@2/float,unit=bar", "Flow, \"main\"");
    odd.comment = QStringLiteral("one\ntwo");
    odd.interval = 500;
    m_tags->insert(4, {odd, tagOf("D0@2")});
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QVERIFY(m_page->saveTags(path));
    QCOMPARE(message(), QStringLiteral("6 values saved in ") + path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray("name,station,address,count,every,format,order,scale,offset,unit,"
                        "decimals,min,max,comment\n"
                        "Pressure,1,D100,,,s16,,0.1,,bar,,0,16,\n"
                        "Ready,2,X17,,,,,,,,,,,\n"
                        "Pump,1,Y10,,,,,,,,,,,\n"
                        "D0,1,D0,,,,,,,,,,,\n"
                        "\"Flow, \"\"main\"\"\",2,D7,,500ms,float,,,,bar,,,,one two\n"
                        "D0@2,2,D0,,,,,,,,,,,\n"));
    QVERIFY(m_page->openTags(path)); // as kxhost reads it
    QCOMPARE(m_tags->size(), 12);
}

void WatchPageTest::whatCannotBeSavedIsSaid()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("none/line3.csv"));
    QVERIFY(!m_page->saveTags(path));
    QVERIFY2(message().mid(2).startsWith(path), qPrintable(message()));
}

// What a newer program keeps of columns, the order and the filter.
void WatchPageTest::membersOfOthersAreKept()
{
    const QJsonObject later{{"name", "of a later version"}, {"a", 1}};
    QJsonArray columns;
    columns.append(QJsonObject{{"name", "value"}, {"characters", 30}, {"bold", true}});
    columns.append(later);
    m_page->setLayout({{"columns", columns},
                       {"sort", QJsonObject{{"column", "name"}, {"then", "value"}}},
                       {"filter", QJsonObject{{"text", "pump"}, {"case", true}}}});
    m_table->columnActions().at(WatchModel::Raw)->setChecked(false);
    const QJsonObject kept = m_page->layout();
    const QJsonArray keptColumns = kept[QLatin1String("columns")].toArray();
    QCOMPARE(keptColumns.at(0), columns.at(0));
    QCOMPARE(keptColumns.last().toObject(), later);
    QCOMPARE(kept[QLatin1String("sort")],
             QJsonValue(QJsonObject{{"column", "name"}, {"falling", false}, {"then", "value"}}));
    QCOMPARE(kept[QLatin1String("filter")],
             QJsonValue(QJsonObject{{"text", "pump"}, {"case", true}}));

    m_page->setLayout({}); // of another project
    QCOMPARE(m_page->layout()[QLatin1String("columns")].toArray().size(), 12);
    QVERIFY(!m_table->isColumnHidden(WatchModel::Raw));
    QVERIFY(m_table->columnWidth(WatchModel::Value)
            < 30 * m_table->fontMetrics().averageCharWidth());
}

void WatchPageTest::editsOfTheListAndEscapeCallAQuestionOff()
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

void WatchPageTest::movesRows()
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

void WatchPageTest::filtersAndShowsAllAgain()
{
    QTest::keyClick(m_table, Qt::Key_F, Qt::ControlModifier);
    QWidget* const edit = QApplication::focusWidget();
    QTest::keyClicks(edit, QStringLiteral("pump"));
    QCOMPARE(m_table->model()->rowCount(), 1);
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(m_table->model()->rowCount(), 4);
    QVERIFY(m_table->hasFocus());
}

void WatchPageTest::whatIsSelectedStaysSoWhenRowsAreHidden_data()
{
    QTest::addColumn<QString>("before"); // filters by names
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("stillSelected");
    QTest::newRow("the first is hidden") << ""
                                         << "even" << 204 << 100;
    QTest::newRow("the last is hidden") << ""
                                        << "odd" << 204 << 100;
    QTest::newRow("others come between them") << "odd"
                                              << "" << 100 << 100;
    QTest::newRow("others in their place") << "odd"
                                           << "even" << 100 << 0;
}

// Of more than 1000 cells, all of which are selected, Qt keeps but the first and the last.
void WatchPageTest::whatIsSelectedStaysSoWhenRowsAreHidden()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QList<kx::Tag> tags;
    for (int i = 0; i < 200; ++i)
        tags << tagOf("D1000", i % 2 == 0 ? "Odd" : "Even");
    m_tags->insert(4, tags);
    auto* const filter = m_page->findChild<FilterLine*>()->edit();
    filter->setText(before);
    m_table->selectAll();
    const QList<int> selected = m_table->selectedNumbers();
    QTEST(static_cast<int>(selected.size()), "selected");
    filter->setText(after);
    QTEST(static_cast<int>(m_table->selectedNumbers().size()), "stillSelected");
    for (const int number : m_table->selectedNumbers())
        QVERIFY(selected.contains(number));
}

void WatchPageTest::opensTags()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,station,address,count\nFlow,,D110,2\nPump,7,Y11,\n");
    file.close();
    m_page->setStation(3);
    QVERIFY(m_page->openTags(path));
    QCOMPARE(m_tags->size(), 7);
    QCOMPARE(m_tags->values().at(4).tag.name, QStringLiteral("Flow 1"));
    QCOMPARE(m_tags->values().at(4).tag.range.station, 3);
    QCOMPARE(m_tags->values().at(6).tag.name, QStringLiteral("Pump 2"));
    QCOMPARE(m_tags->values().at(6).tag.range.station, 7);
}

void WatchPageTest::savedTagsAreOpenedAsTheyWere()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QVERIFY(m_page->saveTags(path));
    m_tags->setValues({});
    QVERIFY(m_page->openTags(path));
    QCOMPARE(m_tags->values().at(0).tag.name, QStringLiteral("Pressure"));
    QCOMPARE(m_tags->values().at(3).tag.name, QString()); // not its address, which may be edited
}

void WatchPageTest::tellsOfAddedRowsThatAreHidden()
{
    auto* const filter = m_page->findChild<FilterLine*>()->findChild<QLineEdit*>();
    filter->setText(QStringLiteral("Pump"));
    go(0);
    auto* const typed = m_page->findChild<AddLine*>()->edit();
    QTest::keyClicks(typed, QStringLiteral("D7"));
    QTest::keyClick(typed, Qt::Key_Return);
    QCOMPARE(message(), QStringLiteral("1 values added; the filter hides some"));
}

void WatchPageTest::showsAllFaultsOfATagsFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,address,count\nFlow,D9999,2\nPump,Y11,0\n");
    file.close();
    QVERIFY(!m_page->openTags(path));
    QCOMPARE(m_tags->size(), 4);
    auto* const faults = m_page->findChild<QPlainTextEdit*>();
    QVERIFY(faults->isVisible());
    const QStringList lines = faults->toPlainText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.at(0).startsWith(path + QLatin1String(":2: address D9999: ")),
             qPrintable(lines.at(0)));
    QCOMPARE(lines.at(1), path + QLatin1String(":3: count 0: must be 1 or more"));
    QVERIFY2(message().contains(QLatin1String("has 2 faults; nothing was added")),
             qPrintable(message()));
    QTest::keyClick(m_table, Qt::Key_Escape);
    QVERIFY(!faults->isVisible());
}

void WatchPageTest::layoutIsKept()
{
    QSignalSpy changed(m_page.get(), &Page::layoutChanged);
    QJsonObject layout = m_page->layout();
    layout[QLatin1String("later")] = 5;
    layout[QLatin1String("station")] = 9;
    layout[QLatin1String("filter")] = QJsonObject{{"text", "pump"}, {"type", "Y"}};
    layout[QLatin1String("sort")] = QJsonObject{{"column", "name"}, {"falling", true}};
    QJsonArray columns;
    columns.append(QJsonObject{{"name", "value"}, {"characters", 30}});
    columns.append(QJsonObject{{"name", "raw"}, {"hidden", true}});
    columns.append(QJsonObject{{"name", "of a later version"}});
    layout[QLatin1String("columns")] = columns;
    m_page->setLayout(layout);
    QVERIFY(!changed.isEmpty());

    const QJsonObject kept = m_page->layout();
    QCOMPARE(kept[QLatin1String("later")].toInt(), 5);
    QCOMPARE(kept[QLatin1String("station")].toInt(), 9);
    QCOMPARE(kept[QLatin1String("filter")], layout[QLatin1String("filter")]);
    QCOMPARE(kept[QLatin1String("sort")], layout[QLatin1String("sort")]);
    const QJsonArray keptColumns = kept[QLatin1String("columns")].toArray();
    QCOMPARE(keptColumns.size(), 13); // one of them unknown here
    QCOMPARE(keptColumns.at(0), columns.at(0));
    QCOMPARE(keptColumns.at(1), columns.at(1));
    QCOMPARE(m_table->model()->rowCount(), 1);
    QCOMPARE(m_page->key(), QStringLiteral("watch"));
}

// In a menu one letter would mean two things.
void WatchPageTest::eachActionHasALetterOfItsOwn()
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
void WatchPageTest::columnsAreChosenInAMenu()
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

void WatchPageTest::headingsAreNotCutOff()
{
    LongHeadings language;
    QCoreApplication::installTranslator(&language);
    const WatchPage page({m_machine.get(), m_tags.get()});
    const auto* const table = page.findChild<WatchTable*>();
    for (int column = 0; column < WatchModel::ColumnCount; ++column)
        QVERIFY2(table->columnWidth(column) >= table->horizontalHeader()->sectionSizeHint(column),
                 qPrintable(QString::number(column)));
}

void WatchPageTest::aPageThatIsNotSeenPaintsNothing()
{
    QSignalSpy changed(m_table->model(), &QAbstractItemModel::dataChanged);
    m_page->hide();
    read(1, {1});
    QTest::qWait(150); // three frames
    QCOMPARE(changed.size(), 0);
    m_page->show();
    read(1, {2});
    QTRY_VERIFY(!changed.isEmpty());
}

void WatchPageTest::onlyRowsThatAreSeenArePainted()
{
    m_tags->insert(4, {tagOf("D1000:5000")});
    m_table->sortByColumn(WatchModel::Address, Qt::DescendingOrder);
    QVector<Reading> readings;
    for (const WatchedValue& value : m_tags->values())
        readings << readingOf(value.number, {7}, QDateTime::currentMSecsSinceEpoch());
    QSignalSpy changed(m_table->model(), &QAbstractItemModel::dataChanged);
    m_tags->takeReadings(readings);
    QCOMPARE(changed.size(), 0);
    QTRY_VERIFY(!changed.isEmpty());
    int rows = 0;
    for (const QList<QVariant>& one : changed)
        rows += one.at(1).toModelIndex().row() - one.at(0).toModelIndex().row() + 1;
    QVERIFY2(rows <= m_table->viewport()->height() / m_table->rowHeight(0) + 2,
             qPrintable(QString::number(rows)));
}

void WatchPageTest::aControllerConfirmsAWrite()
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

QTEST_MAIN(WatchPageTest)
#include "tst_watch_page.moc"
