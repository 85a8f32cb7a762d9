#ifndef KX_LISTEN_HEARD_BYTES_H
#define KX_LISTEN_HEARD_BYTES_H

#include "exchange/lines/line_timing.h"
#include "listen/heard_piece.h"

#include <QtCore/QVector>

namespace kx
{

/// Bytes that were heard and are in no piece yet, each with the time it was read at.
class HeardBytes
{
public:
    explicit HeardBytes(const LineTiming& timing) : m_timing(timing) {}

    /// @param at microseconds, never less than before
    void add(const QByteArray& bytes, qint64 at);

    const QByteArray& bytes() const { return m_bytes; }
    int size() const { return static_cast<int>(m_bytes.size()); }

    /// Whether, as far as the times tell, the line was silent for a frame gap before that
    /// byte. So it is before the first byte of all.
    bool isAfterPause(int index) const;

    /// Removes so many bytes from the beginning, at least one.
    HeardPiece take(int count);

private:
    struct Time {
        qint64 at;
        int behind;   ///< bytes that were read in the same go, behind this one
        bool isFirst; ///< of those that were read in one go
        bool isAfterPause;
    };

    bool isPause(qint64 at, int count) const;
    qint64 beginOf(const Time& time) const;
    qint64 endOf(const Time& time) const;
    qint64 doubtOf(int count) const;

    LineTiming m_timing;
    QByteArray m_bytes;
    QVector<Time> m_times;  ///< of m_bytes
    qint64 m_lastRead = -1; ///< -1: nothing was heard yet
};

} // namespace kx

#endif
