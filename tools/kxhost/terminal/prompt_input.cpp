#include "kxhost/terminal/prompt_input.h"

namespace kx
{

namespace
{

const char BACKSPACE = 0x08;
const char ERASE_LINE = 0x15; // Ctrl-U
const char ESCAPE = 0x1B;
const char DELETE_KEY = 0x7F;
const int LONGEST_LINE = 1000;

} // namespace

QStringList PromptInput::type(const QByteArray& bytes)
{
    QStringList entered;
    for (const char byte : bytes) {
        if (isInEscape(byte))
            continue;
        if (byte == '\n' || byte == '\r') {
            if (!m_text.trimmed().isEmpty())
                entered << m_text.trimmed();
            m_text.clear();
        } else if (byte == BACKSPACE || byte == DELETE_KEY) {
            m_text.chop(1);
        } else if (byte == ERASE_LINE) {
            m_text.clear();
        } else if (byte >= ' ' && byte < DELETE_KEY && m_text.size() < LONGEST_LINE) {
            m_text += QLatin1Char(byte);
        }
    }
    return entered;
}

bool PromptInput::isInEscape(char byte)
{
    switch (m_escape) {
    case Escape::None:
        if (byte != ESCAPE)
            return false;
        m_escape = Escape::Started;
        return true;
    case Escape::Started:
        // Cursor keys send ESC [ A or ESC O A.
        m_escape = byte == '[' || byte == 'O' ? Escape::Sequence : Escape::None;
        return m_escape != Escape::None;
    case Escape::Sequence:
        if (byte >= '@' && byte <= '~')
            m_escape = Escape::None;
        return true;
    }
    return false;
}

} // namespace kx
