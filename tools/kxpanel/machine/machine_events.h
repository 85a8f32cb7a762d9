/// What the window and its line tell each other: plain values, which cross threads.
#ifndef KX_KXPANEL_MACHINE_MACHINE_EVENTS_H
#define KX_KXPANEL_MACHINE_MACHINE_EVENTS_H

#include "exchange/replies/exchange_record.h"
#include "panel/files/tags_file.h"
#include "panel/plan/read_rules.h"
#include "panel/text/summary_text.h"
#include "panel/watch/watch_list.h"

#include <QtCore/QMap>
#include <QtCore/QVector>

namespace kxpanel
{

/// One value that the window watches. Its number stays as long as the window has it, whatever
/// else of it is edited, and is never given to another.
struct WatchedValue {
    int number = 0; ///< 1 or more
    /// Of one value: range.values is registersOf(format). The range names its station. An empty
    /// name is shown as the address.
    kx::Tag tag;
};

/// What is known of a watched value now.
struct Reading {
    int number = 0; ///< WatchedValue::number
    // Of the first register that was read, since the value may have been given others meanwhile.
    const RegisterType* type = nullptr; ///< null: not said
    int station = 0;
    int address = 0;
    kx::WatchState state = kx::WatchState::NeverRead;
    QList<qint64> raw;    ///< as valueText() takes it; empty: never read
    qint64 readAt = 0;    ///< milliseconds since 1970 in UTC; last good read, 0: none
    qint64 changedAt = 0; ///< the same; first change of a known value, 0: none
};

enum class LineState {
    Closed,
    Opening,
    Open,
    Interrupted ///< lost, and being opened again
};

struct LineStatus {
    LineState state = LineState::Closed;
    QString name;  ///< of the line: "/dev/ttyUSB0", "gateway:8888", "simulated controller"
    QString fault; ///< what is wrong with the line or its stations, one line; empty: nothing
    kx::LineTiming timing;   ///< of the serial line, be it behind a gateway
    int replyTimeout = 0;    ///< milliseconds from the end of a request; 0: not open yet
    bool isNetwork = false;  ///< when characters are on the serial line is not known here
    int longestRequest = 0;  ///< in registers, that may be asked for; 0: not open yet
    bool isAutomatic = true; ///< within that, requests are as long as takes the least time
    /// How stations are asked that refused a request since the session began.
    QMap<int, kx::StationRules> shortened = {};
    int sessions = 0; ///< of the line that have begun; each polls from the start
};

/// One exchange on the line, without the kilobyte of its job.
struct Exchange {
    qint64 number = 0; ///< from 1, in the order of their ends
    JobKind kind = NO_JOB;
    kx::AddressRange range; ///< of the request, with its station; no type: none
    QByteArray request;
    QByteArray reply; ///< bytes received since the request, the first 4096
    kx::ReplyKind replyKind = kx::ReplyKind::None;
    bool wasAccepted = false; ///< the driver took the reply
    bool wasRepeated = false; ///< the request had been sent before
    bool isFinal = true;      ///< else it is sent once more
    int result = 0;           ///< of intf_dealRcvFrame(), see ReplyResult
    int exceptionCode = 0;    ///< with ReplyKind::Exception
    int foreignReplies = 0;   ///< frames thrown away while waiting for the reply
    QString errorText;        ///< the driver's, when it failed for good
    QString outcome;          ///< as outcomeText()
    QString reason;           ///< as reasonText()
    qint64 sentAt = 0;        ///< milliseconds since 1970 in UTC, as finishedAt
    qint64 finishedAt = 0;
    /// Microseconds from the request's last character to the reply's first; negative without a
    /// whole reply.
    qint64 turnaround = -1;
    bool endsCycle = false; ///< the last of a cycle of polls
};

/// What listeners that stood still for long do not get: of values all but the latest reading, of
/// exchanges the oldest. And when nothing was read at all.
struct Missed {
    qint64 from = 0; ///< milliseconds since 1970 in UTC
    qint64 to = 0;
    qint64 exchanges = 0;
    bool isRest = false; ///< the computer slept, or the program was stopped: nobody read anything
};

Exchange exchangeOf(const kx::ExchangeRecord& record, qint64 number);

/// The record that it was made of, but for the job.
kx::ExchangeRecord recordOf(const Exchange& exchange);

/// Lets all of these cross threads; may be called many times.
void registerMachineTypes();

} // namespace kxpanel

Q_DECLARE_METATYPE(kxpanel::WatchedValue)
Q_DECLARE_METATYPE(kxpanel::Reading)
Q_DECLARE_METATYPE(kxpanel::LineStatus)
Q_DECLARE_METATYPE(kxpanel::Exchange)
Q_DECLARE_METATYPE(kxpanel::Missed)
Q_DECLARE_METATYPE(QVector<kxpanel::Reading>)
Q_DECLARE_METATYPE(QVector<kxpanel::Exchange>)
Q_DECLARE_METATYPE(kx::WatchSummary)

#endif
