#ifndef KX_KXHOST_TERMINAL_PROMPT_INPUT_H
#define KX_KXHOST_TERMINAL_PROMPT_INPUT_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

namespace kx
{

/// A line that is being typed. Backspace and Ctrl-U erase, Enter ends it; other
/// control keys and cursor keys do nothing.
class PromptInput
{
public:
    QString text() const { return m_text; }

    /// Takes typed bytes; returns the lines that were entered, without empty ones.
    QStringList type(const QByteArray& bytes);

private:
    enum class Escape { None, Started, Sequence };

    bool isInEscape(char byte);

    QString m_text;
    Escape m_escape = Escape::None;
};

} // namespace kx

#endif
