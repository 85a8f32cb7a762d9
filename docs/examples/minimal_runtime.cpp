// The smallest runtime: loads the driver, polls one value of register type D at station 1
// over a serial line (9600 baud, 8N1) and prints it when it has changed.
//   minimal_runtime PORT ADDRESS [EXCHANGES]     minimal_runtime /dev/ttyUSB0 100
#include <tarvelan_kx_series.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QLibrary>
#include <QtCore/QThread>
#include <QtSerialPort/QSerialPort>

#include <cstdio>
#include <cstdlib>

const int STATION = 1;
const int TIMEOUT = 1000; // milliseconds for a whole reply
const int FRAME_GAP = 4;  // milliseconds of silence: 3.5 characters at 9600 baud

[[noreturn]] static void endWith(const QString& error)
{
    std::fprintf(stderr, "minimal_runtime: %s\n", qPrintable(error));
    std::exit(1);
}

// [load]
static QLibrary library(QStringLiteral("libtarvelan_kx_series.so.1"));

// The entry point of that name, with the type that the header gives it.
template <typename Function>
static Function* find(const char* name, Function* /*of the header, for its type*/)
{
    const auto found = reinterpret_cast<Function*>(library.resolve(name));
    if (!found)
        endWith(library.errorString());
    return found;
}
#define FIND(name) find(#name, static_cast<decltype(&name)>(nullptr))
// [/load]

static bool changed = true; // show the first value, too

static void valueChanged(int /*link*/, int /*station*/, QString /*name*/, int /*address*/)
{
    changed = true; // in here intf_getData() still gives the previous value
}

// [setup]
static void watch(int address)
{
    // Link 1, writes reach the device, 3 bad replies fail a request, 32 registers each;
    // no recipes, so no shared block, recipe buffer and mutex.
    FIND(intf_initProperty)(nullptr, nullptr, nullptr, nullptr, "1#0#0#3#32", nullptr);
    FIND(intf_setAddrValueChangeCallBack)(valueChanged);
    KEY_ADDRESS watched = KEY_ADDRESS();
    watched.station = STATION;
    watched.regType = QStringLiteral("D");
    watched.address = address;
    watched.count = 1;
    QList<KEY_ADDRESS> watchList = {watched};
    FIND(intf_addrMerge)(watchList);
}
// [/setup]

// [reply]
// The driver checks length and CRC only. This is the rest, for a read request.
static bool answers(const QByteArray& reply, const FRAME_PRO& request)
{
    return reply.size() == request.recvLen && reply.at(0) == char(request.frame[0])
           && reply.at(1) == char(request.frame[1]) && int(quint8(reply.at(2))) == reply.size() - 5;
}

static QByteArray exchange(QSerialPort* port, const FRAME_PRO& request)
{
    QThread::msleep(FRAME_GAP);
    port->readAll(); // bytes that came too late for the request before
    port->write(reinterpret_cast<const char*>(request.frame), request.sendLen);
    QByteArray reply;
    const QDeadlineTimer deadline(TIMEOUT);
    while (reply.size() < request.recvLen && port->waitForReadyRead(int(deadline.remainingTime())))
        reply += port->readAll();
    return answers(reply, request) ? reply : QByteArray();
}
// [/reply]

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc < 3)
        endWith(QStringLiteral("usage: minimal_runtime PORT ADDRESS [EXCHANGES]"));
    QSerialPort port(QString::fromLocal8Bit(argv[1]));
    if (!port.open(QIODevice::ReadWrite)) // a port opens as 9600 8N1
        endWith(port.portName() + QStringLiteral(": ") + port.errorString());
    const int address = std::atoi(argv[2]);
    int exchanges = argc > 3 ? std::atoi(argv[3]) : -1; // below 0: for ever
    watch(address);

    // [loop]
    const auto getSendFrame = FIND(intf_getSendFrame);
    const auto dealRcvFrame = FIND(intf_dealRcvFrame);
    FRAME_PRO request = FRAME_PRO();
    while (exchanges != 0 && getSendFrame(&request) == 1) {
        exchanges = exchanges > 0 ? exchanges - 1 : exchanges;
        QByteArray reply = exchange(&port, request);
        QString error;
        const int result = dealRcvFrame(reply, error);
        if (result == REPLY_FAILED)
            std::printf("no answer: %s\n", qPrintable(error));
        if (result == REPLY_ACCEPTED && changed) {
            unsigned char word[2];
            FIND(intf_getData)(STATION, QStringLiteral("D"), address, 1, word);
            std::printf("D%d = %d\n", address, word[0] | word[1] << 8);
            changed = false;
        }
        std::fflush(stdout);
    }
    // [/loop]
}
