#ifndef KX_TESTS_RELAY_RELAY_H
#define KX_TESTS_RELAY_RELAY_H

#include "exchange/lines/line_timing.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <memory>

namespace kx
{

struct RelaySettings {
    int baud = 9600;
    int bitsPerCharacter = 10; ///< start bit, data bits, parity bit, stop bits: 10 or 11
    /// Answers itself, as ImmediateSlave does; there is no slave's port then.
    bool answers = false;
    int turnaround = 0; ///< microseconds from a request's end to the reply, when it answers
};

/// The character format that the line is used with.
LineTiming timingOf(const RelaySettings& settings);

/// Characters that one side sent without a pause between them.
struct RelayedFrame {
    bool isFromMaster;
    QByteArray bytes;
    qint64 start; ///< microseconds: when the relay got the first byte and its start bit went out
    qint64 end;   ///< when the last byte was handed over, behind its last stop bit
};

/// A serial line: two pseudo-terminals, or one and a station behind it, between which a thread
/// carries each byte for as long as its bits take. The thread has real-time priority where that is
/// allowed; without it, bytes come late on a busy machine, never early.
class Relay
{
public:
    /// Null and one line in `*error` when there is no pseudo-terminal.
    static std::unique_ptr<Relay> open(const RelaySettings& settings, QString* error);
    virtual ~Relay() = default;

    /// Devices for the two programs; the slave's is empty when the relay answers.
    virtual QString masterPort() const = 0;
    virtual QString slavePort() const = 0;

    virtual bool hasRealTimePriority() const = 0;

    /// All that was carried since it was opened or frames were taken, in order. A frame that is on
    /// its way is cut in two: take them while the line is silent. Of any thread.
    virtual QList<RelayedFrame> takeFrames() = 0;
};

} // namespace kx

#endif
