#include "panel/session/driver_port.h"
#include "registers/register_types.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <memory>

using namespace kx;

namespace
{

AddressRange registersOf(int address)
{
    AddressRange range;
    range.type = findRegisterType(QString::fromLatin1("D"));
    range.address = address;
    range.station = 1;
    return range;
}

} // namespace

class DriverPortTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aSixthWriteInARowIsGivenUp();
    void aRecipeWithNothingToSendLendsNoKind();

private:
    /// What goes out next; null when nothing does.
    QByteArray nextRequest(int* kind = nullptr);
    int settle(QByteArray reply);

    SystemClock m_clock;
    std::unique_ptr<DriverPort> m_port;
};

void DriverPortTest::init()
{
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error),
             qPrintable(error));
    m_port.reset();
    m_port = std::make_unique<DriverPort>(entryPoints, SessionSettings(), &m_clock);
    QVERIFY(m_port->isHeld());
}

QByteArray DriverPortTest::nextRequest(int* kind)
{
    FRAME_PRO request = FRAME_PRO();
    if (m_port->requests().getSendFrame(&request) != 1)
        return QByteArray();
    if (kind)
        *kind = request.job.kind;
    return QByteArray(reinterpret_cast<const char*>(request.frame), request.sendLen);
}

int DriverPortTest::settle(QByteArray reply)
{
    QString errorText;
    return m_port->requests().dealRcvFrame(reply, errorText);
}

// Behind five writes in a row the driver says once that it has nothing.
void DriverPortTest::aSixthWriteInARowIsGivenUp()
{
    for (int i = 0; i < 5; ++i) {
        m_port->write({registersOf(100), {7}});
        // Station 1, function 6, register 100, 7: request and reply.
        QCOMPARE(nextRequest(), withCrc("01 06 00 64 00 07"));
        QCOMPARE(settle(withCrc("01 06 00 64 00 07")), 1);
    }
    m_port->write({registersOf(101), {8}});
    m_port->giveUpQueued();
    QVERIFY(!m_port->hasQueued());
    QCOMPARE(nextRequest(), QByteArray());
    QCOMPARE(nextRequest(), QByteArray());
}

// The driver ends such a transfer at once and goes on with what is polled.
void DriverPortTest::aRecipeWithNothingToSendLendsNoKind()
{
    m_port->poll({{registersOf(0), 0}});
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.station = 1;
    variable.regType = QString::fromLatin1("D");
    variable.count = 1;
    variable.bufOffset = -1; // before the buffer's first word
    m_port->startRecipe(RecipeDirection::Download, {variable});
    int kind = NO_JOB;
    // Station 1, function 3, register 0, one register.
    QCOMPARE(nextRequest(&kind), withCrc("01 03 00 00 00 01"));
    QCOMPARE(kind, static_cast<int>(CYCLIC_READ_JOB));
    QVERIFY(!m_port->isRecipeOut());
}

QTEST_GUILESS_MAIN(DriverPortTest)
#include "tst_driver_port.moc"
