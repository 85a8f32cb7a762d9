#include "kxhost/terminal/key_input.h"

#include <QtCore/QVector>

namespace kx
{

namespace
{

const char BACKSPACE = 0x08;
const char ERASE_LINE = 0x15; // Ctrl-U
const char ESCAPE = 0x1B;
const char DELETE_KEY = 0x7F;
const int LONGEST_SEQUENCE = 8; // bytes that tell keys apart; more are let pass

struct NamedSequence {
    const char* bytes; ///< behind ESC [ or ESC O
    KeyKind kind;
};

const NamedSequence SEQUENCES[] = {
    {"A", KeyKind::Up},   {"B", KeyKind::Down},  {"5~", KeyKind::PageUp}, {"6~", KeyKind::PageDown},
    {"H", KeyKind::Home}, {"1~", KeyKind::Home}, {"7~", KeyKind::Home},   {"F", KeyKind::End},
    {"4~", KeyKind::End}, {"8~", KeyKind::End},
};

/// Bytes of the UTF-8 character that begins so; 0: none does.
int characterLength(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x80)
        return 1;
    if (code < 0xC2 || code > 0xF4)
        return 0;
    return code < 0xE0 ? 2 : code < 0xF0 ? 3 : 4;
}

/// Whether the text is one that can be printed. Bytes that are none give U+FFFD.
bool isCharacter(const QString& text)
{
    const QVector<uint> codes = text.toUcs4();
    return codes.size() == 1 && codes.first() != QChar::ReplacementCharacter
           && QChar::isPrint(codes.first());
}

bool goesOn(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

QList<Key> KeyInput::take(const QByteArray& bytes)
{
    QList<Key> keys;
    for (const char byte : bytes) {
        if (m_state == State::Plain)
            takePlain(byte, &keys);
        else if (m_state == State::Escaped)
            takeEscaped(byte, &keys);
        else
            takeSequence(byte, &keys);
    }
    return keys;
}

QList<Key> KeyInput::decide()
{
    if (!isUndecided())
        return QList<Key>();
    m_state = State::Plain;
    return {Key{KeyKind::Escape, QString()}};
}

void KeyInput::takePlain(char byte, QList<Key>* keys)
{
    if (byte == ESCAPE)
        m_state = State::Escaped;
    else if (byte == '\n' || byte == '\r')
        *keys << Key{KeyKind::Enter, QString()};
    else if (byte == BACKSPACE || byte == DELETE_KEY)
        *keys << Key{KeyKind::Backspace, QString()};
    else if (byte == ERASE_LINE)
        *keys << Key{KeyKind::EraseLine, QString()};
    else
        takeCharacter(byte, keys);
}

void KeyInput::takeEscaped(char byte, QList<Key>* keys)
{
    m_sequence.clear();
    m_state = State::Sequence;
    if (byte == '[' || byte == 'O')
        return;
    *keys << Key{KeyKind::Escape, QString()};
    m_state = State::Plain;
    takePlain(byte, keys);
}

void KeyInput::takeSequence(char byte, QList<Key>* keys)
{
    if (m_sequence.size() < LONGEST_SEQUENCE)
        m_sequence += byte;
    if (byte < '@' || byte > '~')
        return;
    m_state = State::Plain;
    for (const NamedSequence& named : SEQUENCES) {
        if (m_sequence == named.bytes)
            *keys << Key{named.kind, QString()};
    }
}

void KeyInput::takeCharacter(char byte, QList<Key>* keys)
{
    if (!goesOn(byte))
        m_character.clear();
    m_character += byte;
    const int length = characterLength(m_character.at(0));
    if (m_character.size() < length)
        return;
    const QString text = QString::fromUtf8(m_character);
    m_character.clear();
    if (length > 0 && isCharacter(text))
        *keys << Key{KeyKind::Text, text};
}

} // namespace kx
