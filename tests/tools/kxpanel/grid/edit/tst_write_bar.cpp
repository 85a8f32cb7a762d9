#include "kxpanel/grid/edit/write_bar.h"

#include "kxpanel/grid/model/value_writer.h"
#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QSignalSpy>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace kxpanel;

class WriteBarTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void asksFirst();
    void namesTheFirstAndCountsTheRest();
    void writesNothingThatDoesNotFitAll();
    void writesToAll();
    void isCalledOff();
    void nothingToWrite();
    void asksForEach();
    void asksForNoneWhenOneDoesNotFit_data();
    void asksForNoneWhenOneDoesNotFit();
    void enterOnCancelWritesNothing();

private:
    QString question() const { return m_bar->findChildren<QLabel*>().first()->text(); }
    bool canWrite() const { return m_bar->findChildren<QPushButton*>().first()->isEnabled(); }

    TagList m_tags; ///< empty: the bar is given its values
    int m_jobs = 0;
    std::unique_ptr<ValueWriter> m_writer;
    std::unique_ptr<WriteBar> m_bar;
};

void WriteBarTest::init()
{
    m_jobs = 0;
    m_bar.reset();
    m_writer.reset(new ValueWriter(&m_tags, [this](int, const JobMaker&) { ++m_jobs; }));
    m_bar.reset(new WriteBar(m_writer.get()));
}

void WriteBarTest::asksFirst()
{
    m_bar->ask({{1, tagOf("D0@2", "Speed")}, {2, tagOf("D1@1")}, {3, tagOf("X0@3")}});
    QVERIFY(m_bar->isVisible());
    QCOMPARE(question(),
             QStringLiteral("Write to 2 values of stations 1, 2: Speed, D1. 1 can only be read."));
    QVERIFY(!canWrite());
    QTest::keyClick(m_bar->edit(), Qt::Key_Return);
    QCOMPARE(m_jobs, 0);
    QVERIFY(m_bar->isVisible());
}

void WriteBarTest::namesTheFirstAndCountsTheRest()
{
    QList<WatchedValue> values;
    for (int i = 0; i < 6; ++i)
        values << WatchedValue{i + 1, tagOf(qPrintable(QStringLiteral("M%1").arg(i)))};
    m_bar->ask(values);
    QCOMPARE(question(),
             QStringLiteral("Write to 6 values of station 1: M0, M1, M2, M3 and 2 more."));
}

void WriteBarTest::writesNothingThatDoesNotFitAll()
{
    m_bar->ask({{1, tagOf("D0", "Speed")}, {2, tagOf("M0", "Pump")}});
    QTest::keyClicks(m_bar->edit(), QStringLiteral("5"));
    QCOMPARE(m_bar->findChildren<QLabel*>().last()->text(),
             QStringLiteral("Pump=5: 5 does not fit; M takes 0 to 1"));
    QVERIFY(!canWrite());
    QTest::keyClick(m_bar->edit(), Qt::Key_Return);
    QCOMPARE(m_jobs, 0);
}

void WriteBarTest::writesToAll()
{
    QSignalSpy closed(m_bar.get(), &WriteBar::closed);
    m_bar->ask({{1, tagOf("D0", "Speed")}, {2, tagOf("M0", "Pump")}});
    QTest::keyClicks(m_bar->edit(), QStringLiteral("1"));
    QVERIFY(canWrite());
    QTest::keyClick(m_bar->edit(), Qt::Key_Return);
    QCOMPARE(m_jobs, 1); // one after the other
    QVERIFY(m_writer->writeOf(1) && m_writer->writeOf(2));
    QVERIFY(!m_bar->isVisible());
    QCOMPARE(closed.size(), 1);
}

void WriteBarTest::isCalledOff()
{
    m_bar->ask({{1, tagOf("D0", "Speed")}, {2, tagOf("M0", "Pump")}});
    QTest::keyClicks(m_bar->edit(), QStringLiteral("1"));
    QTest::keyClick(m_bar->edit(), Qt::Key_Escape);
    QVERIFY(!m_bar->isVisible());
    QCOMPARE(m_jobs, 0);
}

void WriteBarTest::nothingToWrite()
{
    m_bar->ask({{3, tagOf("X0")}, {4, tagOf("X1")}});
    QCOMPARE(question(), QStringLiteral("What is selected can only be read."));
    QVERIFY(!m_bar->edit()->isEnabled());
    QVERIFY(!canWrite());
}

void WriteBarTest::asksForEach()
{
    QString fault;
    QVERIFY(m_bar->askEach(
        {{{1, tagOf("D0/s16*0.1", "Pressure")}, "12.5"}, {{2, tagOf("M0")}, "1"}}, &fault));
    QVERIFY(m_bar->isVisible());
    QVERIFY(!m_bar->edit()->isVisible());
    QCOMPARE(question(), QStringLiteral("Write 2 values of station 1: Pressure = 12.5, M0 = 1."));
    QCOMPARE(m_jobs, 0);
    auto* const write = m_bar->findChildren<QPushButton*>().first();
    QVERIFY(canWrite());
    QTest::keyClick(write, Qt::Key_Return);
    QCOMPARE(m_writer->writeOf(1)->text, QStringLiteral("12.5"));
    QCOMPARE(m_writer->writeOf(2)->text, QStringLiteral("1"));
    QVERIFY(!m_bar->isVisible());
    m_bar->ask({{1, tagOf("D0")}, {2, tagOf("M0")}}); // what was asked before is forgotten
    QVERIFY(m_bar->edit()->isVisible());
    QVERIFY(!canWrite());
}

void WriteBarTest::asksForNoneWhenOneDoesNotFit_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    QTest::newRow("a value that does not fit") << "M0"
                                               << "5"
                                               << "M0=5: 5 does not fit; M takes 0 to 1";
    QTest::newRow("an input") << "X0"
                              << "1"
                              << "X0 is an input and can only be read";
}

void WriteBarTest::asksForNoneWhenOneDoesNotFit()
{
    QFETCH(QString, address);
    QFETCH(QString, text);
    QString fault;
    QVERIFY(!m_bar->askEach({{{1, tagOf("D0")}, "1"}, {{2, tagOf(qPrintable(address))}, text}},
                            &fault));
    QTEST(fault, "fault");
    QVERIFY(!m_bar->isVisible());
    QCOMPARE(m_jobs, 0);
}

void WriteBarTest::enterOnCancelWritesNothing()
{
    m_bar->ask({{1, tagOf("D0", "Speed")}, {2, tagOf("M0", "Pump")}});
    QTest::keyClicks(m_bar->edit(), QStringLiteral("1"));
    QTest::keyClick(m_bar->findChildren<QPushButton*>().last(), Qt::Key_Return);
    QVERIFY(!m_bar->isVisible());
    QCOMPARE(m_jobs, 0);
}

QTEST_MAIN(WriteBarTest)
#include "tst_write_bar.moc"
