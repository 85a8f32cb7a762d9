#include "kxpanel/connect/port_watch.h"

#include <QtCore/QStringList>
#include <QtCore/QTimer>

namespace kxpanel
{

namespace
{

const int LOOKING_TIME = 1000; // milliseconds

/// What a person sees of them.
QStringList textsOf(const QList<kx::PortEntry>& ports)
{
    QStringList texts;
    for (const kx::PortEntry& port : ports)
        texts << port.port + QLatin1Char('\n') + portDescription(port);
    return texts;
}

} // namespace

PortWatch::PortWatch(QObject* parent) : QObject(parent)
{
    auto* const timer = new QTimer;
    timer->moveToThread(&m_thread);
    const auto look = [this] {
        const QList<kx::PortEntry> ports = kx::listedPorts(kx::OpenDevices());
        QMetaObject::invokeMethod(
            this, [this, ports] { take(ports); }, Qt::QueuedConnection);
    };
    connect(&m_thread, &QThread::started, timer, [timer, look] {
        look();
        timer->start(LOOKING_TIME);
    });
    connect(timer, &QTimer::timeout, timer, look); // in the timer's thread
    connect(&m_thread, &QThread::finished, timer, &QObject::deleteLater);
    m_thread.start(QThread::LowPriority);
}

PortWatch::~PortWatch()
{
    m_thread.quit();
    m_thread.wait();
}

void PortWatch::take(const QList<kx::PortEntry>& ports)
{
    const bool isNews = textsOf(ports) != textsOf(m_ports);
    m_ports = ports;
    if (isNews)
        emit portsChanged();
}

QString portDescription(const kx::PortEntry& port)
{
    QString what = port.description;
    if (!port.manufacturer.isEmpty() && port.manufacturer != port.description)
        what += QStringLiteral(" (%1)").arg(port.manufacturer);
    QStringList parts{what.trimmed()};
    for (const kx::PortHolder& holder : port.holders)
        parts << PortWatch::tr("in use by %1").arg(holder.program);
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace kxpanel
