/// Bytes on their way from the host to the controllers, as a line of some speed brings
/// them. Knows no clock: every call says what time it is.
#ifndef KX_KXSIM_TIMING_ARRIVING_BYTES_H
#define KX_KXSIM_TIMING_ARRIVING_BYTES_H

#include "kxsim/timing/pace.h"

#include <QtCore/QByteArray>

#include <deque>

namespace kxsim
{

class ArrivingBytes
{
public:
    struct Arrival {
        Moment end; ///< when the last of the bytes has arrived
        QByteArray bytes;
    };

    explicit ArrivingBytes(const Pace& pace) : m_pace(pace) {}

    /// Takes bytes that the host has sent by `now`; they follow those still on their way.
    void add(const QByteArray& bytes, Moment now);

    bool isEmpty() const { return m_arrivals.empty(); }

    /// When the first of them are there; only when not empty.
    Moment due() const { return m_arrivals.front().end; }

    /// Takes the first of them off the line; only when not empty.
    Arrival take();

    void clear();

private:
    Pace m_pace;
    std::deque<Arrival> m_arrivals;
    Moment m_free{0}; ///< when the line has carried all of them
};

} // namespace kxsim

#endif
