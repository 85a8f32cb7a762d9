#include "tools/kxpanel/machine_fixture.h"

#include "kxhost/options/length_options.h"
#include "panel/values/value_address.h"

namespace kxpanel
{

namespace
{

QString stateText(const LineStatus& status)
{
    const QStringList texts = {QStringLiteral("closed"), QStringLiteral("opening"),
                               QStringLiteral("open"), QStringLiteral("interrupted")};
    const QString text = texts.at(static_cast<int>(status.state));
    return status.fault.isEmpty() ? text : text + QStringLiteral(": ") + status.fault;
}

} // namespace

WatchedValue watched(int number, const char* address)
{
    WatchedValue value;
    value.number = number;
    QString fault;
    if (!kx::parseValueAddress(QString::fromLatin1(address), &value.tag.range, &value.tag.format,
                               &fault))
        qFatal("%s: %s", address, qPrintable(fault));
    if (value.tag.range.station < 0)
        value.tag.range.station = 1;
    return value;
}

kx::ConnectionOptions simulated()
{
    kx::ConnectionOptions options;
    options.simulate = true;
    options.session = kx::settingsForReading();
    options.session.exchange.replyTimeout = 500;
    options.library = QString::fromLocal8Bit(KX_DRIVER_FILE);
    return options;
}

kx::ConnectionOptions serialPort(const QString& port)
{
    kx::ConnectionOptions options = simulated();
    options.simulate = false;
    options.port = port;
    return options;
}

MachineLog::MachineLog(const Machine* machine)
{
    connect(machine, &Machine::valuesRead, this, [this](const QVector<Reading>& batch) {
        ++batches;
        for (const Reading& reading : batch)
            readings[reading.number] = reading;
    });
    connect(machine, &Machine::exchanged, this,
            [this](const QVector<Exchange>& batch) { exchanges += batch; });
    connect(machine, &Machine::lineChanged, this, [this](const LineStatus& now) {
        status = now;
        states << stateText(now);
    });
    connect(machine, &Machine::jobEnded, this, [this](int ticket, const kx::Failure& failure) {
        ended[ticket] = failure;
        ++ends;
    });
    connect(machine, &Machine::cycleFinished, this, [this](qint64 done) { cycles = done; });
    connect(machine, &Machine::counted, this,
            [this](const kx::WatchSummary& summary) { summaries << summary; });
}

} // namespace kxpanel
