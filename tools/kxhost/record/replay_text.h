/// A recording as a watch would have shown it.
#ifndef KX_KXHOST_RECORD_REPLAY_TEXT_H
#define KX_KXHOST_RECORD_REPLAY_TEXT_H

#include "recording/recorded.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace kx
{

/// The addresses of a recording's tags, with their formats where it has one in several: "D100",
/// "D110/float".
QStringList replayPlaces(const QList<RecordedTag>& tags);

/// "2024-05-17T10:11:12.013 1 D100 (Pump speed) 12.5 m/s", or "... no answer" of a gap; in local
/// time.
/// @param place of replayPlaces()
QString replayRow(const RecordedTag& tag, const QString& place, const RecordedEvent& event);
QJsonObject replayJson(const RecordedTag& tag, const RecordedEvent& event);

/// Which events say something new: a recording may hold a value again and again.
class ReplayFilter
{
public:
    explicit ReplayFilter(int tags) : m_last(tags) {}

    bool isNews(const RecordedEvent& event);

private:
    QVector<RecordedEvent> m_last; ///< of each tag
};

} // namespace kx

#endif
