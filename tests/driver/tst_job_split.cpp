#include "driver/job_split.h"

#include <QtTest/QTest>

class JobSplitTest : public QObject
{
    Q_OBJECT

private slots:
    void pieces_data();
    void pieces();
};

void JobSplitTest::pieces_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QList<int>>("lengths");
    QTest::newRow("nothing") << 0 << 10 << QList<int>();
    QTest::newRow("less than one piece") << 3 << 10 << QList<int>({3});
    QTest::newRow("one whole piece") << 10 << 10 << QList<int>({10});
    QTest::newRow("one more than a piece") << 11 << 10 << QList<int>({10, 1});
    QTest::newRow("whole pieces") << 30 << 10 << QList<int>({10, 10, 10});
    QTest::newRow("a remainder") << 25 << 10 << QList<int>({10, 10, 5});
    QTest::newRow("pieces of one") << 3 << 1 << QList<int>({1, 1, 1});
}

void JobSplitTest::pieces()
{
    QFETCH(int, count);
    QFETCH(int, limit);
    QFETCH(QList<int>, lengths);
    QCOMPARE(pieceCount(count, limit), static_cast<int>(lengths.size()));
    for (int piece = 0; piece < lengths.size(); ++piece)
        QCOMPARE(pieceLength(count, limit, piece), lengths.at(piece));
}

QTEST_APPLESS_MAIN(JobSplitTest)
#include "tst_job_split.moc"
