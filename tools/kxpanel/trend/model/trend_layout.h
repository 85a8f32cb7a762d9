/// Channels as a project keeps them: by name, station and address, since numbers are a run's own.
#ifndef KX_KXPANEL_TREND_MODEL_TREND_LAYOUT_H
#define KX_KXPANEL_TREND_MODEL_TREND_LAYOUT_H

#include "kxpanel/trend/model/trend_channel.h"

#include <QtCore/QJsonObject>

namespace kxpanel
{

QJsonObject channelJson(const TrendChannel& channel);

/// The same for whatever means the same channel.
QString channelKey(const QJsonObject& json);

/// Its axis, look and whether it is shown.
void takeChannelJson(const QJsonObject& json, TrendChannel* channel);

} // namespace kxpanel

#endif
