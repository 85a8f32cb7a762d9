#include "relay/relay.h"

#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

using namespace kx;

namespace
{

/// A program at one of the ports, without an event loop.
class Program
{
public:
    explicit Program(const QString& port)
        : m_port(open(port.toLocal8Bit().constData(), O_RDWR | O_NOCTTY))
    {
    }
    ~Program() { close(m_port); }

    void send(const QByteArray& bytes) const
    {
        const auto count = static_cast<size_t>(bytes.size());
        QCOMPARE(write(m_port, bytes.constData(), count), ssize_t(count));
    }
    QByteArray receive(int count) const
    {
        const int patience = 5000; // milliseconds
        QByteArray bytes;
        pollfd asked = {m_port, POLLIN, 0};
        while (bytes.size() < count && poll(&asked, 1, patience) == 1) {
            char some[64];
            bytes.append(some, static_cast<int>(read(m_port, some, sizeof some)));
        }
        return bytes;
    }

private:
    int m_port;
};

} // namespace

class RelayTest : public QObject
{
    Q_OBJECT

private slots:
    void bytesTakeTheirTimeBothWays();
    void theStationInsideAnswers();
};

void RelayTest::bytesTakeTheirTimeBothWays()
{
    QString error;
    const auto relay = Relay::open({1200, 10, false, 0}, &error); // 8.333 ms per byte
    QVERIFY2(relay, qPrintable(error));
    const Program master(relay->masterPort());
    const Program slave(relay->slavePort());
    const QByteArray request = bytes("01 0A 0D 00 13 03 04 FF"); // what terminals would change
    master.send(request);
    QCOMPARE(slave.receive(8), request);
    slave.send("ok!");
    QCOMPARE(master.receive(3), QByteArray("ok!"));
    const QList<RelayedFrame> frames = relay->takeFrames();
    QCOMPARE(frames.size(), 2);
    QVERIFY(frames.at(0).isFromMaster);
    QCOMPARE(frames.at(0).bytes, request);
    // Late on a busy machine, never early.
    QVERIFY(frames.at(0).end - frames.at(0).start >= 66666);
    QVERIFY(!frames.at(1).isFromMaster);
    QVERIFY(frames.at(1).start >= frames.at(0).end);
    QVERIFY(frames.at(1).end - frames.at(1).start >= 25000);
    QVERIFY(relay->takeFrames().isEmpty());
}

void RelayTest::theStationInsideAnswers()
{
    QString error;
    const auto relay = Relay::open({9600, 11, true, 5000}, &error);
    QVERIFY2(relay, qPrintable(error));
    QCOMPARE(relay->slavePort(), QString());
    const Program master(relay->masterPort());
    master.send(withCrc("01 03 00 64 00 01"));
    QCOMPARE(master.receive(7), withCrc("01 03 02 00 64"));
    const QList<RelayedFrame> frames = relay->takeFrames();
    QCOMPARE(frames.size(), 2);
    QVERIFY(frames.at(1).start - frames.at(0).end >= 4999); // whole microseconds
}

QTEST_GUILESS_MAIN(RelayTest)
#include "tst_relay.moc"
