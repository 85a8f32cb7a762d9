#ifndef KX_KXPANEL_TREND_FILES_TREND_FILE_WRITER_H
#define KX_KXPANEL_TREND_FILES_TREND_FILE_WRITER_H

#include "kxpanel/trend/model/trend_channel.h"
#include "recording/recorded.h"

namespace kxpanel
{

struct TrendRow {
    TrendSample sample;
    int tag; ///< its place among the tags
};

/// What channels were in a range, and the file that it is for.
struct TrendExport {
    QString path;
    QList<kx::RecordedTag> tags;
    QVector<TrendRow> rows; ///< of one tag after the other
    QList<int> places;      ///< placesOf() the tags' formats
    /// Part of it is so old that only the first, last, lowest and highest of several reads are
    /// left.
    bool isThinned = false;
    /// Some numbers have more digits than are left of them.
    bool isRounded = false;
};

/// Takes what the channels that are shown were in a range, with what held at its beginning.
/// @param path the name's suffix tells the kind of recording
/// @param now until when the newest values hold
/// @return false and one line in `*error`
bool gatherTrend(const QString& path, const QList<TrendChannel>& channels, const TrendRange& range,
                 qint64 now, TrendExport* gathered, QString* error);

/// Writes it as a recording; a file that is there is replaced as a whole. Any thread.
/// @return false and one line in `*error`
bool writeTrend(const TrendExport& gathered, QString* error);

} // namespace kxpanel

#endif
