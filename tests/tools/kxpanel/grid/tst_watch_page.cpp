// Mouse and keyboard on the page.

#include "kxpanel/grid/edit/filter_line.h"
#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "tools/kxpanel/frames.h"
#include "tools/kxpanel/grid/watch_page_fixture.h"

#include <QAction>
#include <QtCore/QJsonArray>
#include <QtCore/QMimeData>
#include <QtCore/QSet>
#include <QtCore/QTranslator>
#include <QtGui/QDropEvent>
#include <QtGui/QTextDocument>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>

using namespace kxpanel;

namespace
{

/// A language with long words.
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "kxpanel::WatchModel") == 0
                       || qstrcmp(context, "kxpanel::Cell") == 0
                   ? QStringLiteral("as long as three words, %1").arg(QLatin1String(text))
                   : QString();
    }
};

} // namespace

class WatchPageTest : public WatchPageFixture
{
    Q_OBJECT

private slots:
    void init() { makePage(); }
    void cleanup() { m_page.reset(); }
    void aNameIsEditedInPlace();
    void anEditorKeepsWhatIsTyped();
    void anEditedRowIsNotFilteredAway();
    void rowsOfAnotherProgramAreNotMoved();
    void manyAreSelectedAsOne();
    void namesAreNoMarkup();
    void switchesAreSeenOnSelectedRows_data();
    void switchesAreSeenOnSelectedRows();
    void statesAreNotCutOff();
    void goesByTheClockOfTheLine();
    void agesGoOnWhenTheClockIsSetBack();
    void withoutALineNothingIsKnown();
    void membersOfOthersAreKept();
    void whatIsSelectedStaysSoWhenRowsAreHidden_data();
    void whatIsSelectedStaysSoWhenRowsAreHidden();
    void layoutIsKept();
    void headingsAreNotCutOff();
    void aPageThatIsNotSeenPaintsNothing();
    void onlyRowsThatAreSeenArePainted();
};

void WatchPageTest::aNameIsEditedInPlace()
{
    go(3, WatchModel::Name);
    QTest::keyClick(m_table, Qt::Key_F2);
    QTest::keyClicks(editor(), QStringLiteral("Speed"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_tags->find(4)->tag.name, QStringLiteral("Speed"));
    QCOMPARE(m_page->undoStack()->count(), 1);
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
        const bool isOfValues = label->objectName() == QLatin1String("message")
                                || label->parentWidget() == m_page->findChild<WriteBar*>();
        QVERIFY(!isOfValues || label->textFormat() == Qt::PlainText);
    }
    const QString tip = cell(0, WatchModel::Name).data(Qt::ToolTipRole).toString();
    QVERIFY2(!Qt::mightBeRichText(tip) || tip.contains(QLatin1String("&lt;h1&gt;Pump")),
             qPrintable(tip));
}

void WatchPageTest::switchesAreSeenOnSelectedRows_data()
{
    QTest::addColumn<int>("bit");
    QTest::addColumn<bool>("isSelected");
    QTest::newRow("off, selected") << 0 << true;
    QTest::newRow("on, selected") << 1 << true;
    QTest::newRow("off") << 0 << false;
    QTest::newRow("on") << 1 << false;
}

// Grey or green on the colour of selected rows would hardly be seen.
void WatchPageTest::switchesAreSeenOnSelectedRows()
{
    QFETCH(int, bit);
    QFETCH(bool, isSelected);
    read(3, {bit});
    m_table->select({isSelected ? 3 : 4});
    QStyleOptionViewItem option;
    option.rect = m_table->visualRect(cell(2, WatchModel::Value));
    option.fontMetrics = m_table->fontMetrics();
    const QRect body = switchRect(option);
    const QImage picture = m_table->viewport()->grab().toImage();
    const QPoint knob(bit == 0 ? body.left() + body.height() / 2 : body.right() - body.height() / 2,
                      body.center().y());
    const QColor seen = picture.pixelColor(knob * picture.devicePixelRatio());
    const QPalette palette = m_table->palette();
    const QColor ground = palette.color(bit == 1 ? QPalette::Highlight : QPalette::HighlightedText);
    if (isSelected)
        QCOMPARE(seen, ground);
    else
        QCOMPARE(seen, bit == 1 ? palette.color(QPalette::Base)
                                : stateColor(CellState::NeverRead, palette));
}

// The system's was set back by an hour while the line was open.
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

void WatchPageTest::headingsAreNotCutOff()
{
    LongTexts language;
    QCoreApplication::installTranslator(&language);
    const WatchPage page({m_machine.get(), m_tags.get()});
    const auto* const table = page.findChild<WatchTable*>();
    for (int column = 0; column < WatchModel::ColumnCount; ++column)
        QVERIFY2(table->columnWidth(column) >= table->horizontalHeader()->sectionSizeHint(column),
                 qPrintable(QString::number(column)));
}

// But for the reason of one that was not written, which the tool tip and the message tell.
void WatchPageTest::statesAreNotCutOff()
{
    LongTexts language;
    QCoreApplication::installTranslator(&language);
    const WatchPage page({m_machine.get(), m_tags.get()});
    const auto* const table = page.findChild<WatchTable*>();
    const QString widest =
        stateSymbol(CellState::NotWritten) + QStringLiteral(" as long as three words, not written");
    QVERIFY2(table->columnWidth(WatchModel::State)
                 >= table->fontMetrics().horizontalAdvance(widest) + 6,
             qPrintable(QString::number(table->columnWidth(WatchModel::State))));
}

void WatchPageTest::aPageThatIsNotSeenPaintsNothing()
{
    QSignalSpy changed(m_table->model(), &QAbstractItemModel::dataChanged);
    m_page->hide();
    read(1, {1});
    passFrames(3);
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
    QSet<int> rows; // of one frame or more
    for (const QList<QVariant>& one : changed) {
        const int last = one.at(1).toModelIndex().row();
        for (int row = one.at(0).toModelIndex().row(); row <= last; ++row)
            rows << row;
    }
    QVERIFY2(static_cast<int>(rows.size())
                 <= m_table->viewport()->height() / m_table->rowHeight(0) + 2,
             qPrintable(QString::number(rows.size())));
}

QTEST_MAIN(WatchPageTest)
#include "tst_watch_page.moc"
