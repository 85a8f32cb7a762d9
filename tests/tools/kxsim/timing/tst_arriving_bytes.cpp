// Bytes of a host, as a line of some speed brings them. At 10000 baud a character of 10
// bits takes 1 ms.

#include "kxsim/timing/arriving_bytes.h"

#include <QtTest/QTest>

using kxsim::ArrivingBytes;
using kxsim::Moment;
using kxsim::Pace;
using std::chrono::milliseconds;

namespace
{

const Pace MILLISECOND_EACH = {10000, 10};

} // namespace

class ArrivingBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void bytesArriveWhenTheirLastHasTravelled();
    void laterBytesQueueBehindEarlierOnes();
    void aQuietLineIsFreeAtOnce();
    void withoutAPaceTheyAreThereAtOnce();
    void whatIsClearedNeverArrives();
};

void ArrivingBytesTest::bytesArriveWhenTheirLastHasTravelled()
{
    ArrivingBytes arriving(MILLISECOND_EACH);
    QVERIFY(arriving.isEmpty());
    arriving.add("12345678", milliseconds(100));
    QVERIFY(!arriving.isEmpty());
    QCOMPARE(arriving.due(), Moment(milliseconds(108)));
    const ArrivingBytes::Arrival arrival = arriving.take();
    QCOMPARE(arrival.bytes, QByteArray("12345678"));
    QCOMPARE(arrival.end, Moment(milliseconds(108)));
    QVERIFY(arriving.isEmpty());
}

void ArrivingBytesTest::laterBytesQueueBehindEarlierOnes()
{
    ArrivingBytes arriving(MILLISECOND_EACH);
    arriving.add("123", milliseconds(0));
    arriving.add("45", milliseconds(1));
    QCOMPARE(arriving.take().end, Moment(milliseconds(3)));
    QCOMPARE(arriving.due(), Moment(milliseconds(5)));
    QCOMPARE(arriving.take().bytes, QByteArray("45"));
}

void ArrivingBytesTest::aQuietLineIsFreeAtOnce()
{
    ArrivingBytes arriving(MILLISECOND_EACH);
    arriving.add("123", milliseconds(0));
    arriving.take();
    arriving.add("1", milliseconds(50));
    QCOMPARE(arriving.due(), Moment(milliseconds(51)));
}

void ArrivingBytesTest::withoutAPaceTheyAreThereAtOnce()
{
    ArrivingBytes arriving((Pace()));
    arriving.add("123", milliseconds(7));
    QCOMPARE(arriving.due(), Moment(milliseconds(7)));
}

void ArrivingBytesTest::whatIsClearedNeverArrives()
{
    ArrivingBytes arriving(MILLISECOND_EACH);
    arriving.add("12345678", milliseconds(0));
    arriving.clear();
    QVERIFY(arriving.isEmpty());
    arriving.add("1", milliseconds(1));
    QCOMPARE(arriving.due(), Moment(milliseconds(2)));
}

QTEST_APPLESS_MAIN(ArrivingBytesTest)

#include "tst_arriving_bytes.moc"
