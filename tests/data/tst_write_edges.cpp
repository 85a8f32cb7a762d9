// Writes with request limits, kinds and addresses at the edges of int. Values lie in
// memory as long as they are, so that AddressSanitizer sees what reaches past them.

#include "data/cached_record.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

void writeExactly(const char* type, int address, int count, const char* hex, int kind = WRITE_JOB)
{
    const QByteArray text = bytes(hex);
    std::vector<unsigned char> values(text.begin(), text.end());
    QCOMPARE(intf_setData(1, QString::fromLatin1(type), address, count, values.data(), kind), 1);
}

/// "ADDRESS xCOUNT" of each job.
QString queued()
{
    QStringList texts;
    for (const VARIABLE& job : driver.writeList)
        texts << QString("%1 x%2").arg(job.address).arg(job.count);
    return texts.join(", ");
}

} // namespace

class WriteEdgesTest : public QObject
{
    Q_OBJECT

private slots:
    void limits_data();
    void limits();
    void theLimitIsNotForCoils();
    void kinds();
    void addressesWrapFromPieceToPiece();
    void addressesOfCoilsWrapToo();
    void aLongWriteOfCoilsGoesInTwoRequests();
    void aLongWriteRenewsItsWaitingPieces();
};

void WriteEdgesTest::limits_data()
{
    QTest::addColumn<QByteArray>("limit");
    QTest::addColumn<QString>("jobs");
    QTest::newRow("the lowest int: whole") << QByteArray("-2147483648") << "100 x3";
    QTest::newRow("longer than three, negative: whole") << QByteArray("-4") << "100 x3";
    QTest::newRow("-3: nothing") << QByteArray("-3") << "";
    QTest::newRow("-2: nothing") << QByteArray("-2") << "";
    QTest::newRow("-1: nothing") << QByteArray("-1") << "";
    QTest::newRow("0: nothing") << QByteArray("0") << "";
    QTest::newRow("1: each by itself") << QByteArray("1") << "100 x1, 101 x1, 102 x1";
    QTest::newRow("2: a rest") << QByteArray("2") << "100 x2, 102 x1";
    QTest::newRow("the highest int: whole") << QByteArray("2147483647") << "100 x3";
    QTest::newRow("no int: nothing") << QByteArray("2147483648") << "";
}

// Whatever is queued, the cache holds all of it at once.
void WriteEdgesTest::limits()
{
    QFETCH(QByteArray, limit);
    QFETCH(QString, jobs);
    DriverFixture runtime(("1#0#0#1#" + limit).constData());
    writeExactly("D", 100, 3, "1111 2222 3333");
    QCOMPARE(queued(), jobs);
    QCOMPARE(DriverFixture::data(1, "D", 100, 3, 6), bytes("1111 2222 3333"));
    QCOMPARE(cachedCount(), 3);
    const QByteArray sent = bytes("1111 2222 3333");
    for (const VARIABLE& piece : driver.writeList) {
        const QByteArray payload(reinterpret_cast<const char*>(piece.data), PAYLOAD_SIZE);
        QCOMPARE(payload.left(2 * piece.count),
                 sent.mid(2 * (piece.address - 100), 2 * piece.count));
        QCOMPARE(payload.mid(2 * piece.count), QByteArray(PAYLOAD_SIZE - 2 * piece.count, '\0'));
    }

    driver.writeList.clear();
    writeExactly("32CV", 100, 3, "44444444 5555"); // a value and a half
    QCOMPARE(queued(), jobs);
    QCOMPARE(DriverFixture::data(1, "32CV", 100, 2, 4), bytes("44444444"));
    QCOMPARE(cachedCount(), 4);
}

void WriteEdgesTest::theLimitIsNotForCoils()
{
    for (const char* limit : {"-2147483648", "-1", "0", "1", "2147483647"}) {
        DriverFixture runtime((QByteArray("1#0#0#1#") + limit).constData());
        writeExactly("Y", 100, 3, "010001");
        QCOMPARE(queued(), QString("100 x3"));
        QCOMPARE(runtime.poll(), withCrc("01 0F 0064 0003 01 05"));
        QCOMPARE(runtime.deal(withCrc("01 0F 0064 0003")), 1);
        QCOMPARE(readValue(1, "Y", 102), bytes("01000000"));
    }
}

// Carried in the job, where nothing reads it.
void WriteEdgesTest::kinds()
{
    for (const int kind : {INT_MIN, -1, 0, 4, 6, 65538, INT_MAX}) {
        DriverFixture runtime;
        writeExactly("D", 5, 1, "3412", kind);
        QCOMPARE(driver.writeList.first().kind, kind);
        QCOMPARE(runtime.poll(), withCrc("01 06 0005 1234"));
        QCOMPARE(driver.currentKind, int(WRITE_JOB));
        QCOMPARE(runtime.polled().job.kind, kind);
        QCOMPARE(runtime.deal(withCrc("01 06 0005 1234")), 1);
        QCOMPARE(readValue(1, "D", 5), bytes("34120000"));
        QVERIFY(!isPending(1, "D", 5));
        QVERIFY(driver.writeList.isEmpty());
    }
}

void WriteEdgesTest::addressesWrapFromPieceToPiece()
{
    DriverFixture runtime("1#0#0#1#1");
    writeExactly("D", INT_MAX, 3, "1111 2222 3333");
    QCOMPARE(queued(), QString("2147483647 x1, -2147483648 x1, -2147483647 x1"));
    QCOMPARE(writtenValue(1, "D", INT_MAX), bytes("11110000"));
    QCOMPARE(writtenValue(1, "D", INT_MIN), bytes("22220000"));
    QCOMPARE(writtenValue(1, "D", INT_MIN + 1), bytes("33330000"));
    QCOMPARE(runtime.poll(), withCrc("01 06 FFFF 1111"));
    QCOMPARE(runtime.deal(withCrc("01 06 FFFF 1111")), 1);
    QCOMPARE(readValue(1, "D", INT_MAX), bytes("11110000"));
}

void WriteEdgesTest::addressesOfCoilsWrapToo()
{
    DriverFixture runtime;
    std::vector<unsigned char> coils(1025, 1);
    intf_setData(1, "Y", INT_MAX - 1023, 1025, coils.data(), WRITE_JOB);
    QCOMPARE(queued(), QString("2147482624 x1024, -2147483648 x1"));
    QCOMPARE(writtenValue(1, "Y", INT_MAX), bytes("01000000"));
    QCOMPARE(writtenValue(1, "Y", INT_MIN), bytes("01000000"));
}

// 1030 coils, all on: a request of 1024 and one of 6. A multiple of eight has its last
// eight sent as off, so M1016 to M1023 are.
void WriteEdgesTest::aLongWriteOfCoilsGoesInTwoRequests()
{
    DriverFixture runtime;
    std::vector<unsigned char> coils(1030, 1);
    intf_setData(1, "M", 0, 1030, coils.data(), WRITE_JOB);
    QCOMPARE(runtime.poll(), withCrc((QByteArray("01"   // station
                                                 "0F"   // write multiple coils
                                                 "07D0" // coil 2000
                                                 "0400" // 1024 coils
                                                 "80")  // 128 bytes
                                      + QByteArray("FF").repeated(127) + "00")
                                         .constData()));
    QCOMPARE(runtime.deal(withCrc("01 0F 07D0 0400")), 1);
    QCOMPARE(runtime.poll(), withCrc("01"   // station
                                     "0F"   // write multiple coils
                                     "0BD0" // coil 3024
                                     "0006" // six coils
                                     "01"   // one byte
                                     "3F"   // all on
                                     ));
    QCOMPARE(runtime.deal(withCrc("01 0F 0BD0 0006")), 1);
    QCOMPARE(readValue(1, "M", 1029), bytes("01000000"));
    QVERIFY(!isPending(1, "M", 1029));
    QVERIFY(driver.writeList.isEmpty());
}

// The head may be on the line already; the other pieces take the newer values in place.
void WriteEdgesTest::aLongWriteRenewsItsWaitingPieces()
{
    DriverFixture runtime;
    std::vector<unsigned char> coils(2050, 0);
    intf_setData(1, "M", 0, 2050, coils.data(), WRITE_JOB);
    coils.assign(2050, 1);
    intf_setData(1, "M", 0, 2050, coils.data(), WRITE_JOB);
    QCOMPARE(queued(), QString("0 x1024, 1024 x1024, 2048 x2, 0 x1024"));
    QCOMPARE(int(driver.writeList.at(0).data[1023]), 0);
    QCOMPARE(int(driver.writeList.at(1).data[1023]), 1);
    QCOMPARE(int(driver.writeList.at(2).data[1]), 1);
    QCOMPARE(int(driver.writeList.at(3).data[1023]), 1);
}

QTEST_APPLESS_MAIN(WriteEdgesTest)
#include "tst_write_edges.moc"
