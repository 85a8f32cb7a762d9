// Every small damage to a reply of 255 bytes is refused, and nothing that the
// driver holds is touched. Bits are numbered as they travel on the line: each
// byte's least significant bit first.

#include "modbus/outstanding_read.h"

#include <QtTest/QTest>

namespace
{

const int REPLY_BITS = 2040;
// Bursts at every start up to this many bits, and longer ones at a few starts;
// KX_ALL_BURSTS=1 takes all of them, 67 million, in half a minute or so.
const int ORDINARY_BURST = 11;
const int LONGEST_BURST = 16;

/// Bursts of 2 to `longest` bits that start at `start`: first and last bit wrong,
/// any of those between. Bursts that would leave the reply are left out.
qint64 refusedBursts(OutstandingRead& read, int start, int longest)
{
    qint64 refused = 0;
    for (int length = 2; length <= longest && start + length <= REPLY_BITS; ++length) {
        for (int inner = 0; inner < 1 << (length - 2); ++inner) {
            const int pattern = 1 | inner << 1 | 1 << (length - 1);
            read.flipBits(start, pattern);
            refused += read.isRefused() ? 1 : 0;
            read.flipBits(start, pattern);
        }
    }
    return refused;
}

/// All bursts of 2 to `longest` bits within the reply: 2^(length - 2) patterns at
/// each of 2040 - length + 1 starts.
qint64 burstsUpTo(int longest)
{
    qint64 bursts = 0;
    for (int length = 2; length <= longest; ++length)
        bursts += (Q_INT64_C(1) << (length - 2)) * (REPLY_BITS - length + 1);
    return bursts;
}

QByteArray withOwnCrc(const QByteArray& frame)
{
    return withCrc(frame.toHex().constData());
}

} // namespace

class DamagedRepliesTest : public QObject
{
    Q_OBJECT

private slots:
    void oneBit_data() { contents(); }
    void oneBit();
    void twoBits_data() { contents(); }
    void twoBits();
    void shortBursts_data() { contents(); }
    void shortBursts();
    void longBursts_data() { contents(); }
    void longBursts();
    void tooShort_data() { contents(); }
    void tooShort();
    void tooLong_data() { contents(); }
    void tooLong();
    void aFinalFailureMarksTheAddressesAndNothingElse();

private:
    static void contents();
};

void DamagedRepliesTest::contents()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("step");
    QTest::newRow("registers of many values") << 0x1234 << 0x3B1D;
    QTest::newRow("registers all 0") << 0 << 0;
    QTest::newRow("registers all FFFF") << 0xFFFF << 0;
}

void DamagedRepliesTest::oneBit()
{
    QFETCH(int, first);
    QFETCH(int, step);
    OutstandingRead read(first, step);
    for (int bit = 0; bit < REPLY_BITS; ++bit) {
        read.flipBits(bit, 1);
        QVERIFY2(read.isRefused(), qPrintable(QString::number(bit)));
        read.flipBits(bit, 1);
    }
    QVERIFY(read.endsWell());
}

void DamagedRepliesTest::twoBits()
{
    QFETCH(int, first);
    QFETCH(int, step);
    OutstandingRead read(first, step);
    int refused = 0;
    for (int a = 0; a < REPLY_BITS; ++a) {
        read.flipBits(a, 1);
        for (int b = a + 1; b < REPLY_BITS; ++b) {
            read.flipBits(b, 1);
            refused += read.isRefused() ? 1 : 0;
            read.flipBits(b, 1);
        }
        read.flipBits(a, 1);
    }
    QCOMPARE(refused, 2079780); // 2040 * 2039 / 2
    QVERIFY(read.endsWell());
}

void DamagedRepliesTest::shortBursts()
{
    QFETCH(int, first);
    QFETCH(int, step);
    const int longest = !qgetenv("KX_ALL_BURSTS").isEmpty() ? LONGEST_BURST : ORDINARY_BURST;
    OutstandingRead read(first, step);
    qint64 refused = 0;
    for (int start = 0; start < REPLY_BITS; ++start)
        refused += refusedBursts(read, start, longest);
    QCOMPARE(refused, burstsUpTo(longest));
    QVERIFY(read.endsWell());
    qDebug("%lld bursts of up to %d bits", refused, longest);
}

void DamagedRepliesTest::longBursts()
{
    QFETCH(int, first);
    QFETCH(int, step);
    OutstandingRead read(first, step);
    // At the station, across the byte count, amid the registers at both kinds of
    // byte edge, across the end of the registers, over the CRC alone.
    for (const int start : {0, 17, 1000, 1007, 2017, 2024})
        QCOMPARE(refusedBursts(read, start, LONGEST_BURST), qint64(32767));
    QVERIFY(read.endsWell());
}

void DamagedRepliesTest::tooShort()
{
    QFETCH(int, first);
    QFETCH(int, step);
    OutstandingRead read(first, step);
    for (int length = 0; length < 255; ++length) {
        QVERIFY2(read.refuses(read.good().left(length)), "cut off");
        QVERIFY2(read.refuses(read.good().right(length)), "begun too late");
        if (length >= 2)
            QVERIFY2(read.refuses(withOwnCrc(read.good().left(length - 2))), "CRC of its own");
    }
    QVERIFY(read.endsWell());
}

void DamagedRepliesTest::tooLong()
{
    QFETCH(int, first);
    QFETCH(int, step);
    OutstandingRead read(first, step);
    QList<int> lengths = {600, 1024, 4096, 65535, 65536, 65537, 65791, 131327, 1000000};
    for (int length = 256; length <= 511; ++length)
        lengths << length;
    int refused = 0;
    for (const int length : lengths) {
        const int more = length - 255;
        const QByteArray others[] = {
            read.good() + QByteArray(more, '\0'), read.good() + QByteArray(more, '\xFF'),
            QByteArray(more, '\0') + read.good(),
            withOwnCrc((read.good() + QByteArray(more, '\x5A')).left(length - 2))};
        for (const QByteArray& longer : others) {
            QCOMPARE(static_cast<int>(longer.size()), length);
            QVERIFY2(read.refuses(longer), longer.right(4).toHex().constData());
            ++refused;
        }
    }
    QVERIFY(read.refuses(read.good() + read.good()));
    QCOMPARE(refused, 1060); // four of each of 265 lengths
    QVERIFY(read.endsWell());
}

void DamagedRepliesTest::aFinalFailureMarksTheAddressesAndNothingElse()
{
    OutstandingRead read(0x1234, 0x3B1D);
    driver.retryLimit = 2;
    QVERIFY(read.refuses(read.good().left(254)));
    QByteArray damaged = read.good();
    damaged[100] = static_cast<char>(damaged.at(100) ^ 1);
    QString errorText;
    QCOMPARE(intf_dealRcvFrame(damaged, errorText), 2);
    QCOMPARE(errorText, QString("255,1,100,D"));
    QCOMPARE(read.marksOfFailure(), 125);
    QVERIFY(read.onlyMarksDiffer());
    QCOMPARE(driver.commFailed, 1);
    QVERIFY(driver.frameList.isEmpty());
}

QTEST_APPLESS_MAIN(DamagedRepliesTest)
#include "tst_damaged_replies.moc"
