// The smallest runtime: loads the driver, polls one value over a serial line and
// prints it when it has changed.
//   minimal_runtime PORT ADDRESS [EXCHANGES]     minimal_runtime /dev/ttyUSB0 100
// 9600 baud, 8N1, station 1, register type D. Ends after EXCHANGES, default never.
#include <tarvelan_kx_series.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QLibrary>
#include <QtCore/QThread>
#include <QtSerialPort/QSerialPort>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

const int STATION = 1;
const int TIMEOUT = 1000;    // milliseconds for a whole reply
const int FRAME_GAP = 4;     // milliseconds of silence: 3.5 characters at 9600 baud
const int POLL_INTERVAL = 5; // milliseconds between exchanges

[[noreturn]] void endWith(const QString& error)
{
    std::fprintf(stderr, "minimal_runtime: %s\n", qPrintable(error));
    std::exit(1);
}

// [load]
QLibrary library(QStringLiteral("libtarvelan_kx_series.so.1"));

// The entry point of that name, with the type that the header gives it.
template <typename Function>
Function* find(const char* name, Function* /*of the header, for its type*/)
{
    const auto found = reinterpret_cast<Function*>(library.resolve(name));
    if (!found)
        endWith(library.errorString());
    return found;
}
#define FIND(name) find(#name, static_cast<decltype(&name)>(nullptr))
// [/load]

bool changed = true; // show the first value, too

void valueChanged(int /*link*/, int /*station*/, QString /*name*/, int /*address*/)
{
    changed = true; // in here intf_getData() still gives the previous value
}

// [reply]
// The driver checks length and CRC only. This is the rest, for a read request.
bool answers(const QByteArray& reply, const FRAME_PRO& request)
{
    return reply.size() == request.recvLen && reply.at(0) == char(request.frame[0])
           && reply.at(1) == char(request.frame[1]) && int(quint8(reply.at(2))) == reply.size() - 5;
}

QByteArray exchange(QSerialPort* port, const FRAME_PRO& request)
{
    QThread::msleep(FRAME_GAP);
    port->readAll(); // bytes that came too late for the request before
    port->write(reinterpret_cast<const char*>(request.frame), request.sendLen);
    QByteArray reply;
    QElapsedTimer timer;
    timer.start();
    while (reply.size() < request.recvLen && timer.elapsed() < TIMEOUT) {
        port->waitForReadyRead(int(TIMEOUT - timer.elapsed()));
        reply += port->readAll();
    }
    return answers(reply, request) ? reply : QByteArray();
}
// [/reply]

void watch(int address)
{
    // [setup]
    // Link 1, writes reach the device, 3 bad replies fail a request, 32 registers each.
    static QMutex mutex;
    static std::vector<unsigned char> shared(60117, 0);
    int status = 0;
    FIND(intf_initProperty)(shared.data(), nullptr, nullptr, &status, "1#0#0#3#32", &mutex);
    FIND(intf_setAddrValueChangeCallBack)(valueChanged);
    KEY_ADDRESS watched = KEY_ADDRESS();
    watched.station = STATION;
    watched.regType = QStringLiteral("D");
    watched.address = address;
    watched.count = 1;
    QList<KEY_ADDRESS> watchList = QList<KEY_ADDRESS>() << watched;
    FIND(intf_addrMerge)(watchList);
    // [/setup]
}

void showValue(int address)
{
    unsigned char word[2];
    FIND(intf_getData)(STATION, QStringLiteral("D"), address, 1, word);
    std::printf("D%d = %d\n", address, word[0] | word[1] << 8);
}

void poll(QSerialPort* port, int address, int exchanges)
{
    const auto getSendFrame = FIND(intf_getSendFrame);
    const auto dealRcvFrame = FIND(intf_dealRcvFrame);
    // [loop]
    FRAME_PRO request = FRAME_PRO();
    for (int i = 0; i != exchanges && getSendFrame(&request) == 1; ++i) {
        QByteArray reply = exchange(port, request);
        QString error;
        const int result = dealRcvFrame(reply, error);
        if (result == REPLY_FAILED)
            std::printf("no answer: %s\n", qPrintable(error));
        if (result == REPLY_ACCEPTED && changed) {
            changed = false;
            showValue(address);
        }
        std::fflush(stdout);
        QThread::msleep(POLL_INTERVAL);
    }
    // [/loop]
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3)
        endWith(QStringLiteral("usage: minimal_runtime PORT ADDRESS [EXCHANGES]"));
    QSerialPort port(arguments.at(1));
    if (!port.open(QIODevice::ReadWrite)) // a port opens as 9600 8N1
        endWith(arguments.at(1) + QStringLiteral(": ") + port.errorString());

    const int address = arguments.at(2).toInt();
    watch(address);
    poll(&port, address, arguments.value(3, QStringLiteral("-1")).toInt());
    return 0;
}
