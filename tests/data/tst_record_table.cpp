#include "data/record_table.h"

#include <QtTest/QTest>

namespace
{

_DATA_ record(int station, const char* regType, int address)
{
    _DATA_ made = _DATA_();
    made.station = station;
    made.regType = QString(regType);
    made.address = address;
    return made;
}

} // namespace

class RecordTableTest : public QObject
{
    Q_OBJECT

private slots:
    void anEmptyTableFindsNothing()
    {
        const QList<_DATA_> list = QList<_DATA_>() << record(1, "D", 0);
        RecordTable table;
        QCOMPARE(table.find(list, 1, QString("D"), 0), -1);
        QCOMPARE(table.keys(), 0);
    }

    void theWholeKeyCounts()
    {
        const QList<_DATA_> list = QList<_DATA_>() << record(1, "D", 7) << record(2, "D", 7)
                                                   << record(1, "M", 7) << record(1, "D", 8);
        RecordTable table;
        for (int i = 0; i < list.size(); ++i)
            table.add(list, i);
        QCOMPARE(table.find(list, 1, QString("D"), 7), 0);
        QCOMPARE(table.find(list, 2, QString("D"), 7), 1);
        QCOMPARE(table.find(list, 1, QString("M"), 7), 2);
        QCOMPARE(table.find(list, 1, QString("D"), 8), 3);
        QCOMPARE(table.find(list, 2, QString("M"), 7), -1);
        QCOMPARE(table.find(list, 1, QString("d"), 7), -1);
        QCOMPARE(table.keys(), 4);
    }

    void theFirstOfAKeyIsFound()
    {
        const QList<_DATA_> list = QList<_DATA_>() << record(1, "D", 7) << record(1, "D", 7);
        RecordTable table;
        table.add(list, 0);
        table.add(list, 1);
        QCOMPARE(table.find(list, 1, QString("D"), 7), 0);
        QCOMPARE(table.keys(), 1);
    }

    // Begins with 64 places and doubles when four fifths are taken: at 52, 103, 205, ...
    void growsWithItsRecords()
    {
        QList<_DATA_> list;
        RecordTable table;
        for (int i = 0; i < 1000; ++i) {
            list << record(1, "D", 3 * i);
            table.add(list, i);
        }
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(table.find(list, 1, QString("D"), 3 * i), i);
        QCOMPARE(table.find(list, 1, QString("D"), 1), -1);
        QCOMPARE(table.keys(), 1000);
    }

    void aClearedTableIsEmpty()
    {
        const QList<_DATA_> list = QList<_DATA_>() << record(1, "D", 7);
        RecordTable table;
        table.add(list, 0);
        table.clear();
        QCOMPARE(table.find(list, 1, QString("D"), 7), -1);
        QCOMPARE(table.keys(), 0);
    }
};

QTEST_APPLESS_MAIN(RecordTableTest)
#include "tst_record_table.moc"
