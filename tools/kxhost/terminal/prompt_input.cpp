#include "kxhost/terminal/prompt_input.h"

namespace kx
{

namespace
{

const int LONGEST_LINE = 1000;

} // namespace

QString PromptInput::take(const Key& key)
{
    QString entered;
    switch (key.kind) {
    case KeyKind::Text:
        if (m_text.size() + key.text.size() <= LONGEST_LINE)
            m_text += key.text;
        break;
    case KeyKind::Enter:
        if (!m_text.trimmed().isEmpty())
            entered = m_text;
        m_text.clear();
        break;
    case KeyKind::Backspace:
        // A character may take two places, of which neither is one alone.
        m_text.chop(m_text.size() > 1 && m_text.at(m_text.size() - 1).isLowSurrogate() ? 2 : 1);
        break;
    case KeyKind::EraseLine:
        m_text.clear();
        break;
    default:
        break;
    }
    return entered;
}

} // namespace kx
