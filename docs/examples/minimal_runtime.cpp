// The smallest runtime: loads the driver, polls one value of register type D at station 1
// over a serial line (9600 baud, 8N1) and prints it when it has changed; a value is written first.
//   minimal_runtime PORT ADDRESS[=VALUE] [EXCHANGES]     minimal_runtime /dev/ttyUSB0 100=7
#include <tarvelan_kx_series.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QLibrary>
#include <QtCore/QThread>
#include <QtSerialPort/QSerialPort>

#include <cstdio>
#include <cstdlib>
#include <cstring>

const int STATION = 1;
const int TIMEOUT = 1000; // milliseconds for a whole reply
const int FRAME_GAP = 4;  // milliseconds of silence: 3.5 characters at 9600 baud
const int EXCEPTION_LENGTH = 5;

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

static void write(int address, int value)
{
    unsigned char word[] = {static_cast<unsigned char>(value & 0xFF),
                            static_cast<unsigned char>(value >> 8)};
    FIND(intf_setData)(STATION, QStringLiteral("D"), address, 1, word, WRITE_JOB);
}

// [reply]
// The driver checks length and CRC only. The rest is here.
static bool answers(const QByteArray& frame, const FRAME_PRO& request)
{
    // A read's reply repeats station and function, and its byte count gives recvLen. A
    // write's repeats the address and the value or quantity, too.
    const bool isWrite = request.dataLen == 0;
    return frame.size() == request.recvLen
           && std::memcmp(frame.constData(), request.frame, isWrite ? 6 : 2) == 0;
}

// An exception: the function with 0x80 set, then the reason. The driver takes it for a bad
// reply, so the request is repeated without waiting for the time-out.
static bool refuses(const QByteArray& frame, const FRAME_PRO& request)
{
    return frame.size() == EXCEPTION_LENGTH && quint8(frame.at(0)) == request.frame[0]
           && quint8(frame.at(1)) == (request.frame[1] | 0x80);
}

static int lengthOfFrame(const QByteArray& bytes) // that begins with these
{
    const int function = quint8(bytes.at(1));
    if (function & 0x80)
        return EXCEPTION_LENGTH;
    return function < 5 ? quint8(bytes.at(2)) + 5 : 8; // reads, writes
}

static bool hasGoodCrc(const QByteArray& frame)
{
    unsigned int crc = 0xFFFF;
    for (const char byte : frame) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xA001 : crc >> 1;
    }
    return crc == 0; // as the frame's own CRC was among the bytes
}

// The reply, or an empty one at the time-out.
static QByteArray exchange(QSerialPort* port, const FRAME_PRO& request)
{
    if (request.sendLen < 1 || request.sendLen > FRAME_SIZE)
        return QByteArray(); // the request is not whole
    QThread::msleep(FRAME_GAP);
    port->readAll(); // bytes that came too late for the request before
    port->write(reinterpret_cast<const char*>(request.frame), request.sendLen);
    QByteArray received;
    const QDeadlineTimer deadline(TIMEOUT);
    while (!deadline.hasExpired() && port->waitForReadyRead(int(deadline.remainingTime()))) {
        received += port->readAll();
        while (received.size() >= EXCEPTION_LENGTH && received.size() >= lengthOfFrame(received)) {
            const QByteArray frame = received.left(lengthOfFrame(received));
            if (!hasGoodCrc(frame))
                received.clear(); // noise, or damaged: nothing more is to be had from it
            else if (answers(frame, request) || refuses(frame, request))
                return frame;
            else
                received.remove(0, frame.size()); // of another request: wait on
        }
    }
    return QByteArray();
}
// [/reply]

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc < 3)
        endWith(QStringLiteral("usage: minimal_runtime PORT ADDRESS[=VALUE] [EXCHANGES]"));
    QSerialPort port(QString::fromLocal8Bit(argv[1]));
    if (!port.open(QIODevice::ReadWrite)) // a port opens as 9600 8N1
        endWith(port.portName() + QStringLiteral(": ") + port.errorString());
    const int address = std::atoi(argv[2]);
    int exchanges = argc > 3 ? std::atoi(argv[3]) : -1; // below 0: for ever
    watch(address);
    if (const char* const equals = std::strchr(argv[2], '='))
        write(address, std::atoi(equals + 1));

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
            std::printf("%s: %s\n", reply.isEmpty() ? "no answer" : "refused", qPrintable(error));
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
