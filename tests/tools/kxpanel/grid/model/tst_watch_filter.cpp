#include "kxpanel/grid/model/watch_filter.h"

#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QSignalSpy>

#include <QUndoStack>
#include <QtCore/QMimeData>

using namespace kxpanel;

class WatchFilterTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void words_data();
    void words();
    void oneTypeOnly();
    void states_data();
    void states();
    void sorts_data();
    void sorts();
    void newReadingsMoveNoRows();
    void rowsComeBackToTheirPlace_data();
    void rowsComeBackToTheirPlace();
    void newRowsFollowThoseThatAreSorted();
    void manyRowsGoAndComeAtOnce();
    void manyRemovedRowsComeBackAtOnce();
    void dropsNeedTheListsOrder();

private:
    QString rows() const;
    int numberAt(int row) const
    {
        return m_filter->index(row, 0).data(WatchModel::NumberRole).toInt();
    }

    TagList m_tags;
    QUndoStack m_undo;
    ValueWriter m_writer{&m_tags, [](int, const JobMaker&) {}};
    std::unique_ptr<WatchModel> m_model;
    std::unique_ptr<WatchFilter> m_filter;
};

void WatchFilterTest::init()
{
    m_filter.reset();
    m_model.reset();
    kx::Tag pressure = tagOf("D100", "Pressure");
    pressure.comment = QStringLiteral("after the filter");
    m_tags.setValues({});
    m_tags.setValues({{1, pressure},
                      {2, tagOf("X17", "pump ready")},
                      {3, tagOf("Y10", "Pump running")},
                      {4, tagOf("D9", "Speed")},
                      {5, tagOf("D20")}});
    Reading silent = readingOf(3, {1});
    silent.state = kx::WatchState::NoAnswer;
    Reading changed = readingOf(4, {65000}, 5000);
    changed.changedAt = 4900;
    m_tags.takeReadings({readingOf(1, {700}), readingOf(2, {0}, 900), silent, changed});
    m_model.reset(new WatchModel(&m_tags, &m_writer, &m_undo));
    m_model->setClock([]() { return qint64(5000); });
    m_filter.reset(new WatchFilter(m_model.get()));
}

/// Numbers of the values, in the order of the rows.
QString WatchFilterTest::rows() const
{
    QString text;
    for (int row = 0; row < m_filter->rowCount(); ++row)
        text += m_filter->index(row, 0).data(WatchModel::NumberRole).toString();
    return text;
}

void WatchFilterTest::words_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("rows");
    QTest::newRow("none") << "  "
                          << "12345";
    QTest::newRow("part of a name, whatever its case") << "PUMP"
                                                       << "23";
    QTest::newRow("all words") << "pump  run"
                               << "3";
    QTest::newRow("an address") << "d20"
                                << "5";
    QTest::newRow("a comment") << "filter"
                               << "1";
    QTest::newRow("name and comment") << "press after"
                                      << "1";
    QTest::newRow("nothing fits") << "valve"
                                  << "";
}

void WatchFilterTest::words()
{
    QFETCH(QString, typed);
    m_filter->setText(typed);
    QTEST(rows(), "rows");
}

void WatchFilterTest::oneTypeOnly()
{
    m_filter->setType(QStringLiteral("D"));
    QCOMPARE(rows(), QStringLiteral("145"));
    m_filter->setText(QStringLiteral("speed"));
    QCOMPARE(rows(), QStringLiteral("4"));
    m_filter->setText(QString());
    m_filter->setType(QString());
    QVERIFY(!m_filter->isFiltering());
    QCOMPARE(rows(), QStringLiteral("12345"));
}

void WatchFilterTest::states_data()
{
    QTest::addColumn<int>("states");
    QTest::addColumn<QString>("rows");
    QTest::newRow("all") << static_cast<int>(StateFilter::All) << "12345";
    QTest::newRow("what asks for attention") << static_cast<int>(StateFilter::Attention) << "3";
    QTest::newRow("changed") << static_cast<int>(StateFilter::Changed) << "4";
    QTest::newRow("never read") << static_cast<int>(StateFilter::NotRead) << "5";
}

void WatchFilterTest::states()
{
    QFETCH(int, states);
    m_filter->setStates(static_cast<StateFilter>(states));
    QTEST(rows(), "rows");
    m_tags.takeReadings({readingOf(3, {1}), readingOf(5, {1})});
    m_filter->refreshStates();
    QCOMPARE(rows().contains(QLatin1Char('3')), states == static_cast<int>(StateFilter::All));
}

void WatchFilterTest::sorts_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("falling");
    QTest::addColumn<QString>("rows");
    QTest::newRow("the list's order") << -1 << false << "12345";
    QTest::newRow("by value, as numbers")
        << static_cast<int>(WatchModel::Value) << false << "23145";
    QTest::newRow("falling, what has none still last")
        << static_cast<int>(WatchModel::Value) << true << "41325";
    QTest::newRow("by address, as numbers")
        << static_cast<int>(WatchModel::Address) << false << "23451";
    QTest::newRow("by age") << static_cast<int>(WatchModel::Age) << false << "41325";
    QTest::newRow("by state") << static_cast<int>(WatchModel::State) << true << "35412";
}

void WatchFilterTest::sorts()
{
    QFETCH(int, column);
    QFETCH(bool, falling);
    m_filter->sort(column, falling ? Qt::DescendingOrder : Qt::AscendingOrder);
    QTEST(rows(), "rows");
}

void WatchFilterTest::newReadingsMoveNoRows()
{
    m_filter->sort(WatchModel::Value);
    m_tags.takeReadings({readingOf(4, {1}), readingOf(5, {2})});
    m_model->refresh(0, 4);
    QCOMPARE(rows(), QStringLiteral("23145"));
    m_filter->sort(WatchModel::Value);
    QCOMPARE(rows().right(2), QStringLiteral("51"));
}

void WatchFilterTest::rowsComeBackToTheirPlace_data()
{
    QTest::addColumn<bool>("falling");
    QTest::addColumn<QString>("sorted");
    QTest::addColumn<QString>("ofTypeD");
    QTest::newRow("rising") << false << "23145"
                            << "145";
    QTest::newRow("falling") << true << "41325"
                             << "415";
}

void WatchFilterTest::rowsComeBackToTheirPlace()
{
    QFETCH(bool, falling);
    QFETCH(QString, sorted);
    m_filter->sort(WatchModel::Value, falling ? Qt::DescendingOrder : Qt::AscendingOrder);
    QCOMPARE(rows(), sorted);
    m_tags.takeReadings({readingOf(4, {1})}); // which moves no row
    m_filter->setType(QStringLiteral("D"));
    QTEST(rows(), "ofTypeD");
    m_filter->setType(QString());
    QCOMPARE(rows(), sorted);
    m_filter->setText(QStringLiteral("pump"));
    m_filter->setText(QStringLiteral("p"));
    m_filter->setText(QString());
    QCOMPARE(rows(), sorted);
}

// Until they are sorted again.
void WatchFilterTest::newRowsFollowThoseThatAreSorted()
{
    m_filter->sort(WatchModel::Value);
    m_tags.insert(1, {tagOf("D30"), tagOf("D31")});
    QCOMPARE(rows(), QStringLiteral("2314567"));
    m_filter->setType(QStringLiteral("X"));
    m_filter->setType(QString());
    QCOMPARE(rows(), QStringLiteral("2314567"));
}

// One after the other they would hold the window up.
void WatchFilterTest::manyRowsGoAndComeAtOnce()
{
    QList<kx::Tag> tags;
    for (int i = 0; i < 200; ++i)
        tags << tagOf("D1000", i % 2 == 0 ? "odd" : "even");
    m_tags.insert(5, tags);
    QSignalSpy gone(m_filter.get(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy come(m_filter.get(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(m_filter.get(), &WatchFilter::rowsChanged);
    m_filter->setText(QStringLiteral("even"));
    QCOMPARE(m_filter->rowCount(), 100);
    m_filter->setText(QString());
    QCOMPARE(m_filter->rowCount(), 205);
    QCOMPARE(gone.size() + come.size(), 0);
    QCOMPARE(changed.size(), 2);
    m_filter->setText(QStringLiteral(" ")); // hides none
    QCOMPARE(changed.size(), 2);
}

// Each run of them would be sorted in by itself, the removal's as the undo's.
void WatchFilterTest::manyRemovedRowsComeBackAtOnce()
{
    m_tags.setValues({});
    const QList<int> numbers = m_tags.insert(0, {tagOf("D0:5000")});
    QVector<Reading> readings;
    for (int row = 0; row < 5000; ++row)
        readings << readingOf(numbers.at(row), {5000 - row});
    m_tags.takeReadings(readings);
    m_filter->sort(WatchModel::Value); // the last of the list is the first row
    QList<int> everySecond;
    for (int row = 0; row < 5000; row += 2)
        everySecond << numbers.at(row);
    int signalsOfViews = 0;
    const auto count = [&signalsOfViews] { ++signalsOfViews; };
    connect(m_filter.get(), &QAbstractItemModel::layoutChanged, this, count);
    connect(m_filter.get(), &QAbstractItemModel::modelReset, this, count);
    connect(m_filter.get(), &QAbstractItemModel::rowsInserted, this, count);
    connect(m_filter.get(), &QAbstractItemModel::rowsRemoved, this, count);
    m_undo.push(new RemoveTags(&m_tags, everySecond));
    QCOMPARE(m_filter->rowCount(), 2500);
    QCOMPARE(signalsOfViews, 1);
    m_undo.undo();
    QCOMPARE(m_filter->rowCount(), 5000);
    QCOMPARE(signalsOfViews, 2);
    for (int row = 0; row < 5000; ++row)
        QCOMPARE(numberAt(row), numbers.at(4999 - row));
    QCOMPARE(m_filter->index(0, WatchModel::Value).data().toString(), QStringLiteral("1"));
    QCOMPARE(m_filter->index(4998, WatchModel::Value).data().toString(), QStringLiteral("4999"));
}

void WatchFilterTest::dropsNeedTheListsOrder()
{
    const std::unique_ptr<QMimeData> data(m_model->mimeData({m_model->index(0, 0)}));
    const auto canDrop = [&]() {
        return m_filter->canDropMimeData(data.get(), Qt::MoveAction, 2, 0, QModelIndex());
    };
    QVERIFY(canDrop());
    m_filter->sort(WatchModel::Value);
    QVERIFY(!canDrop());
    m_filter->sort(-1);
    m_filter->setText(QStringLiteral("pump"));
    QVERIFY(!canDrop());
    m_filter->setText(QString());
    QMimeData text;
    text.setText(QStringLiteral("D0"));
    QVERIFY(!m_filter->canDropMimeData(&text, Qt::MoveAction, 2, 0, QModelIndex()));
    QVERIFY(canDrop());
}

QTEST_GUILESS_MAIN(WatchFilterTest)
#include "tst_watch_filter.moc"
