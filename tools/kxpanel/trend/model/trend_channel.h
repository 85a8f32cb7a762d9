#ifndef KX_KXPANEL_TREND_MODEL_TREND_CHANNEL_H
#define KX_KXPANEL_TREND_MODEL_TREND_CHANNEL_H

#include "kxpanel/trend/history/trend_store.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <memory>

namespace kx
{
struct AddressRange;
struct ValueFormat;
} // namespace kx

namespace kxpanel
{

struct WatchedValue;

/// Where a value is drawn.
enum class TrendAxis {
    Automatic, ///< bits in lanes; of others the first unit left, the second right, more in lanes
    Left,
    Right,
    Lane ///< a strip of its own below the curves
};

/// One value of a plot.
struct TrendChannel {
    int number = 0;  ///< of the watched value; below 0: from a recorded file
    QString name;    ///< as shown, one line
    QString tagName; ///< of its tag; empty: none
    int station = 0;
    QString address; ///< with its format, without the station: "D100/float"
    QString unit;
    bool isDigital = false; ///< 0 or 1
    int places = -1;        ///< placesOf() its format
    int look = 0;           ///< trendPen()
    bool isShown = true;
    TrendAxis wanted = TrendAxis::Automatic;
    TrendAxis axis = TrendAxis::Left; ///< where it is: never Automatic
    qint64 endsAt = -1;               ///< where a recording ends; -1: it goes on
    qint64 readAt = 0;                ///< of the read that was taken last; 0: none
    std::shared_ptr<TrendStore> store;
    QJsonObject layout; ///< as the project had it, with members of others

    /// Until when the newest sample holds.
    qint64 until(qint64 now) const { return endsAt < 0 ? now : endsAt; }
};

/// Whether values are 0 or 1.
bool isDigital(const kx::AddressRange& range, const kx::ValueFormat& format);

/// What the watch list says of a value: name, address and unit.
void describe(const WatchedValue& value, TrendChannel* channel);

/// Gives each channel its axis.
void assignAxes(QList<TrendChannel>* channels);

/// The units on an axis, each once, in their order.
QStringList unitsOn(const QList<TrendChannel>& channels, TrendAxis axis);

} // namespace kxpanel

#endif
