#include "kxhost/ports/ports_text.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

namespace
{

PortEntry adapter()
{
    PortEntry entry;
    entry.port = QStringLiteral("/dev/ttyUSB0");
    entry.description = QStringLiteral("FT232R USB UART");
    entry.manufacturer = QStringLiteral("FTDI");
    entry.serialNumber = QStringLiteral("A50285BI");
    entry.vendor = 0x403;
    entry.product = 0x6001;
    entry.holders = {{QStringLiteral("minicom"), 30}, {QStringLiteral("kxhost"), 123}};
    return entry;
}

PortEntry bare()
{
    PortEntry entry;
    entry.port = QStringLiteral("/dev/ttyS0");
    return entry;
}

PortEntry simulated()
{
    PortEntry entry;
    entry.port = QStringLiteral("/dev/pts/3");
    entry.description = QStringLiteral("simulated controllers");
    entry.simulator = {QStringLiteral("kxsim"), 99};
    entry.link = QStringLiteral("/tmp/line");
    return entry;
}

QByteArray compact(const QJsonObject& json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

} // namespace

class PortsTextTest : public QObject
{
    Q_OBJECT

private slots:
    void noneIsSaid()
    {
        const QStringList none = {"no serial ports found; plug an adapter in, or start kxsim for a "
                                  "simulated controller"};
        QCOMPARE(portRows({}, false), none);
        QCOMPARE(portRows({}, true), none);
    }

    void rows()
    {
        QCOMPARE(portRows({bare(), adapter(), simulated()}, false),
                 (QStringList{
                     "PORT          DESCRIPTION                                       HELD BY",
                     "/dev/ttyS0    -                                                 nobody",
                     "/dev/ttyUSB0  FT232R USB UART, FTDI, A50285BI                   minicom (pid "
                     "30), kxhost (pid 123)",
                     "/dev/pts/3    simulated controllers, kxsim (pid 99), /tmp/line  nobody"}));
    }

    void whatCannotBeSeenIsNotCalledFree()
    {
        QCOMPARE(portRows({bare(), adapter()}, true).mid(1, 1),
                 (QStringList{"/dev/ttyS0    -                                -"}));
        QCOMPARE(portRows({bare(), adapter()}, true).last(),
                 QString("-: held by nobody, or by another user's program, which only root can "
                         "see"));
        QCOMPARE(static_cast<int>(portRows({adapter()}, true).size()), 2);
    }

    void json()
    {
        QCOMPARE(compact(portJson(adapter(), false)),
                 QByteArray(R"({"allHoldersSeen":true,"description":"FT232R USB UART",)"
                            R"("event":"port","heldBy":[{"process":30,"program":"minicom"},)"
                            R"({"process":123,"program":"kxhost"}],"manufacturer":"FTDI",)"
                            R"("port":"/dev/ttyUSB0","product":"6001","serialNumber":"A50285BI",)"
                            R"("vendor":"0403"})"));
        QCOMPARE(compact(portJson(bare(), true)),
                 QByteArray(R"({"allHoldersSeen":false,"event":"port","heldBy":[],)"
                            R"("port":"/dev/ttyS0"})"));
        QCOMPARE(compact(portJson(simulated(), false)),
                 QByteArray(R"({"allHoldersSeen":true,"description":"simulated controllers",)"
                            R"("event":"port","heldBy":[],"link":"/tmp/line",)"
                            R"("port":"/dev/pts/3","simulator":99})"));
    }
};

QTEST_APPLESS_MAIN(PortsTextTest)
#include "tst_ports_text.moc"
