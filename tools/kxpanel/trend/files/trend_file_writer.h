#ifndef KX_KXPANEL_TREND_FILES_TREND_FILE_WRITER_H
#define KX_KXPANEL_TREND_FILES_TREND_FILE_WRITER_H

#include "kxpanel/trend/model/trend_channel.h"

namespace kxpanel
{

/// Writes what the channels that are shown were in a range, with what held at its beginning, as a
/// recording that the name's suffix tells; a file that is there is replaced as a whole.
/// @param now until when the newest values hold
/// @param isThinned whether part of it is so old that only the first, last, lowest and highest of
///        several reads are left
/// @return false and one line in `*error`
bool writeTrend(const QString& path, const QList<TrendChannel>& channels, const TrendRange& range,
                qint64 now, bool* isThinned, QString* error);

} // namespace kxpanel

#endif
