/// What happens to the line and to stations, once per change.
#ifndef KX_PANEL_WATCH_LINK_EVENTS_H
#define KX_PANEL_WATCH_LINK_EVENTS_H

#include "addresses/export.h"
#include "exchange/replies/exchange_record.h"
#include "panel/plan/read_rules.h"

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QSet>

namespace kx
{

struct LinkEvent {
    enum Kind {
        LineLost,
        LineOpened,
        LineNeverSilent,
        LineSilent,
        StationSilent,
        StationBack,
        RequestsShortened
    };
    Kind kind = LineLost;
    int station = 0;         ///< of the last three
    StationRules rules = {}; ///< of the last: how the station is asked from now on
};

/// "line lost", "line open again", "line never silent", "line silent again", "station 2
/// does not answer", "station 2 answers again", "station 2 refuses requests; it is asked for
/// at most 62 registers or 2000 coils at once", "...; addresses between are not read along".
KXRUNTIME_EXPORT QString linkEventText(const LinkEvent& event);

/// "2024-05-17T10:11:12.013 station 2 does not answer".
KXRUNTIME_EXPORT QString linkEventRow(const LinkEvent& event, const QDateTime& time);

/// Of event "line" or "station", with its state and time.
KXRUNTIME_EXPORT QJsonObject linkEventJson(const LinkEvent& event, const QDateTime& time);

/// Finds the changes in what was exchanged.
class KXRUNTIME_EXPORT LinkState
{
public:
    /// A station is silent from a request that failed for good without any usable reply
    /// until its next reply; a refusal is one, unless a gateway speaks for the station. What the
    /// line did is not its fault.
    QList<LinkEvent> onExchange(const ExchangeRecord& record);

    QList<LinkEvent> onLineLost();
    /// Nothing unless the line was lost.
    QList<LinkEvent> onLineOpened();

    /// What is wrong now, "" when nothing is: "line lost; station 2 does not answer".
    QString faultText() const;

private:
    bool m_isLost = false;
    bool m_isNeverSilent = false;
    QSet<int> m_silentStations;
};

} // namespace kx

Q_DECLARE_METATYPE(kx::LinkEvent)

#endif
