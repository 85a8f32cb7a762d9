#include "kxpanel/connect/port_watch.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtTest/QTest>

#include <csignal>

using namespace kxpanel;

class PortWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void portsComeAndGo();
    void descriptions_data();
    void descriptions();
};

namespace
{

bool lists(const PortWatch& watch, const QString& port)
{
    for (const kx::PortEntry& entry : watch.ports()) {
        if (entry.port == port)
            return true;
    }
    return false;
}

} // namespace

void PortWatchTest::portsComeAndGo()
{
    const PortWatch watch;
    KxsimProcess simulator;
    const QString port = simulator.portName();
    QTRY_VERIFY(lists(watch, port));
    simulator.exitCodeAfter(SIGTERM);
    QTRY_VERIFY(!lists(watch, port));
}

void PortWatchTest::descriptions_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("manufacturer");
    QTest::addColumn<QString>("holder");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing known") << ""
                                   << ""
                                   << ""
                                   << "";
    QTest::newRow("an adapter") << "FT232R USB UART"
                                << "FTDI"
                                << ""
                                << "FT232R USB UART (FTDI)";
    QTest::newRow("the same twice") << "PL2303"
                                    << "PL2303"
                                    << ""
                                    << "PL2303";
    QTest::newRow("in use") << "FT232R"
                            << ""
                            << "minicom"
                            << "FT232R, in use by minicom";
    QTest::newRow("in use, else unknown") << ""
                                          << ""
                                          << "minicom"
                                          << "in use by minicom";
}

void PortWatchTest::descriptions()
{
    QFETCH(QString, holder);
    kx::PortEntry port;
    QFETCH(QString, description);
    QFETCH(QString, manufacturer);
    port.description = description;
    port.manufacturer = manufacturer;
    if (!holder.isEmpty())
        port.holders << kx::PortHolder{holder, 1234};
    QTEST(portDescription(port), "text");
}

QTEST_MAIN(PortWatchTest)
#include "tst_port_watch.moc"
