/// The controllers' end of a serial line: an open terminal device.
#ifndef KX_KXSIM_LINE_SLAVE_LINE_H
#define KX_KXSIM_LINE_SLAVE_LINE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kxsim
{

class SlaveLine
{
public:
    virtual ~SlaveLine() = default;
    SlaveLine(const SlaveLine&) = delete;
    SlaveLine& operator=(const SlaveLine&) = delete;

    /// The device that a host opens, or the port in use.
    QString name() const { return m_name; }

    /// File descriptor to wait on for received bytes; it never blocks.
    int descriptor() const { return m_descriptor; }

    /// Appends what has arrived to `received`; false when the line is lost.
    bool receive(QByteArray* received);

    /// Sends what the line takes at once. The rest is lost, as on a wire that
    /// nobody listens to.
    void send(const QByteArray& bytes);

    /// Closes the line and opens it again: what was on its way is gone, and hosts
    /// find it lost. False when it cannot be opened again.
    virtual bool reopen() = 0;

protected:
    SlaveLine() = default;

    QString m_name;
    int m_descriptor = -1;
};

} // namespace kxsim

#endif
