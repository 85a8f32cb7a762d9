#ifndef KX_KXHOST_TERMINAL_KEY_INPUT_H
#define KX_KXHOST_TERMINAL_KEY_INPUT_H

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

enum class KeyKind {
    Text, ///< a character, see Key::text
    Enter,
    Backspace,
    EraseLine, ///< Ctrl-U
    Escape,
    Up,
    Down,
    PageUp,
    PageDown,
    Home,
    End
};

struct Key {
    KeyKind kind = KeyKind::Text;
    QString text; ///< of KeyKind::Text
};

/// Turns the bytes that a terminal sends into keys. Other keys give none.
class KeyInput
{
public:
    QList<Key> take(const QByteArray& bytes);

    /// Whether an escape character waits for what follows it: a key such as an arrow sends
    /// more at once, the Escape key alone does not.
    bool isUndecided() const { return m_state == State::Escaped; }
    /// To be called when nothing has followed for a while: it was the Escape key.
    QList<Key> decide();

private:
    enum class State { Plain, Escaped, Sequence };

    void takePlain(char byte, QList<Key>* keys);
    void takeEscaped(char byte, QList<Key>* keys);
    void takeSequence(char byte, QList<Key>* keys);
    void takeCharacter(char byte, QList<Key>* keys);

    State m_state = State::Plain;
    QByteArray m_sequence;  ///< behind ESC [ or ESC O
    QByteArray m_character; ///< the beginning of one of several bytes
};

} // namespace kx

#endif
