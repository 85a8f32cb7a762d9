#ifndef KX_KXHOST_TERMINAL_TERMINAL_H
#define KX_KXHOST_TERMINAL_TERMINAL_H

#include <QtCore/QStringList>

#include <termios.h>

namespace kx
{

/// The terminal's second screen, with the cursor hidden and, when standard input is the terminal,
/// keys delivered one by one and not echoed. Ctrl-C and Ctrl-Z still send their signals. The mouse
/// stays the terminal's, for selecting text; its wheel sends arrows where the terminal can. The
/// destructor restores everything.
class Terminal
{
public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Standard output is a terminal that understands cursor movements.
    static bool isUsable();

    /// Restores everything until take() is called.
    void release();
    /// Takes the terminal once more, also when somebody else has changed its settings.
    void take();

    bool takesKeys() const { return m_takesKeys; }
    int width() const;
    int height() const;

    /// Draws lines over what was shown before; see say() for controls in them.
    void draw(const QStringList& lines);

private:
    termios m_before = {};
    bool m_takesKeys = false;
    bool m_isTaken = false;
};

} // namespace kx

#endif
