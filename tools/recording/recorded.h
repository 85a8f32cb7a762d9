/// What a recording holds, whichever kind of file it is. Times are milliseconds since
/// 1970-01-01 UTC.
#ifndef KX_RECORDING_RECORDED_H
#define KX_RECORDING_RECORDED_H

#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

struct RecordedTag {
    QString name;    ///< empty when the address was typed
    int station = 0; ///< 1 to 247
    QString address; ///< as typed, without blanks and station: "X17", "D100/float"
    QString unit;    ///< empty: none

    bool operator==(const RecordedTag& other) const;
};

struct RecordedValue {
    QString text;         ///< of a number, in decimal: "-1.5"
    bool isNumber = true; ///< else it is text, whatever it looks like

    /// Whether a double holds the number to its last digit; then `*number`.
    bool isDouble(double* number) const;
    bool operator==(const RecordedValue& other) const;
    bool operator!=(const RecordedValue& other) const { return !(*this == other); }
};

/// Why a tag has no value. NotRead: not since the sample before, and no failure is known.
enum class GapReason { NotYetRead, NotRead, NoAnswer, Refused, LineLost, RecorderStopped };

/// As files hold it: "not yet read", "not read", "no answer", "refused", "line lost", "recorder
/// stopped".
QString gapText(GapReason reason);

/// The same for people.
QString gapWords(GapReason reason);

/// False when no reason is called so.
bool parseGapText(const QString& text, GapReason* reason);

/// A value that was read, or the beginning of a gap, which lasts until the tag's next event.
struct RecordedEvent {
    qint64 time = 0;
    int tag = 0; ///< index in the recording's tags
    bool isGap = false;
    RecordedValue value;                      ///< unless it is a gap
    GapReason reason = GapReason::NotYetRead; ///< of a gap
};

} // namespace kx

#endif
