/// kxhost on a terminal of its own, at which a test types and reads.
#ifndef KX_TESTS_TOOLS_KXHOST_COMMANDS_HOST_TERMINAL_H
#define KX_TESTS_TOOLS_KXHOST_COMMANDS_HOST_TERMINAL_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <memory>
#include <sys/types.h>

namespace kx
{

class HostTerminal
{
public:
    /// A terminal of 80 columns.
    explicit HostTerminal(const QStringList& arguments, int rows = 24,
                          const QByteArray& kind = "xterm");
    /// A terminal in which a shell with job control runs a script; kxhost is "$0", and its
    /// arguments are "$@".
    static std::unique_ptr<HostTerminal> withShell(const char* script,
                                                   const QStringList& arguments);
    ~HostTerminal();

    void type(const QByteArray& keys);
    /// Reads until `text` was shown since the start or forget(); false after half a minute.
    bool waitFor(const QByteArray& text);
    void forget() { m_output.clear(); }
    /// Reads until the program ends; -1 when it crashed or goes on for half a minute.
    int exitCode();

    /// All that was shown so far, or since forget().
    QByteArray output() const { return m_output; }
    /// Whether the terminal echoes keys, as it does unless told otherwise.
    bool echoes() const;
    /// The process that gets what is typed.
    pid_t foregroundGroup() const;

private:
    HostTerminal(const QList<QByteArray>& words, int rows, const QByteArray& kind);
    bool readSome();

    int m_terminal = -1;
    int m_ownEnd = -1; ///< keeps the terminal and its settings when the program is gone
    pid_t m_program = -1;
    QByteArray m_output;
};

} // namespace kx

#endif
