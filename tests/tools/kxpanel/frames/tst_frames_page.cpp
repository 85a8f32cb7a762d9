#include "kxpanel/frames/frames_page.h"

#include "../sample_exchanges.h"
#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/frames/frames_model.h"
#include "kxpanel/machine/machine.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTableView>

using namespace kxpanel;

class FramesPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsFieldsOfTheSelectedExchange();
    void filtersByWhatIsChosen();
    void findsByTyping();
    void pausesByKey();
    void countsWhatHadNoRoom();
    void whatIsReadStaysWhenItsRowGoes();
    void aFilterKeepsWhatIsSelected();
    void aFilterKeepsWhatIsSelectedInView();
    void aFilterKeepsWhatStandsOnTop();
    void aFilterFollowsTheEndOfWhoIsThere();
    void aFilterOfFewRowsKeepsThePlace();
    void aFilterLeavesTheNearestOfWhatItHides();
    void followsTheEndUnlessScrolledUp();
    void followsTheEndInLessRoom();
    void followsTheEndAfterAllIsForgotten();
    void followsTheEndOfFewerThanFit();
    void staysWhereItIsWhenRowsGo();
    void savesWhatIsShown();
    void tellsHowManyOfACaptureWereSaved();
    void whatIsBeingSavedIsSavedWhole();
    void theChosenFilterNamesTheFile();
    void columnsAreOfThisComputer();
    void outcomesAreShownWhole();
    void allCanBeNamed();

private:
    QStringList requests() const;
    QScrollBar* bar() const { return m_table->verticalScrollBar(); }

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<FramesPage> m_page;
    QTableView* m_table = nullptr;
};

void FramesPageTest::init()
{
    m_machine = std::make_unique<Machine>();
    m_page = std::make_unique<FramesPage>(PageContext{m_machine.get(), nullptr});
    m_page->resize(900, 500);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_table = m_page->findChild<QTableView*>();
    QVERIFY(m_table);
}

void FramesPageTest::cleanup()
{
    m_page.reset();
    m_machine.reset();
}

QStringList FramesPageTest::requests() const
{
    QStringList texts;
    for (int row = 0; row < m_table->model()->rowCount(); ++row)
        texts << m_table->model()->index(row, 3).data().toString();
    return texts;
}

void FramesPageTest::showsFieldsOfTheSelectedExchange()
{
    emit m_machine->exchanged({answeredPoll(), refusedWrite()});
    const QRect cell = m_table->visualRect(m_table->model()->index(1, 3));
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    const auto* details = m_page->findChild<QPlainTextEdit*>();
    QVERIFY(details->toPlainText().startsWith("Station 2: write Y10 = 1\n"));
    QTest::keyClick(m_table, Qt::Key_Up);
    QVERIFY(details->toPlainText().startsWith("Station 1: read D100:2\n"));
}

void FramesPageTest::filtersByWhatIsChosen()
{
    emit m_machine->exchanged({refusedWrite(), answeredPoll(), unansweredPoll()});
    const QList<QComboBox*> choices = m_page->findChildren<QComboBox*>();
    QCOMPARE(choices.size(), 3);
    QComboBox* station = choices.at(0);
    QCOMPARE(station->itemText(1), QString("Station 1")); // in order, though seen later
    QCOMPARE(station->itemText(2), QString("Station 2"));
    QTest::keyClick(station, Qt::Key_Down);
    QCOMPARE(requests(), QStringList({QString("read D100:2"), QString("read D100:2")}));
    station->setCurrentIndex(0);
    choices.at(1)->setCurrentText("write");
    QCOMPARE(requests(), QStringList({QString("write Y10 = 1")}));
    choices.at(1)->setCurrentIndex(0);
    choices.at(2)->setCurrentText("Not accepted");
    QCOMPARE(requests(), QStringList({QString("write Y10 = 1"), QString("read D100:2")}));
}

void FramesPageTest::findsByTyping()
{
    emit m_machine->exchanged({refusedWrite(), answeredPoll()});
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_F, Qt::ControlModifier);
    auto* text = m_page->findChild<QLineEdit*>();
    QVERIFY(text->hasFocus());
    QTest::keyClicks(text, "d100");
    QCOMPARE(requests(), QStringList({QString("read D100:2")}));
}

void FramesPageTest::pausesByKey()
{
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_P, Qt::ControlModifier);
    emit m_machine->exchanged({answeredPoll()});
    QCOMPARE(m_table->model()->rowCount(), 0);
    QTest::keyClick(m_table, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(m_table->model()->rowCount(), 1);
}

void FramesPageTest::countsWhatHadNoRoom()
{
    const auto* counts = m_page->findChild<QLabel*>();
    emit m_machine->exchanged(answeredPolls(20000)); // as many as are kept
    QCOMPARE(counts->text(), QString("20000 of 20000 exchanges shown"));
    emit m_machine->exchanged(answeredPolls(30));
    QCOMPARE(counts->text(),
             QString("20000 of 20000 exchanges shown; 30 had no room and were thrown away"));
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_P, Qt::ControlModifier);
    emit m_machine->exchanged(answeredPolls(20005)); // as many wait
    QCOMPARE(counts->text(), QString("20000 of 20000 exchanges shown; paused, 20000 more wait; 35 "
                                     "had no room and were thrown away"));
    QTest::keyClick(m_table, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(counts->text(),
             QString("20000 of 20000 exchanges shown; 20035 had no room and were thrown away"));
    QTest::keyClick(m_table, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(counts->text(), QString("0 of 0 exchanges shown"));
}

void FramesPageTest::whatIsReadStaysWhenItsRowGoes()
{
    emit m_machine->exchanged(QVector<Exchange>({refusedWrite()}) + answeredPolls(19999));
    m_table->selectRow(0);
    const auto* details = m_page->findChild<QPlainTextEdit*>();
    QVERIFY(details->toPlainText().startsWith("Station 2: write Y10 = 1\n"));
    emit m_machine->exchanged(answeredPolls(2)); // for which the oldest two go
    QVERIFY(details->toPlainText().startsWith("Station 2: write Y10 = 1\n"));
    QVERIFY(!m_table->currentIndex().isValid());
    m_table->selectRow(0);
    QVERIFY(details->toPlainText().startsWith("Station 1: read D100:2\n"));
    QTest::keyClick(m_table, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(details->toPlainText(), QString());
}

void FramesPageTest::aFilterKeepsWhatIsSelected()
{
    emit m_machine->exchanged({answeredPoll(), refusedWrite(), answeredPoll(), refusedWrite()});
    m_table->selectRow(1);
    const auto* details = m_page->findChild<QPlainTextEdit*>();
    auto* text = m_page->findChild<QLineEdit*>();
    text->setText("y10");
    QCOMPARE(m_table->currentIndex().row(), 0);
    QVERIFY(details->toPlainText().startsWith("Station 2: write Y10 = 1\n"));
    text->setText("d100"); // which it is not
    QVERIFY(!m_table->currentIndex().isValid());
    QCOMPARE(details->toPlainText(), QString());
}

namespace
{

/// Polls of which each tenth, from the first on, is a refused write.
QVector<Exchange> mixedExchanges(int count)
{
    QVector<Exchange> exchanges = answeredPolls(count);
    for (int i = 0; i < count; i += 10)
        exchanges[i] = refusedWrite();
    return exchanges;
}

} // namespace

void FramesPageTest::aFilterKeepsWhatIsSelectedInView()
{
    emit m_machine->exchanged(mixedExchanges(1000)); // with 100 writes
    QTRY_VERIFY(bar()->maximum() > 900);
    bar()->setValue(496);
    m_table->selectRow(500); // the 51st write, 4 rows from the top
    auto* text = m_page->findChild<QLineEdit*>();
    text->setText("y10");
    QCOMPARE(m_table->currentIndex().row(), 50);
    QCOMPARE(bar()->value(), 46);
    emit m_machine->exchanged({refusedWrite()});
    QCoreApplication::processEvents();
    QCOMPARE(bar()->value(), 46); // it is read, so the end is not followed
    text->clear();
    QCOMPARE(m_table->currentIndex().row(), 500);
    QCOMPARE(bar()->value(), 496);
}

void FramesPageTest::aFilterKeepsWhatStandsOnTop()
{
    emit m_machine->exchanged(mixedExchanges(1000));
    QTRY_VERIFY(bar()->maximum() > 900);
    m_table->selectRow(999);
    bar()->setValue(300); // away from what is selected
    m_page->findChild<QLineEdit*>()->setText("y10");
    QCOMPARE(bar()->value(), 30);
    m_page->findChild<QLineEdit*>()->clear();
    QCOMPARE(bar()->value(), 300);
}

void FramesPageTest::aFilterFollowsTheEndOfWhoIsThere()
{
    emit m_machine->exchanged(mixedExchanges(1000));
    QTRY_VERIFY(bar()->maximum() > 900);
    for (const char* const text : {"y10", "d100", ""}) {
        m_page->findChild<QLineEdit*>()->setText(text);
        QVERIFY(bar()->maximum() > 10);
        QCOMPARE(bar()->value(), bar()->maximum());
    }
}

// All of them are in view, which makes nobody who reads at the end of all.
void FramesPageTest::aFilterOfFewRowsKeepsThePlace()
{
    QVector<Exchange> exchanges = answeredPolls(1000);
    exchanges[400] = refusedWrite();
    emit m_machine->exchanged(exchanges);
    QTRY_VERIFY(bar()->maximum() > 900);
    bar()->setValue(300);
    m_page->findChild<QLineEdit*>()->setText("y10");
    QCOMPARE(bar()->maximum(), 0);
    m_page->findChild<QLineEdit*>()->clear();
    QCOMPARE(bar()->value(), 300);
    m_page->findChild<QLineEdit*>()->setText("y10");
    m_table->selectRow(0);
    m_page->findChild<QLineEdit*>()->clear();
    QCOMPARE(m_table->currentIndex().row(), 400);
    QCOMPARE(bar()->value(), 400); // it stood on top
}

void FramesPageTest::aFilterLeavesTheNearestOfWhatItHides()
{
    emit m_machine->exchanged(mixedExchanges(1000));
    QTRY_VERIFY(bar()->maximum() > 900);
    bar()->setValue(303);
    m_page->findChild<QLineEdit*>()->setText("y10");
    QCOMPARE(bar()->value(), 31); // of the row 310
}

void FramesPageTest::followsTheEndUnlessScrolledUp()
{
    emit m_machine->exchanged(answeredPolls(200));
    QCoreApplication::processEvents();
    QVERIFY(bar()->maximum() > 100);
    QCOMPARE(bar()->value(), bar()->maximum());
    emit m_machine->exchanged(answeredPolls(10));
    QCoreApplication::processEvents();
    QCOMPARE(bar()->value(), bar()->maximum());
    bar()->setValue(20);
    emit m_machine->exchanged(answeredPolls(10));
    QCoreApplication::processEvents();
    QCOMPARE(bar()->value(), 20);
}

void FramesPageTest::followsTheEndInLessRoom()
{
    emit m_machine->exchanged(answeredPolls(200));
    QTRY_VERIFY(bar()->maximum() > 100);
    QCOMPARE(bar()->value(), bar()->maximum());
    const int before = bar()->maximum();
    m_page->resize(900, 400); // as when a message takes a row of the window
    QTRY_VERIFY(bar()->maximum() > before);
    QCOMPARE(bar()->value(), bar()->maximum());
    emit m_machine->exchanged(answeredPolls(1));
    QTRY_COMPARE(bar()->value(), bar()->maximum());
    bar()->setValue(50);
    m_page->resize(900, 500);
    QTRY_COMPARE(bar()->maximum(), before + 1);
    QCOMPARE(bar()->value(), 50);
}

void FramesPageTest::followsTheEndAfterAllIsForgotten()
{
    emit m_machine->exchanged(answeredPolls(200));
    QTRY_VERIFY(bar()->maximum() > 100);
    bar()->setValue(0);
    QTest::keyClick(m_table, Qt::Key_L, Qt::ControlModifier);
    QCoreApplication::processEvents();
    emit m_machine->exchanged(answeredPolls(200));
    QTRY_VERIFY(bar()->maximum() > 100);
    QCOMPARE(bar()->value(), bar()->maximum());
}

void FramesPageTest::followsTheEndOfFewerThanFit()
{
    emit m_machine->exchanged(answeredPolls(200) + QVector<Exchange>{refusedWrite()});
    QTRY_VERIFY(bar()->maximum() > 100);
    bar()->setValue(0);
    m_page->findChild<QLineEdit*>()->setText("y10");
    QCoreApplication::processEvents();
    QCOMPARE(bar()->maximum(), 0);
    emit m_machine->exchanged(QVector<Exchange>(200, refusedWrite()));
    QTRY_VERIFY(bar()->maximum() > 100);
    QCOMPARE(bar()->value(), bar()->maximum());
}

void FramesPageTest::staysWhereItIsWhenRowsGo()
{
    emit m_machine->exchanged(answeredPolls(20000)); // as many as are kept
    QCoreApplication::processEvents();
    bar()->setValue(100);
    emit m_machine->exchanged(answeredPolls(30));
    QCoreApplication::processEvents();
    QCOMPARE(m_table->model()->rowCount(), 20000);
    QCOMPARE(bar()->value(), 70);          // the same exchange, 30 rows further up
    bar()->setValue(bar()->maximum() - 5); // so near to the end that less than a batch is left
    const int nearEnd = bar()->value();
    emit m_machine->exchanged(answeredPolls(30));
    QCoreApplication::processEvents();
    QCOMPARE(bar()->value(), nearEnd - 30);
}

void FramesPageTest::savesWhatIsShown()
{
    emit m_machine->exchanged({refusedWrite(), answeredPoll()});
    QTest::keyClick(m_table, Qt::Key_E, Qt::ControlModifier);
    auto* dialog = m_page->findChild<QFileDialog*>();
    QVERIFY(dialog);
    QTemporaryDir folder;
    const QString path = folder.filePath("saved.txt");
    QSignalSpy said(m_page.get(), &Page::said);
    emit dialog->fileSelected(path);
    QCOMPARE(said.count(), 0); // the window goes on meanwhile
    QTRY_COMPARE(said.count(), 1);
    QCOMPARE(said.at(0).at(0).toString(), QString("2 exchange(s) saved in ") + path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().count('\n'), 4); // a line for each request and reply
    emit dialog->fileSelected(folder.filePath("none/saved.txt"));
    QTRY_COMPARE(said.count(), 2);
    QVERIFY(said.at(1).at(0).toString().contains("none/saved.txt"));
}

void FramesPageTest::tellsHowManyOfACaptureWereSaved()
{
    Exchange notSent = answeredPoll();
    notSent.replyKind = kx::ReplyKind::NotSent;
    emit m_machine->exchanged({answeredPoll(), notSent, refusedWrite()});
    QTest::keyClick(m_table, Qt::Key_E, Qt::ControlModifier);
    const QTemporaryDir folder;
    const QString path = folder.filePath("saved.pcap");
    QSignalSpy said(m_page.get(), &Page::said);
    emit m_page->findChild<QFileDialog*>()->fileSelected(path);
    QTRY_COMPARE(said.count(), 1);
    QCOMPARE(said.at(0).at(0).toString(), QString("2 exchange(s) saved in ") + path);
}

void FramesPageTest::whatIsBeingSavedIsSavedWhole()
{
    emit m_machine->exchanged(answeredPolls(5000));
    QTest::keyClick(m_table, Qt::Key_E, Qt::ControlModifier);
    QTemporaryDir folder;
    QFile file(folder.filePath("saved.txt"));
    emit m_page->findChild<QFileDialog*>()->fileSelected(file.fileName());
    m_page.reset(); // the window is closed meanwhile
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().count('\n'), 10000);
}

void FramesPageTest::theChosenFilterNamesTheFile()
{
    m_table->setFocus();
    QTest::keyClick(m_table, Qt::Key_E, Qt::ControlModifier);
    auto* dialog = m_page->findChild<QFileDialog*>();
    QVERIFY(dialog);
    QCOMPARE(dialog->defaultSuffix(), QString("txt"));
    emit dialog->filterSelected(dialog->nameFilters().at(1));
    QCOMPARE(dialog->defaultSuffix(), QString("jsonl"));
    emit dialog->filterSelected(dialog->nameFilters().at(2));
    QCOMPARE(dialog->defaultSuffix(), QString("pcap"));
    emit dialog->filterSelected(dialog->nameFilters().at(0));
    QCOMPARE(dialog->defaultSuffix(), QString("txt"));
}

void FramesPageTest::columnsAreOfThisComputer()
{
    QSignalSpy changed(m_page.get(), &Page::layoutChanged);
    m_table->horizontalHeader()->resizeSection(3, 321);
    QCOMPARE(changed.count(), 0); // no project has them
    QCOMPARE(m_page->layout(), QJsonObject());
    FramesPage other((PageContext()));
    other.setPlace(m_page->place());
    QCOMPARE(other.findChild<QTableView*>()->columnWidth(3), 321);
    other.setPlace("nonsense");
    QCOMPARE(other.findChild<QTableView*>()->columnWidth(3), 321);
}

void FramesPageTest::outcomesAreShownWhole()
{
    const int width = m_table->columnWidth(FramesModel::Outcome);
    for (const char* const outcome :
         {"no reply, repeated", "bad reply, repeated", "wrong byte count, repeated",
          "reply of another request, repeated"}) {
        const QString text = verdictSymbol(ExchangeVerdict::Repeated) + ' ' + outcome;
        QVERIFY2(m_table->fontMetrics().horizontalAdvance(text) < width, outcome);
    }
}

void FramesPageTest::allCanBeNamed()
{
    QVERIFY(!m_table->accessibleName().isEmpty());
    for (const QComboBox* choice : m_page->findChildren<QComboBox*>()) {
        QVERIFY(!choice->accessibleName().isEmpty());
        QVERIFY(!choice->toolTip().isEmpty());
    }
    QCOMPARE(m_page->key(), QString("frames"));
    QCOMPARE(m_page->windowTitle(), QString("Frames"));
}

QTEST_MAIN(FramesPageTest)

#include "tst_frames_page.moc"
