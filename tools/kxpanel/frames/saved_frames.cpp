#include "kxpanel/frames/saved_frames.h"

#include "panel/files/replaced_file.h"
#include "panel/text/frame_text.h"

#include <QtCore/QJsonDocument>

namespace kxpanel
{

QByteArray framesAsText(const QVector<Exchange>& exchanges)
{
    QByteArray text;
    for (const Exchange& exchange : exchanges) {
        for (const QString& row : kx::exchangeRows(recordOf(exchange)))
            text += row.toUtf8() + '\n';
    }
    return text;
}

QByteArray framesAsJson(const QVector<Exchange>& exchanges)
{
    QByteArray text;
    for (const Exchange& exchange : exchanges)
        text += QJsonDocument(kx::exchangeJson(recordOf(exchange))).toJson(QJsonDocument::Compact)
                + '\n';
    return text;
}

bool saveFrames(const QString& path, const QVector<Exchange>& exchanges, QString* error)
{
    const bool isJson = path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive)
                        || path.endsWith(QLatin1String(".jsonl"), Qt::CaseInsensitive);
    return kx::replaceFile(path, isJson ? framesAsJson(exchanges) : framesAsText(exchanges), error);
}

} // namespace kxpanel
