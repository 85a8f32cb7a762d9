#ifndef KX_KXHOST_TERMINAL_QUESTION_H
#define KX_KXHOST_TERMINAL_QUESTION_H

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QString>

namespace kx
{

/// Asks the user at the terminal something to which "no" is a good answer. It is shown on standard
/// error, so that what is printed can go elsewhere. The event loop goes on meanwhile.
class Question : public QObject
{
    Q_OBJECT

public:
    explicit Question(QObject* parent = nullptr);

    /// Whether there is somebody to ask: standard input and standard error are terminals.
    static bool isPossible();

    /// Once. answered() tells what was typed.
    /// @param text "Write 12 values?"
    void ask(const QString& text);
    /// Leaves the line of a question that waits; answered() does not come any more.
    void cancel();

signals:
    /// Yes for "y" and "yes", in either case; no for all else, and for the end of the input.
    void answered(bool yes);

private:
    void onInput();

    QSocketNotifier m_notifier;
    QByteArray m_typed;
};

} // namespace kx

#endif
