/// Replies on their way from the controllers to the host, as a line of some speed carries
/// them. Knows no clock: every call says what time it is.
#ifndef KX_KXSIM_TIMING_LEAVING_BYTES_H
#define KX_KXSIM_TIMING_LEAVING_BYTES_H

#include "kxsim/timing/pace.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <vector>

namespace kxsim
{

class LeavingBytes
{
public:
    explicit LeavingBytes(const Pace& pace) : m_pace(pace) {}

    /// Takes a reply that begins at `start`, or when the one before it has ended. Of those
    /// that wait, the one with the earlier start goes first, else the one added first.
    void add(const QByteArray& reply, Moment start);

    bool isEmpty() const { return m_current.isEmpty() && m_waiting.empty(); }

    /// When the next byte arrives at the host; only when not empty.
    Moment due() const;

    /// The bytes that have arrived at the host by `now` and were not taken yet. Replies
    /// that begin among them are appended to `*begun`.
    QByteArray take(Moment now, QList<QByteArray>* begun);

    /// Forgets all of them.
    void clear();

private:
    struct Reply {
        Moment start;
        QByteArray bytes;
    };

    bool begin(Moment now);

    Pace m_pace;
    std::vector<Reply> m_waiting; ///< by their start
    QByteArray m_current;         ///< the reply on the line
    qint64 m_taken = 0;           ///< bytes of it
    Moment m_start{0};            ///< of the reply on the line
    Moment m_free{0};             ///< when the line has carried the latest reply
};

} // namespace kxsim

#endif
