#include "exchange/lines/mbap_line.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <utility>

using namespace kx;

namespace
{

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

// Station, function 3, address 0, quantity 1, CRC.
const QByteArray FIRST = hex("01 03 0000 0001 840A");
const QByteArray SECOND = hex("02 03 0000 0001 8439");

/// Carries bytes to and from a test.
class ByteLine : public Line
{
public:
    QString name() const override { return QStringLiteral("gateway:502"); }
    LineTiming timing() const override { return {0, 8, 0, 1}; }
    void open() override
    {
        isUp = true;
        emit opened();
    }
    void close() override { isUp = false; }
    bool isOpen() const override { return isUp; }
    void write(const QByteArray& bytes) override { written << bytes; }
    QByteArray takeWaiting() override { return std::exchange(waiting, QByteArray()); }
    QByteArray discardWaiting() override { return std::exchange(waiting, QByteArray()); }

    bool isUp = false;
    QList<QByteArray> written;
    QByteArray waiting;
};

} // namespace

class MbapLineTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void eachRequestHasItsTransaction();
    void aTransactionComesAfter65535();
    void whatIsShorterThanAnyFrameIsNotSent();
    void repliesArriveAsRtu();
    void aReplyInPieces();
    void whatWaitsIsTaken();
    void aLateReplyIsThrownAwayAndKnownOf();
    void noEndOfLateRepliesIsKept();
    void whatIsDiscardedMayEndWithinAFrame();
    void anotherProtocolLosesTheLine_data();
    void anotherProtocolLosesTheLine();
    void openedAgainItBeginsAnew();
    void theLineInsideIsUsed();

private:
    void arrive(const char* digits) { emit m_inside->bytesArrived(hex(digits)); }
    QByteArray arrived() const
    {
        QByteArray all;
        for (const QList<QVariant>& arguments : *m_arrived)
            all += arguments.first().toByteArray();
        return all;
    }

    ByteLine* m_inside = nullptr;
    std::unique_ptr<MbapLine> m_line;
    std::unique_ptr<QSignalSpy> m_arrived;
    std::unique_ptr<QSignalSpy> m_failed;
};

void MbapLineTest::init()
{
    auto inside = std::make_unique<ByteLine>();
    m_inside = inside.get();
    m_line = std::make_unique<MbapLine>(std::move(inside));
    m_arrived = std::make_unique<QSignalSpy>(m_line.get(), &Line::bytesArrived);
    m_failed = std::make_unique<QSignalSpy>(m_line.get(), &Line::failed);
    m_line->open();
}

void MbapLineTest::eachRequestHasItsTransaction()
{
    m_line->write(FIRST);
    m_line->write(FIRST); // again
    m_line->write(SECOND);
    // Transaction, protocol 0, 6 bytes follow, station and request.
    QCOMPARE(m_inside->written, (QList<QByteArray>{hex("0001 0000 0006 01 03 0000 0001"),
                                                   hex("0002 0000 0006 01 03 0000 0001"),
                                                   hex("0003 0000 0006 02 03 0000 0001")}));
}

void MbapLineTest::aTransactionComesAfter65535()
{
    for (int i = 0; i < 65536; ++i)
        m_line->write(FIRST);
    QCOMPARE(m_inside->written.at(65534).left(2), hex("FFFF"));
    QCOMPARE(m_inside->written.at(65535).left(2), hex("0000"));
    arrive("0000 0000 0005 01 03 02 0007");
    QCOMPARE(arrived(), hex("01 03 02 0007 F986"));
}

void MbapLineTest::whatIsShorterThanAnyFrameIsNotSent()
{
    m_line->write(hex("01 03 00"));
    m_line->write(QByteArray());
    QCOMPARE(m_inside->written, QList<QByteArray>());
    m_line->write(FIRST);
    QCOMPARE(m_inside->written.value(0).left(2), hex("0001"));
}

void MbapLineTest::repliesArriveAsRtu()
{
    m_line->write(FIRST);
    arrive("0001 0000 0005 01 03 02 0007");
    QCOMPARE(arrived(), hex("01 03 02 0007 F986"));
    m_line->write(SECOND);
    arrive("0002 0000 0003 01 83 02"); // station 1 refuses; whose reply it is, others judge
    QCOMPARE(arrived(), hex("01 03 02 0007 F986  01 83 02 C0F1"));
    QCOMPARE(m_arrived->size(), 2);
}

void MbapLineTest::aReplyInPieces()
{
    m_line->write(FIRST);
    for (const char* piece : {"00", "01 0000", "0005 01 03", "02 00"})
        arrive(piece);
    QCOMPARE(m_arrived->size(), 0);
    arrive("07");
    QCOMPARE(arrived(), hex("01 03 02 0007 F986"));
}

void MbapLineTest::whatWaitsIsTaken()
{
    m_line->write(FIRST);
    m_inside->waiting = hex("0001 0000 0005 01 03 02");
    QCOMPARE(m_line->takeWaiting(), QByteArray());
    m_inside->waiting = hex("0007");
    QCOMPARE(m_line->takeWaiting(), hex("01 03 02 0007 F986"));
    QCOMPARE(m_line->takeWaiting(), QByteArray());
    QCOMPARE(m_arrived->size(), 0);
}

void MbapLineTest::aLateReplyIsThrownAwayAndKnownOf()
{
    m_line->write(FIRST);
    m_line->write(SECOND);
    arrive("0001 0000 0005 01 03 02 0009  0002 0000 0005 02 03 02 0007");
    QCOMPARE(arrived(), hex("02 03 02 0007 BD86"));
    // And the reply to the latest request once more, which nobody waits for.
    m_inside->waiting = hex("0002 0000 0005 02 03 02 0007");
    QCOMPARE(m_line->discardWaiting().toHex(' '),
             QByteArray("01 03 02 00 09 78 42 02 03 02 00 07 bd 86"));
    QCOMPARE(m_line->discardWaiting(), QByteArray());
}

void MbapLineTest::noEndOfLateRepliesIsKept()
{
    m_line->write(FIRST);
    for (int i = 0; i < 5000; ++i)
        arrive("0009 0000 0003 01 83 02");
    // 819 frames of 5 bytes are the last below 4096.
    QCOMPARE(int(m_line->discardWaiting().size()), 4095);
}

void MbapLineTest::whatIsDiscardedMayEndWithinAFrame()
{
    m_line->write(FIRST);
    m_inside->waiting = hex("0001 0000 0005 01 03");
    QCOMPARE(m_line->discardWaiting(), QByteArray());
    m_line->write(SECOND);
    arrive("02 0009  0002 0000 0005 02 03 02 0007");
    QCOMPARE(arrived(), hex("02 03 02 0007 BD86"));
}

void MbapLineTest::anotherProtocolLosesTheLine_data()
{
    QTest::addColumn<int>("found"); // when it arrives, is looked for or thrown away
    QTest::newRow("when it arrives") << 0;
    QTest::newRow("when it is looked for") << 1;
    QTest::newRow("when it is thrown away") << 2;
}

void MbapLineTest::anotherProtocolLosesTheLine()
{
    QFETCH(int, found);
    m_line->write(FIRST);
    // A good frame, then a reply of Modbus RTU.
    m_inside->waiting = hex("0001 0000 0005 01 03 02 0007  01 03 02 0007 F986");
    if (found == 0)
        emit m_inside->bytesArrived(std::exchange(m_inside->waiting, QByteArray()));
    else
        QCOMPARE(found == 1 ? m_line->takeWaiting() : m_line->discardWaiting(), QByteArray());
    QCOMPARE(m_failed->size(), 1);
    QCOMPARE(m_failed->first().first().toString(),
             QStringLiteral("gateway:502: what it sends is not Modbus TCP"));
    QVERIFY(!m_line->isOpen());
    QCOMPARE(m_arrived->size(), 0);
}

void MbapLineTest::openedAgainItBeginsAnew()
{
    m_line->write(FIRST);
    m_line->write(SECOND);
    arrive("0001 0000 0003 01 83 02  0002 0000 0005 02");
    m_line->open();
    QCOMPARE(m_line->discardWaiting(), QByteArray());
    m_line->write(FIRST);
    arrive("0003 0000 0005 01 03 02 0007");
    QCOMPARE(arrived(), hex("01 03 02 0007 F986"));
}

void MbapLineTest::theLineInsideIsUsed()
{
    QSignalSpy opened(m_line.get(), &Line::opened);
    QSignalSpy interrupted(m_line.get(), &Line::interrupted);
    QCOMPARE(m_line->name(), QStringLiteral("gateway:502"));
    QCOMPARE(m_line->timing().frameGap(), qint64(0));
    emit m_inside->opened();
    emit m_inside->interrupted();
    emit m_inside->failed(QStringLiteral("gone"));
    QCOMPARE(opened.size(), 1);
    QCOMPARE(interrupted.size(), 1);
    QCOMPARE(m_failed->size(), 1);
    QVERIFY(m_line->isOpen());
    m_line->close();
    QVERIFY(!m_inside->isUp);
    QVERIFY(!m_line->isOpen());
}

QTEST_APPLESS_MAIN(MbapLineTest)
#include "tst_mbap_line.moc"
