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

    /// As the signals do; nothing happens while no Interrupt lives.
    static void request();

signals:
    void interrupted();

private:
    void onSignal();

    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kx

#endif
