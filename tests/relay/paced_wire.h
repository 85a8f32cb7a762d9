#ifndef KX_TESTS_RELAY_PACED_WIRE_H
#define KX_TESTS_RELAY_PACED_WIRE_H

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <deque>

namespace kx
{

/// One direction of a serial line: characters follow each other, each as long as its bits take.
/// Times are nanoseconds on one clock.
class PacedWire
{
public:
    PacedWire(int baud, int bitsPerCharacter);

    /// The sender hands these over at `now`; they go out behind what is still on its way.
    void send(const QByteArray& bytes, qint64 now);

    bool isEmpty() const { return m_onTheWay.empty(); }
    /// When the next character has been carried; only while it is not empty.
    qint64 nextAt() const { return m_onTheWay.front().end; }
    /// Nothing follows the next character yet.
    bool isNextTheLast() const { return m_onTheWay.size() == 1; }

    struct Character {
        char byte;
        qint64 start; ///< of its start bit
        qint64 end;   ///< of its last stop bit
    };
    /// The next character; only while it is not empty.
    Character take();

private:
    qint64 timeOf(qint64 characters) const;

    int m_baud;
    int m_bits;
    qint64 m_burstStart =
        0; ///< characters without a pause between them count from here: no error adds up
    qint64 m_burstLength = 0;
    std::deque<Character> m_onTheWay;
};

} // namespace kx

#endif
