/// When a recording is handed to the system, and when it goes on in another file. No clock of
/// their own: times are milliseconds since 1970-01-01 UTC.
#ifndef KX_RECORDING_RECORDING_RULES_H
#define KX_RECORDING_RECORDING_RULES_H

#include <QtCore/QString>

namespace kx
{

/// What was recorded waits for half a second at most.
class FlushRule
{
public:
    void onRecord(qint64 time);
    void onFlush() { m_since = -1; }
    /// Also when the clock was set back.
    bool isDue(qint64 now) const;

private:
    qint64 m_since = -1; ///< the first record that waits; -1: none does
};

/// Milliseconds to the next whole multiple of `every`, at which samples of several machines lie
/// side by side. A timer that was a little early does not sample twice.
/// @param every more than 0
qint64 untilNextSample(qint64 now, qint64 every);

/// Neither: one file for ever.
struct RotationRule {
    qint64 bytes = 0;        ///< a file that has so many is finished
    qint64 milliseconds = 0; ///< files end at multiples of it, in UTC: each full hour

    bool isSet() const { return bytes > 0 || milliseconds > 0; }
    /// @param begin when the file was begun
    bool isDue(qint64 begin, qint64 now, qint64 size) const;
};

/// Reads "100M" (k, M or G: 1024 bytes and so on; 64k at least) or "1h" (min, h or d; 1min to
/// 366d). False for anything else.
bool parseRotation(const QString& text, RotationRule* rule);

/// "line3-20261122T203000Z.csv", the `number`th file that was begun in that second:
/// "line3-20261122T203000Z-2.csv".
QString rotatedName(const QString& path, qint64 begin, int number);

} // namespace kx

#endif
