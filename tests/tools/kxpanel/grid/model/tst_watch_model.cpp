#include "kxpanel/grid/model/watch_model.h"

#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>

#include <QUndoStack>
#include <QtCore/QMimeData>

using namespace kxpanel;

class WatchModelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cells();
    void readingsAreToldWhenRowsAreRefreshed();
    void edits_data();
    void edits();
    void wrongEditsSayWhy_data();
    void wrongEditsSayWhy();
    void aValueIsWritten();
    void inputsCannotBeEdited();
    void toolTipsSayWhetherTheValueHolds();
    void theToolTipOfAFailedWriteReturnsToTheValue();
    void selectionsStayWithTheirRows();
    void rowsComeAndGoInRuns();
    void veryManyRunsGoAtOnce();
    void draggedRowsMove();
    void whatIsDraggedIsTextToo();
    void intervalsAreEdited();
    void withoutALineNothingIsOk();
    void keys();

private:
    QString text(int row, int column) const
    {
        return m_model->index(row, column).data().toString();
    }
    bool edit(int row, int column, const char* typed);

    TagList m_tags;
    QUndoStack m_undo;
    int m_jobs = 0;
    std::unique_ptr<ValueWriter> m_writer;
    std::unique_ptr<WatchModel> m_model;
};

void WatchModelTest::init()
{
    m_model.reset();
    m_undo.clear();
    m_jobs = 0;
    m_tags.setValues({});
    m_tags.setValues({{1, tagOf("D100/s16*0.1,unit=bar", "Pressure")},
                      {2, tagOf("X17@2")},
                      {3, tagOf("D120.5", "Alarm")},
                      {4, tagOf("D0", "Speed")}});
    m_writer.reset(new ValueWriter(&m_tags, [this](int, const JobMaker&) { ++m_jobs; }));
    m_model.reset(new WatchModel(&m_tags, m_writer.get(), &m_undo));
    m_model->setClock([]() { return qint64(5000); });
    new QAbstractItemModelTester(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, m_model.get());
}

bool WatchModelTest::edit(int row, int column, const char* typed)
{
    return m_model->setData(m_model->index(row, column), QString::fromLatin1(typed));
}

void WatchModelTest::cells()
{
    m_tags.takeReadings({readingOf(1, {125}, 4600)});
    const QStringList expected = {
        "Pressure", "1", "D100",    "12.5",   "bar",          QString::fromUtf8("\u25CF ok"),
        "0.4 s",    "",  "s16*0.1", "0x007D", "register 100", ""};
    for (int column = 0; column < WatchModel::ColumnCount; ++column)
        QCOMPARE(text(0, column), expected.at(column));
    QCOMPARE(text(1, WatchModel::Station), QStringLiteral("2"));
    QCOMPARE(text(1, WatchModel::Modbus), QStringLiteral("coil 1215"));
    QCOMPARE(text(1, WatchModel::Age), QString());
    QCOMPARE(m_model->index(1, WatchModel::Value).data(WatchModel::SwitchRole).toBool(), true);
    QCOMPARE(m_model->index(0, WatchModel::Value).data(Qt::AccessibleTextRole).toString(),
             QStringLiteral("Value: 12.5"));
}

void WatchModelTest::readingsAreToldWhenRowsAreRefreshed()
{
    QSignalSpy changed(m_model.get(), &WatchModel::dataChanged);
    m_tags.takeReadings({readingOf(1, {125}), readingOf(4, {1})});
    QCOMPARE(changed.size(), 0);
    m_model->refresh(2, 99);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex().row(), 2);
    QCOMPARE(changed.first().at(1).toModelIndex().row(), 3);
    m_model->refresh(-1, -1);
    QCOMPARE(changed.size(), 1);
}

void WatchModelTest::edits_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("address"); // as typed, afterwards
    const auto row = [](const char* name, int place, WatchModel::Column column, const char* typed,
                        const char* address) {
        QTest::newRow(name) << place << static_cast<int>(column) << QString::fromLatin1(typed)
                            << QString::fromLatin1(address);
    };
    row("another format", 0, WatchModel::Format, "float,unit=bar", "D100@1/float,unit=bar");
    row("no format", 0, WatchModel::Format, "", "D100@1");
    row("another address keeps the station", 1, WatchModel::Address, "Y7", "Y7@2");
    row("another address, all of it", 1, WatchModel::Address, "D5@3/float", "D5@3/float");
    row("the address of a bit", 2, WatchModel::Address, "D120.6", "D120.6@1");
}

void WatchModelTest::edits()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, typed);
    const QString before = typedText(m_tags.values().at(row).tag);
    QVERIFY(edit(row, column, qPrintable(typed)));
    QTEST(typedText(m_tags.values().at(row).tag), "address");
    const kx::AddressRange range = m_tags.values().at(row).tag.range;
    QCOMPARE(range.width, range.values);
    QCOMPARE(m_undo.count(), 1);
    m_undo.undo();
    QCOMPARE(typedText(m_tags.values().at(row).tag), before);
}

void WatchModelTest::wrongEditsSayWhy_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("begin");
    const auto row = [](const char* name, int place, WatchModel::Column column, const char* typed,
                        const char* begin) {
        QTest::newRow(name) << place << static_cast<int>(column) << QString::fromLatin1(typed)
                            << QString::fromLatin1(begin);
    };
    row("a name that is taken", 0, WatchModel::Name, "Speed", "the name 'Speed' is taken");
    row("an unknown format", 0, WatchModel::Format, "real", "real: unknown format 'real'");
    row("a format of a bit", 2, WatchModel::Format, "float", "float: one bit of a word");
    row("no time", 0, WatchModel::Every, "soon", "soon: must be a time from 0 to 1440min");
    row("an address past the end", 0, WatchModel::Address, "D9999", "D9999: out of range");
    row("several for one row", 0, WatchModel::Address, "D0:4", "D0:4: a row has one value");
    row("a value that does not fit", 3, WatchModel::Value, "70000", "Speed=70000: 70000 does not");
}

void WatchModelTest::wrongEditsSayWhy()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QString, begin);
    QSignalSpy refused(m_model.get(), &WatchModel::refused);
    const QString fault = m_model->faultOf(m_model->index(row, column), typed);
    QVERIFY2(fault.startsWith(begin), qPrintable(fault));
    QVERIFY(!edit(row, column, qPrintable(typed)));
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused.first().first().toString(), fault);
    QCOMPARE(m_undo.count(), 0);
    QCOMPARE(m_jobs, 0);
}

void WatchModelTest::aValueIsWritten()
{
    QSignalSpy changed(m_model.get(), &WatchModel::dataChanged);
    QVERIFY(edit(3, WatchModel::Value, "42"));
    QCOMPARE(m_jobs, 1);
    QVERIFY(changed.size() >= 1);
    QCOMPARE(changed.last().first().toModelIndex().row(), 3);
    QCOMPARE(text(3, WatchModel::Value), QStringLiteral("42"));
    QCOMPARE(text(3, WatchModel::State), QString::fromUtf8("\u270E writing\u2026"));
    QCOMPARE(m_undo.count(), 0);
}

void WatchModelTest::inputsCannotBeEdited()
{
    QVERIFY(!(m_model->flags(m_model->index(1, WatchModel::Value)) & Qt::ItemIsEditable));
    QVERIFY(m_model->flags(m_model->index(1, WatchModel::Name)) & Qt::ItemIsEditable);
    QVERIFY(m_model->flags(m_model->index(0, WatchModel::Value)) & Qt::ItemIsEditable);
    QVERIFY(!(m_model->flags(m_model->index(0, WatchModel::Age)) & Qt::ItemIsEditable));
    QVERIFY(m_model->index(1, WatchModel::Value)
                .data(Qt::ToolTipRole)
                .toString()
                .contains(QLatin1String("X17 is an input and can only be read")));
}

void WatchModelTest::toolTipsSayWhetherTheValueHolds()
{
    const auto toolTip = [this] {
        return m_model->index(0, WatchModel::Value).data(Qt::ToolTipRole).toString();
    };
    QCOMPARE(toolTip(), QString::fromUtf8("\u25CB never read"));
    m_tags.takeReadings({readingOf(1, {125}, 4600)});
    QCOMPARE(toolTip(), QStringLiteral("12.5 bar"));
    Reading silent = readingOf(1, {125}, 1000);
    silent.state = kx::WatchState::NoAnswer;
    m_tags.takeReadings({silent});
    QCOMPARE(toolTip(), QString::fromUtf8("12.5 bar\n\u26A0 no answer"));
}

void WatchModelTest::theToolTipOfAFailedWriteReturnsToTheValue()
{
    qint64 now = 5000;
    int ticket = 0;
    ValueWriter writer(&m_tags, [&ticket](int number, const JobMaker&) { ticket = number; });
    WatchModel model(&m_tags, &writer, &m_undo);
    writer.setClock([&now] { return now; });
    model.setClock([&now] { return now; });
    const auto toolTip = [&model] {
        return model.index(0, WatchModel::Value).data(Qt::ToolTipRole).toString();
    };
    m_tags.takeReadings({readingOf(1, {125}, 4600)});
    QVERIFY(model.setData(model.index(0, WatchModel::Value), QStringLiteral("13")));
    kx::Failure failure;
    failure.kind = kx::FailureKind::NoReply;
    failure.text = QStringLiteral("no reply");
    writer.onJobEnded(ticket, failure);
    QCOMPARE(toolTip(), QString::fromUtf8("12.5 bar\n\u2717 not written: no reply"));
    now += 60000;
    QCOMPARE(toolTip(), QStringLiteral("12.5 bar"));
}

void WatchModelTest::selectionsStayWithTheirRows()
{
    const QPersistentModelIndex speed(m_model->index(3, WatchModel::Value));
    const QPersistentModelIndex alarm(m_model->index(2, WatchModel::Name));
    m_tags.insert(0, {tagOf("M0"), tagOf("M1")});
    QCOMPARE(speed.row(), 5);
    m_undo.push(new MoveTags(&m_tags, {4}, 0));
    QCOMPARE(speed.row(), 0);
    QCOMPARE(alarm.row(), 5);
    QCOMPARE(m_model->numberAt(0), 4);
    m_tags.remove({1, 3});
    QVERIFY(!alarm.isValid());
    QCOMPARE(speed.row(), 0);
    QCOMPARE(m_model->rowCount(), 4);
}

void WatchModelTest::rowsComeAndGoInRuns()
{
    QSignalSpy removed(m_model.get(), &WatchModel::rowsRemoved);
    QSignalSpy inserted(m_model.get(), &WatchModel::rowsInserted);
    m_undo.push(new RemoveTags(&m_tags, {1, 2, 4}));
    QCOMPARE(removed.size(), 2);
    m_undo.undo();
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(m_model->rowCount(), 4);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(m_model->numberAt(row), row + 1);
    QCOMPARE(m_model->rowOf(4), 3);
    QCOMPARE(m_model->rowOf(77), -1);
}

void WatchModelTest::veryManyRunsGoAtOnce()
{
    const QList<int> numbers = m_tags.insert(4, {tagOf("D1000:220")});
    QList<int> everySecond;
    for (int i = 0; i < 220; i += 2)
        everySecond << numbers.at(i);
    QSignalSpy removed(m_model.get(), &WatchModel::rowsRemoved);
    QSignalSpy reset(m_model.get(), &WatchModel::modelReset);
    m_undo.push(new RemoveTags(&m_tags, everySecond));
    QCOMPARE(removed.size(), 0);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(m_model->rowCount(), 4 + 110);
    QCOMPARE(m_model->numberAt(4), numbers.at(1));
    QSignalSpy inserted(m_model.get(), &WatchModel::rowsInserted);
    m_undo.undo();
    QCOMPARE(inserted.size(), 0);
    QCOMPARE(reset.size(), 2);
    QCOMPARE(m_model->rowCount(), 4 + 220);
    for (int i = 0; i < 220; ++i)
        QCOMPARE(m_model->numberAt(4 + i), numbers.at(i));
}

void WatchModelTest::draggedRowsMove()
{
    const std::unique_ptr<QMimeData> data(
        m_model->mimeData({m_model->index(2, 0), m_model->index(2, 1), m_model->index(3, 0)}));
    QCOMPARE(data->data(QString::fromLatin1(VALUES_MIME_TYPE)), QByteArray("3\n4\n"));
    QVERIFY(m_model->dropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    QCOMPARE(m_model->numberAt(0), 3);
    QCOMPARE(m_model->numberAt(1), 4);
    QCOMPARE(m_model->numberAt(2), 1);
    m_undo.undo();
    QCOMPARE(m_model->numberAt(0), 1);
}

void WatchModelTest::whatIsDraggedIsTextToo()
{
    const std::unique_ptr<QMimeData> data(m_model->mimeData({m_model->index(0, 0)}));
    QList<kx::Tag> tags;
    QString fault;
    QVERIFY(parseTagsText(data->text(), 1, &tags, &fault));
    QCOMPARE(tags.size(), 1);
    QCOMPARE(tags.first().name, QStringLiteral("Pressure"));
}

void WatchModelTest::intervalsAreEdited()
{
    QCOMPARE(text(0, WatchModel::Every), QString());
    QVERIFY(edit(0, WatchModel::Every, "10s"));
    QCOMPARE(m_tags.values().at(0).tag.interval, 10000);
    QCOMPARE(text(0, WatchModel::Every), QStringLiteral("10 s"));
    QCOMPARE(m_model->sortKey(0, WatchModel::Every), QVariant(10000.0));
    QVERIFY(!m_model->sortKey(1, WatchModel::Every).isValid());
    QVERIFY(edit(0, WatchModel::Every, ""));
    QCOMPARE(m_tags.values().at(0).tag.interval, -1);
    m_undo.undo();
    QCOMPARE(m_tags.values().at(0).tag.interval, 10000);
}

void WatchModelTest::withoutALineNothingIsOk()
{
    m_tags.takeReadings({readingOf(1, {125}, 4600)});
    QSignalSpy changed(m_model.get(), &WatchModel::dataChanged);
    m_model->setOnline(false);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(text(0, WatchModel::State), QString::fromUtf8("\u25CC no line"));
    QCOMPARE(text(0, WatchModel::Value), QStringLiteral("12.5")); // with its age
    m_model->setOnline(true);
    QCOMPARE(text(0, WatchModel::State), QString::fromUtf8("\u25CF ok"));
}

void WatchModelTest::keys()
{
    m_tags.takeReadings({readingOf(1, {0xFFFF}, 4000), readingOf(4, {7}, 3000)});
    QCOMPARE(m_model->sortKey(0, WatchModel::Value), QVariant(-0.1));
    QCOMPARE(m_model->sortKey(3, WatchModel::Value), QVariant(7.0));
    QVERIFY(!m_model->sortKey(1, WatchModel::Value).isValid());
    QVERIFY(m_model->sortKey(0, WatchModel::Age).toDouble()
            < m_model->sortKey(3, WatchModel::Age).toDouble());
    QVERIFY(m_model->sortKey(1, WatchModel::Address).toDouble()
            < m_model->sortKey(3, WatchModel::Address).toDouble());
    QVERIFY(m_model->sortKey(0, WatchModel::Address).toDouble()
            < m_model->sortKey(2, WatchModel::Address).toDouble());
    QCOMPARE(m_model->sortKey(1, WatchModel::Modbus), QVariant(1215.0));
}

QTEST_GUILESS_MAIN(WatchModelTest)
#include "tst_watch_model.moc"
