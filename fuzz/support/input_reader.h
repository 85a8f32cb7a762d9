/// A fuzzer's bytes taken one decision after the other. Past the end every answer
/// is 0, so any input is a whole one.
#ifndef KX_FUZZ_SUPPORT_INPUT_READER_H
#define KX_FUZZ_SUPPORT_INPUT_READER_H

#include <QtCore/QByteArray>

#include <cstddef>
#include <cstdint>

class InputReader
{
public:
    InputReader(const std::uint8_t* bytes, std::size_t size) : m_next(bytes), m_end(bytes + size) {}

    bool isEmpty() const { return m_next == m_end; }

    int byte() { return isEmpty() ? 0 : *m_next++; }

    bool flag() { return (byte() & 1) != 0; }

    /// 0 to `count` - 1; `count` is 1 to 256.
    int below(int count) { return byte() % count; }

    /// Any 32 bits.
    int word()
    {
        quint32 bits = 0;
        for (int i = 0; i < 4; ++i)
            bits = bits << 8 | static_cast<quint32>(byte());
        return static_cast<int>(bits);
    }

    /// At most `most` bytes, fewer at the end.
    QByteArray bytes(int most)
    {
        const std::ptrdiff_t left = m_end - m_next;
        const int size = static_cast<int>(left < most ? left : most);
        const QByteArray taken(reinterpret_cast<const char*>(m_next), size);
        m_next += size;
        return taken;
    }

    /// Bytes with their number in front, at most 255.
    QByteArray text() { return bytes(byte()); }

    QByteArray rest() { return bytes(static_cast<int>(m_end - m_next)); }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

#endif
