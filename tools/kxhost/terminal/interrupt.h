#ifndef KX_KXHOST_TERMINAL_INTERRUPT_H
#define KX_KXHOST_TERMINAL_INTERRUPT_H

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

#include <memory>

namespace kx
{

/// Turns SIGINT, SIGTERM and SIGHUP (unless nohup set it aside) into a signal of the event loop, so
/// that a command ends in its own order. One at a time; the first signal restores the default, so
/// that a second one ends the program whatever it is doing.
class Interrupt : public QObject
{
    Q_OBJECT

public:
    explicit Interrupt(QObject* parent = nullptr);
    ~Interrupt() override;

    /// As SIGINT does; nothing happens while no Interrupt lives.
    static void request();

    /// Which signal it was; 0: none yet.
    int signal() const { return m_signal; }

signals:
    void interrupted();

private:
    void onSignal();

    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_signal = 0;
};

} // namespace kx

#endif
