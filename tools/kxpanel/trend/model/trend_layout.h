/// Channels as a project keeps them: by name, station and address, since numbers are a run's own.
#ifndef KX_KXPANEL_TREND_MODEL_TREND_LAYOUT_H
#define KX_KXPANEL_TREND_MODEL_TREND_LAYOUT_H

#include "kxpanel/trend/model/trend_channel.h"

#include <QtCore/QJsonObject>

namespace kxpanel
{

QJsonObject channelJson(const TrendChannel& channel);

/// Whether it is the channel that was kept so.
bool isMeant(const QJsonObject& json, const TrendChannel& channel);

/// Its axis, look and whether it is shown.
void takeChannelJson(const QJsonObject& json, TrendChannel* channel);

} // namespace kxpanel

#endif
