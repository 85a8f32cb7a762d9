#ifndef KX_KXHOST_TERMINAL_PROMPT_INPUT_H
#define KX_KXHOST_TERMINAL_PROMPT_INPUT_H

#include "kxhost/terminal/key_input.h"

namespace kx
{

/// A line that is being typed. Backspace and Ctrl-U erase, Enter ends it; keys that move a
/// cursor do nothing.
class PromptInput
{
public:
    QString text() const { return m_text; }
    void clear() { m_text.clear(); }

    /// Returns the line that the key ends, with its blanks; empty when it ends none, or only
    /// blanks.
    QString take(const Key& key);

private:
    QString m_text;
};

} // namespace kx

#endif
