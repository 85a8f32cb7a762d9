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
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

using namespace kxpanel;

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
    void enterWritesAndSaysWhyNot();
    void leavingACellWritesNothing_data();
    void leavingACellWritesNothing();
    void aWrongValueIsExplainedAndNotSent();
    void aNameIsEditedInPlace();
    void spaceSwitchesAKnownBit();
    void clicksOnTheSwitchAlone();
    void whatIsNotKnownIsNotSwitched();
    void severalAskFirst();
    void editsOfTheListAndEscapeCallAQuestionOff();
    void movesRows();
    void filtersAndShowsAllAgain();
    void opensTags();
    void showsAllFaultsOfATagsFile();
    void layoutIsKept();
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
    QCOMPARE(keptColumns.size(), 11);
    QCOMPARE(keptColumns.at(0), columns.at(0));
    QCOMPARE(keptColumns.at(1), columns.at(1));
    QCOMPARE(m_table->model()->rowCount(), 1);
    QCOMPARE(m_page->key(), QStringLiteral("watch"));
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
