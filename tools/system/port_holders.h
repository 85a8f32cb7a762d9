/// Which programs have which serial ports open.
#ifndef KX_SYSTEM_PORT_HOLDERS_H
#define KX_SYSTEM_PORT_HOLDERS_H

#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

struct PortHolder {
    QString program;    ///< as the system shortens it: 15 characters
    qint64 process = 0; ///< its number
};

/// The number of the process whose lock a port has; it may have ended. 0 without a lock. Links are
/// followed.
/// @param locks where programs lock ports: a file LCK..ttyUSB0 holds the process's number
qint64 lockingProcess(const QString& device, const QString& locks = QStringLiteral("/run/lock"));

/// The devices that were open when it was made. No port is opened for that, since opening one
/// may reset the device behind it.
class OpenDevices
{
public:
    /// @param processes where the system shows its processes
    /// @param locks     as of lockingProcess()
    explicit OpenDevices(const QString& processes = QStringLiteral("/proc"),
                         const QString& locks = QStringLiteral("/run/lock"));

    /// Programs that have the device open, and programs of other users whose lock says so. Links
    /// are followed. Each program once, by the number of its process.
    QList<PortHolder> holdersOf(const QString& device) const;

    /// Whether other users' programs could not be looked into, which may have any device open.
    bool hasUnseen() const { return !m_unseen.isEmpty(); }

private:
    struct Open {
        quint64 device; ///< its number
        PortHolder holder;
    };

    void lookInto(const QString& folder, const PortHolder& holder);
    void addLock(const QString& device, QList<PortHolder>* holders) const;

    QString m_locks;
    QList<Open> m_open;
    QList<PortHolder> m_unseen;
};

} // namespace kx

#endif
