#ifndef KX_KXPANEL_CONNECT_PORT_WATCH_H
#define KX_KXPANEL_CONNECT_PORT_WATCH_H

#include "kxhost/ports/port_list.h"

#include <QtCore/QObject>
#include <QtCore/QThread>

namespace kxpanel
{

/// The serial ports of the machine as they come and go. It looks once a second in a thread of its
/// own, since there may be many processes that could have a port open.
class PortWatch : public QObject
{
    Q_OBJECT

public:
    explicit PortWatch(QObject* parent = nullptr);
    ~PortWatch() override;

    const QList<kx::PortEntry>& ports() const { return m_ports; }

signals:
    /// ports() is another; the first time soon after it was made.
    void portsChanged();

private:
    void take(const QList<kx::PortEntry>& ports);

    QList<kx::PortEntry> m_ports;
    QThread m_thread;
};

/// "FT232R USB UART (FTDI), in use by minicom"; empty where nothing is known.
QString portDescription(const kx::PortEntry& port);

} // namespace kxpanel

#endif
