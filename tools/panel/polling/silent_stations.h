#ifndef KX_PANEL_POLLING_SILENT_STATIONS_H
#define KX_PANEL_POLLING_SILENT_STATIONS_H

#include <QtCore/QHash>
#include <QtCore/QtGlobal>

namespace kx
{

/// Stations that do not answer, and when to try them again. Each try costs a time-out, in which
/// no other station is asked: so the waits grow until all tries together take less than a
/// tenth of the time. Times are microseconds on the loop's clock.
class SilentStations
{
public:
    /// @param replyTimeout microseconds
    explicit SilentStations(qint64 replyTimeout) : m_replyTimeout(replyTimeout) {}

    bool contains(int station) const { return m_stations.contains(station); }
    /// When to try it again. Not before the round after the one in which it fell silent.
    qint64 tryAt(int station) const;
    bool isDue(int station, qint64 round, qint64 now) const;

    /// Time-outs to wait after so many tries in vain.
    static int waitAfter(int tries);

    /// A request got no answer.
    void onSilence(int station, qint64 round, qint64 now);
    /// Whether it was silent before.
    bool onAnswer(int station) { return m_stations.remove(station) > 0; }

private:
    struct Silence {
        qint64 round = 0; ///< in which it fell silent
        int tries = 0;    ///< since
        qint64 until = 0; ///< then it is tried again
    };

    qint64 m_replyTimeout;
    QHash<int, Silence> m_stations;
    qint64 m_noneBefore = 0; ///< no station is tried, so that tries stay rare
};

} // namespace kx

#endif
