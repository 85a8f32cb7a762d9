// Copy and paste, from and to spreadsheets, on a German desktop.

#include "kxpanel/grid/edit/write_bar.h"
#include "tools/kxpanel/grid/watch_page_fixture.h"

#include <QAction>
#include <QtCore/QMimeData>
#include <QtGui/QClipboard>

using namespace kxpanel;

class WatchPageClipboardTest : public WatchPageFixture
{
    Q_OBJECT

public:
    static void initMain() { qputenv("LC_ALL", "de_DE.UTF-8"); }

private slots:
    void init();
    void cleanup() { m_page.reset(); }
    void cutsAndPastes();
    void copiesWhatIsShown();
    void aTextIsCopiedAsOne();
    void valuesArePastedAfterAQuestion_data();
    void valuesArePastedAfterAQuestion();
    void decimalCommasOfTheDesktopAreTaken();
    void aTextIsPastedOnCellsOfValuesAlone();
    void thousandsAreNotTakenForDecimals();
    void whatASpreadsheetSaysOfAPointIsTaken();
    void copiedLimitsAreTakenAsTheyAre();
    void valuesThatDoNotFitAreNotPasted_data();
    void valuesThatDoNotFitAreNotPasted();
};

void WatchPageClipboardTest::init()
{
    QLocale::setDefault(QLocale::c()); // as the program has it: it writes numbers in one way
    makePage();
}

void WatchPageClipboardTest::cutsAndPastes()
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

void WatchPageClipboardTest::copiesWhatIsShown()
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

void WatchPageClipboardTest::aTextIsCopiedAsOne()
{
    m_tags->setValues({{1, tagOf("D130/ascii:4", "Batch")}});
    read(1, {0x3030, 0x3720, 0x0000, 0x0000}); // "007 "
    go(0);
    QTest::keyClick(m_table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QString html = QApplication::clipboard()->mimeData()->html();
    QVERIFY2(html.contains("<td sdnum=\"1033;0;@\">007&#32;</td>"), qPrintable(html));
}

void WatchPageClipboardTest::valuesArePastedAfterAQuestion_data()
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

void WatchPageClipboardTest::valuesArePastedAfterAQuestion()
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

void WatchPageClipboardTest::decimalCommasOfTheDesktopAreTaken()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    QApplication::clipboard()->setText(QStringLiteral("2,5\n7\n"));
    m_table->select({1, 4});
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(bar->isVisible(), qPrintable(message()));
    QCOMPARE(bar->findChildren<QLabel*>().first()->text(),
             QStringLiteral("Write 2 values of station 1: Pressure = 2.5, D0 = 7."));
    QTest::keyClick(bar, Qt::Key_Escape);
    QApplication::clipboard()->setText(
        QStringLiteral("name\taddress\tscale\tmax\nFlow\tD7\t0,1\t16,5\n"));
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 5);
    QCOMPARE(typedText(m_tags->values().at(1).tag), QStringLiteral("D7@1/*0.1,max=16.5"));
}

// Elsewhere it may be meant as a name.
void WatchPageClipboardTest::aTextIsPastedOnCellsOfValuesAlone()
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
void WatchPageClipboardTest::thousandsAreNotTakenForDecimals()
{
    auto* const bar = m_page->findChild<WriteBar*>();
    m_tags->setValues({{1, tagOf("D0/float", "Flow")}, {2, tagOf("D2/float", "Return")}});
    QApplication::clipboard()->setText(QStringLiteral("2,5\n1.234\n"));
    m_table->select({1, 2});
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!bar->isVisible());
    QCOMPARE(message().mid(2),
             QStringLiteral("Nothing pasted: the point in 1.234 may stand for thousands; write "
                            "1,234 or 1234 in the spreadsheet"));
    QApplication::clipboard()->setText(QStringLiteral("name\taddress\tmax\nFlow\tD7\t1.234\n"));
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_tags->size(), 2);
    QVERIFY2(message().contains(QLatin1String("Nothing pasted: row 2: the point in 1.234 may ")),
             qPrintable(message()));
}

/// As a spreadsheet in German gives back rows that were copied here, beside a number with points
/// between its thousands.
void WatchPageClipboardTest::whatASpreadsheetSaysOfAPointIsTaken()
{
    const auto copy = [](const QString& text, const QString& markup) {
        auto* const data = new QMimeData; // the clipboard's
        data->setText(text);
        data->setHtml(markup);
        QApplication::clipboard()->setMimeData(data);
    };
    m_tags->setValues({{1, tagOf("D0/float", "Flow")}, {2, tagOf("D2/float", "Return")}});
    copy("name\taddress\tscale\tmax\nLevel\tD7\t2.125\t16.125\n",
         R"(<table cellspacing="0" border="0">
	<colgroup span="4" width="89"></colgroup>
	<tr>
		<td height="18" align="left" sdnum="1031;0;@"><font face="DejaVu Serif">name</font></td>
		<td align="left" sdnum="1031;0;@"><font face="DejaVu Serif">address</font></td>
		<td align="left" sdnum="1031;0;@"><font face="DejaVu Serif">scale</font></td>
		<td align="left" sdnum="1031;0;@"><font face="DejaVu Serif">max</font></td>
	</tr>
	<tr>
		<td height="18" align="left" sdnum="1031;0;@"><font face="DejaVu Serif">Level</font></td>
		<td align="left" sdnum="1031;0;@"><font face="DejaVu Serif">D7</font></td>
		<td align="left" sdnum="1031;0;@"><font face="DejaVu Serif">2.125</font></td>
		<td align="right" sdval="16125" sdnum="1031;0;#.##0">16.125</td>
	</tr>
</table>)");
    m_table->select({1, 2});
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(m_tags->size() == 3, qPrintable(message()));
    QCOMPARE(typedText(m_tags->values().at(1).tag), QStringLiteral("D7@1/*2.125,max=16125"));

    copy("2.125\n1.234\n", R"(<table><tr><td sdnum="1031;0;@">2.125</td></tr>
                               <tr><td sdval="1234" sdnum="1031;0;#.##0">1.234</td></tr></table>)");
    m_table->select({1, 2});
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    auto* const bar = m_page->findChild<WriteBar*>();
    QVERIFY2(bar->isVisible(), qPrintable(message()));
    QCOMPARE(bar->findChildren<QLabel*>().first()->text(),
             QStringLiteral("Write 2 values of station 1: Flow = 2.125, Return = 1234."));
}

void WatchPageClipboardTest::copiedLimitsAreTakenAsTheyAre()
{
    m_tags->setValues({{1, tagOf("D0/*2.125,min=-1.500,max=16.125", "Level")}});
    go(0);
    QTest::keyClick(m_table, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(m_tags->size() == 2, qPrintable(message()));
    QCOMPARE(typedText(m_tags->values().at(1).tag),
             QStringLiteral("D0@1/*2.125,min=-1.5,max=16.125"));
}

void WatchPageClipboardTest::valuesThatDoNotFitAreNotPasted_data()
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

void WatchPageClipboardTest::valuesThatDoNotFitAreNotPasted()
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

QTEST_MAIN(WatchPageClipboardTest)
#include "tst_watch_page_clipboard.moc"
