// A runtime driven by events: writes one value of register type D at station 1 if asked to,
// polls it over a serial line (9600 baud, 8N1) and prints it when it has changed. Linked
// with the driver. Nothing in it blocks, so screens may live in the same thread.
//   event_driven_runtime PORT ADDRESS[=VALUE] [EXCHANGES]     ... /dev/ttyUSB0 100=1234
#include <tarvelan_kx_series.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QStringList>
#include <QtCore/QTimer>
#include <QtSerialPort/QSerialPort>

#include <cstdio>
#include <cstdlib>

const int STATION = 1;
const int BAUD = 9600;
// Milliseconds:
const int TIMEOUT = 500;  // from the end of a request to the end of its reply
const int SETTLE = 500;   // after a time-out, in which the reply may still come
const int FRAME_GAP = 4;  // silence before a request: 3.5 characters
const int FRAME_END = 20; // silence behind a frame; adapters hold bytes back for up to 16
const int IDLE = 20;      // until the driver is asked again when it had nothing to send

[[noreturn]] static void endWith(const QString& error)
{
    std::fprintf(stderr, "event_driven_runtime: %s\n", qPrintable(error));
    std::exit(1);
}

// [reply]
// The driver checks length and CRC only; station, function and what the reply is to are
// the runtime's to check.
static bool answers(const QByteArray& reply, const FRAME_PRO& request)
{
    const QByteArray sent(reinterpret_cast<const char*>(request.frame), request.sendLen);
    if (reply.size() != request.recvLen)
        return false;
    if (request.frameFunc == 0) // a write: the reply repeats address and value or quantity
        return reply.left(6) == sent.left(6);
    return reply.left(2) == sent.left(2) && int(quint8(reply.at(2))) == reply.size() - 5;
}

// An exception, as 01 83 02 C0 F1: the station will send nothing better.
static bool refuses(const QByteArray& reply, const FRAME_PRO& request)
{
    return reply.size() == 5 && quint8(reply.at(0)) == request.frame[0]
           && quint8(reply.at(1)) == (request.frame[1] | 0x80);
}
// [/reply]

static int watchedAddress = 0;
static bool changed = true; // show the first value, too

static void valueChanged(int /*link*/, int /*station*/, QString /*name*/, int /*address*/)
{
    changed = true; // in here intf_getData() still gives the previous value
}

// [loop]
// One request after the other. A timer is active for what is waited for:
//   m_silence    nothing is under way; the next request when it ends
//   m_deadline   a request is under way; no reply when it ends
//   m_frameEnd   bytes have come meanwhile; they are a frame when it ends
class Runtime : public QObject
{
public:
    Runtime(QSerialPort* port, int exchanges);

private:
    void transmit();
    void receive();
    void takeNoise();
    void endFrame();
    void giveUp() { finish(QByteArray()); }
    void takeTimeOut();
    void finish(QByteArray reply);
    void show();
    void endWithPort(QSerialPort::SerialPortError error);

    QSerialPort* m_port;
    int m_exchanges; // still to make; below 0: for ever
    FRAME_PRO m_request = FRAME_PRO();
    QByteArray m_received;
    QDeadlineTimer m_patience; // with a line that is not silent
    QTimer m_silence;
    QTimer m_deadline;
    QTimer m_frameEnd;
};

Runtime::Runtime(QSerialPort* port, int exchanges) : m_port(port), m_exchanges(exchanges)
{
    for (QTimer* timer : {&m_silence, &m_deadline, &m_frameEnd}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    connect(&m_silence, &QTimer::timeout, this, &Runtime::transmit);
    connect(&m_deadline, &QTimer::timeout, this, &Runtime::takeTimeOut);
    connect(&m_frameEnd, &QTimer::timeout, this, &Runtime::endFrame);
    connect(m_port, &QIODevice::readyRead, this, &Runtime::receive);
    connect(m_port, &QSerialPort::errorOccurred, this, &Runtime::endWithPort);
    m_patience.setRemainingTime(TIMEOUT);
    m_silence.start(FRAME_GAP);
}

void Runtime::transmit()
{
    if (intf_getSendFrame(&m_request) != 1) {
        m_silence.start(IDLE);
    } else if (m_request.sendLen < 1 || m_request.sendLen > FRAME_SIZE) {
        giveUp(); // a frame that is not whole must not go out
    } else {
        m_port->clear(QSerialPort::Input); // bytes that came too late for the request before
        m_received.clear();
        m_port->write(reinterpret_cast<const char*>(m_request.frame), m_request.sendLen);
        m_port->flush(); // at once, however busy the program will be
        const int transmission = m_request.sendLen * 10 * 1000 / BAUD; // 10 bits a byte
        m_deadline.start(transmission + TIMEOUT);
    }
}

void Runtime::receive()
{
    if (!m_deadline.isActive()) {
        takeNoise();
        return;
    }
    m_received += m_port->readAll();
    if (answers(m_received, m_request))
        finish(m_received);
    else
        m_frameEnd.start(FRAME_END);
}

// A busy program may find the timer before the bytes, which lie in the port: once round the
// event loop, which looks at ports before timers.
void Runtime::takeTimeOut()
{
    if (m_deadline.interval() > 0)
        m_deadline.start(0);
    else
        giveUp();
}

// A late reply, or noise: thrown away, and the line must be silent first. On one that never
// is nothing can be asked, which the driver has to hear.
void Runtime::takeNoise()
{
    m_port->readAll();
    if (m_silence.remainingTime() < FRAME_GAP)
        m_silence.start(FRAME_GAP);
    if (m_patience.hasExpired() && intf_getSendFrame(&m_request) == 1)
        giveUp();
}

// What came is not just the reply. An exception is handed over without waiting for more; the
// reply may have noise, an echo of the request or another reply before or behind it. All else
// is thrown away, and the wait goes on.
void Runtime::endFrame()
{
    for (const int length : {m_request.recvLen, 5}) {
        for (const QByteArray& part : {m_received.left(length), m_received.right(length)}) {
            if (answers(part, m_request) || refuses(part, m_request)) {
                finish(part);
                return;
            }
        }
    }
    m_received.clear();
}

// Hands the reply over, an empty one when none came, and shows what the driver says.
void Runtime::finish(QByteArray reply)
{
    m_deadline.stop();
    m_frameEnd.stop();
    if (refuses(reply, m_request))
        std::printf("refused: exception %d\n", quint8(reply.at(2)));
    QString error;
    const int result = intf_dealRcvFrame(reply, error);
    if (result == REPLY_FAILED)
        std::printf("failed: %s\n", qPrintable(error));
    if (result == REPLY_ACCEPTED && changed)
        show();
    std::fflush(stdout);
    m_exchanges -= m_exchanges > 0 ? 1 : 0;
    if (m_exchanges == 0) {
        QCoreApplication::quit();
        return;
    }
    const int silence = reply.isEmpty() ? SETTLE : FRAME_GAP;
    m_patience.setRemainingTime(silence + TIMEOUT);
    m_silence.start(silence);
}
// [/loop]

void Runtime::endWithPort(QSerialPort::SerialPortError error)
{
    if (error != QSerialPort::NoError)
        endWith(m_port->portName() + QStringLiteral(": ") + m_port->errorString());
}

void Runtime::show()
{
    unsigned char word[2];
    intf_getData(STATION, QStringLiteral("D"), watchedAddress, 1, word);
    std::printf("D%d = %d\n", watchedAddress, word[0] | word[1] << 8);
    changed = false;
}

// Link 1, writes reach the device, 3 bad replies fail a request, 32 registers each; no
// recipes, so no shared block, recipe buffer and mutex.
static void watch(int address)
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    intf_setAddrValueChangeCallBack(valueChanged);
    KEY_ADDRESS watched = KEY_ADDRESS();
    watched.station = STATION;
    watched.regType = QStringLiteral("D");
    watched.address = address;
    watched.count = 1;
    QList<KEY_ADDRESS> watchList = {watched};
    intf_addrMerge(watchList);
}

static void write(int address, quint16 value)
{
    unsigned char word[2] = {static_cast<unsigned char>(value & 0xFF),
                             static_cast<unsigned char>(value >> 8)};
    intf_setData(STATION, QStringLiteral("D"), address, 1, word, WRITE_JOB);
}

// Reads "100" or "100=1234"; what is not an address or a value must not become one.
static void setUp(const QString& text)
{
    const QStringList parts = text.split('=');
    const int wordType = 1;
    bool isValue = true;
    const quint16 value = parts.size() > 1 ? parts.at(1).toUShort(&isValue) : quint16(0);
    if (parts.size() > 2 || !isValue
        || intf_checkAddr(QStringLiteral("D"), parts.first(), &watchedAddress, wordType, 1, 0)
               != ADDRESS_VALID)
        endWith(text + QStringLiteral(" is not an address of type D, nor one with a value"));
    watch(watchedAddress);
    if (parts.size() > 1)
        write(watchedAddress, value);
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 3)
        endWith(QStringLiteral("usage: event_driven_runtime PORT ADDRESS[=VALUE] [EXCHANGES]"));
    setUp(arguments.at(2));
    QSerialPort port(arguments.at(1));
    if (!port.open(QIODevice::ReadWrite) || !port.setBaudRate(BAUD))
        endWith(port.portName() + QStringLiteral(": ") + port.errorString());
    const Runtime runtime(&port, arguments.size() > 3 ? arguments.at(3).toInt() : -1);
    return application.exec();
}
