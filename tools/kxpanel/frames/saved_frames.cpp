#include "kxpanel/frames/saved_frames.h"

#include "exchange/replies/reply_parts.h"
#include "exchange/replies/reply_verdict.h"
#include "listen/capture_format.h"
#include "panel/files/replaced_file.h"
#include "panel/text/frame_text.h"

#include <QtCore/QJsonDocument>

#include <algorithm>

namespace kxpanel
{

namespace
{

/// @param time milliseconds since 1970
QByteArray packet(const QByteArray& bytes, bool isFrame, bool isRequest, qint64 time)
{
    const qint64 millisecond = 1000; // microseconds
    kx::HeardPiece piece;
    piece.bytes = bytes;
    piece.isFrame = isFrame;
    piece.isRequest = isRequest;
    return kx::capturePacket(piece, time * millisecond);
}

QByteArray replyPackets(const Exchange& exchange)
{
    QByteArray packets;
    for (const kx::ReplyPart& part : kx::partsOfReply(recordOf(exchange)))
        packets += packet(part.bytes, part.isFrame(), part.kind == kx::PartKind::Echo,
                          exchange.finishedAt);
    return packets;
}

bool wasSent(const Exchange& exchange)
{
    return exchange.replyKind != kx::ReplyKind::NotSent
           && exchange.replyKind != kx::ReplyKind::NeverSilent;
}

bool endsIn(const QString& path, const char* ending)
{
    return path.endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

} // namespace

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

QByteArray framesAsCapture(const QVector<Exchange>& exchanges)
{
    QByteArray capture = kx::captureHeader();
    for (const Exchange& exchange : exchanges) {
        if (!wasSent(exchange))
            continue;
        capture +=
            packet(exchange.request, kx::endsWithItsCrc(exchange.request), true, exchange.sentAt)
            + replyPackets(exchange);
    }
    return capture;
}

int saveFrames(const QString& path, const QVector<Exchange>& exchanges, QString* error)
{
    if (endsIn(path, ".pcap")) {
        const auto sent = std::count_if(exchanges.begin(), exchanges.end(), &wasSent);
        return kx::replaceFile(path, framesAsCapture(exchanges), error) ? static_cast<int>(sent)
                                                                        : -1;
    }
    const bool isJson = endsIn(path, ".json") || endsIn(path, ".jsonl");
    const QByteArray text = isJson ? framesAsJson(exchanges) : framesAsText(exchanges);
    return kx::replaceFile(path, text, error) ? static_cast<int>(exchanges.size()) : -1;
}

} // namespace kxpanel
