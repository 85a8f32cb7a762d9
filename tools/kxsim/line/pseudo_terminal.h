/// A pseudo-terminal that hosts open like a serial port.
#ifndef KX_KXSIM_LINE_PSEUDO_TERMINAL_H
#define KX_KXSIM_LINE_PSEUDO_TERMINAL_H

#include "kxsim/line/slave_line.h"
#include "kxsim/line/terminal_link.h"

#include <memory>

namespace kxsim
{

class PseudoTerminal : public SlaveLine
{
public:
    /// Opens a new pseudo-terminal in raw mode. Null, and one line in `*error`,
    /// when the system gives none.
    static std::unique_ptr<PseudoTerminal> open(QString* error);
    ~PseudoTerminal() override;

    /// Makes `path` a link to the device, see TerminalLink::make(); it is removed with
    /// the terminal.
    bool linkFrom(const QString& path, QString* error);

    /// Gets another device and turns the link to it; hosts find it by the link alone.
    bool reopen() override;

private:
    PseudoTerminal() = default;
    bool openUnlocked();
    bool openBothEnds();

    int m_hostEnd = -1; ///< held open, so that the line outlives a host that closes it
    TerminalLink m_link;
};

} // namespace kxsim

#endif
