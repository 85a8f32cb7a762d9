#ifndef KX_TESTS_RELAY_PTY_H
#define KX_TESTS_RELAY_PTY_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kx
{

/// The relay's end of a pseudo-terminal. The program's end is held open, too, so that the terminal
/// outlives a program that closes it, and is raw from the beginning.
class Pty
{
public:
    Pty();
    ~Pty();
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    bool isOpen() const { return m_end >= 0 && m_otherEnd >= 0; }
    QString portName() const { return m_name; }
    int descriptor() const { return m_end; }

    /// What is there now. Waits for nothing.
    QByteArray receive() const;
    void send(char byte) const;

private:
    int m_end;
    int m_otherEnd = -1;
    QString m_name;
};

} // namespace kx

#endif
