#ifndef KX_KXHOST_TERMINAL_SUSPENSION_H
#define KX_KXHOST_TERMINAL_SUSPENSION_H

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

#include <memory>

namespace kx
{

/// Turns Ctrl-Z (SIGTSTP, unless somebody set it aside) and the shell's fg (SIGCONT) into signals
/// of the event loop, so that the terminal is given back while the program is stopped. One at a
/// time.
///
///     running --SIGTSTP--> suspending() --> stopped --SIGCONT--> resumed() --> running
///
/// SIGCONT alone, after a SIGSTOP that nobody sees, gives resumed() as well.
class Suspension : public QObject
{
    Q_OBJECT

public:
    explicit Suspension(QObject* parent = nullptr);
    ~Suspension() override;

signals:
    /// The program stops when this returns.
    void suspending();
    /// The program goes on; somebody else may have had the terminal.
    void resumed();

private:
    void onSignal();
    void stop();

    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kx

#endif
