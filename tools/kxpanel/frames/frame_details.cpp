#include "kxpanel/frames/frame_details.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "panel/text/frame_text.h"
#include "panel/text/reply_faults.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace kxpanel
{

namespace
{

const int BYTES_PER_ROW = 16;

struct Words {
    Q_DECLARE_TR_FUNCTIONS(kxpanel::FrameDetails)
};

QStringList hexRows(const QByteArray& bytes)
{
    QStringList rows;
    for (int at = 0; at < bytes.size(); at += BYTES_PER_ROW)
        rows << QStringLiteral("  %1  %2")
                    .arg(at, 4, 10, QLatin1Char('0'))
                    .arg(kx::hexText(bytes.mid(at, BYTES_PER_ROW)));
    return rows;
}

/// @param named as of requestText(): fields with a comma between
QStringList fieldRows(const QString& named)
{
    QStringList rows;
    for (const QString& field : named.split(QStringLiteral(", ")))
        rows << QLatin1String("  ") + field;
    return rows;
}

/// @param named its fields; empty: it has none
QStringList frameRows(const QString& heading, const QByteArray& frame, const QString& named)
{
    QStringList rows = {heading};
    if (!named.isEmpty())
        rows += fieldRows(named);
    return rows + hexRows(frame);
}

/// The fields of a frame, of other bytes what is wrong with them.
QString partText(const kx::ReplyPart& part, const QString& faults)
{
    if (!part.isFrame())
        return faults;
    return part.kind == kx::PartKind::Echo ? kx::requestText(part.bytes)
                                           : kx::replyText(part.bytes);
}

bool isReply(const kx::ReplyPart& part)
{
    return part.kind == kx::PartKind::Answer || part.kind == kx::PartKind::Damaged;
}

/// The reply itself, or that none came.
QStringList ownReplyRows(const Exchange& exchange, const QVector<kx::ReplyPart>& parts)
{
    const QString time = timeOfDay(exchange.finishedAt);
    const auto reply = std::find_if(parts.begin(), parts.end(), &isReply);
    if (reply == parts.end())
        return {Words::tr("No reply until %1").arg(time)};
    const int size = static_cast<int>(reply->bytes.size());
    const QString faults = kx::partFaults(exchange.request, *reply, QByteArray(), kx::forPeople);
    QStringList rows =
        frameRows(Words::tr("Reply, over at %1, %n byte(s)", nullptr, size).arg(time), reply->bytes,
                  partText(*reply, faults));
    if (reply->kind == kx::PartKind::Answer && !faults.isEmpty())
        rows.insert(1, QLatin1String("  ") + faults);
    return rows;
}

enum class Beside { Instead, Before, Behind };

QString besideHeading(Beside place, int size)
{
    switch (place) {
    case Beside::Before:
        return Words::tr("Before it came %n byte(s): %1", nullptr, size);
    case Beside::Behind:
        return Words::tr("Behind it came %n byte(s): %1", nullptr, size);
    case Beside::Instead:
        break;
    }
    return Words::tr("Instead came %n byte(s): %1", nullptr, size);
}

/// What came before the reply, behind it, or in place of it.
QStringList besideRows(const Exchange& exchange, const QVector<kx::ReplyPart>& parts)
{
    QStringList rows;
    const QByteArray answer = kx::answerAmong(parts);
    const bool hasReply = std::any_of(parts.begin(), parts.end(), &isReply);
    Beside place = hasReply ? Beside::Before : Beside::Instead;
    for (const kx::ReplyPart& part : parts) {
        if (isReply(part)) {
            place = Beside::Behind;
            continue;
        }
        const QString faults = kx::partFaults(exchange.request, part, answer, kx::forPeople);
        const QString heading = besideHeading(place, static_cast<int>(part.bytes.size()));
        rows << QString();
        rows += frameRows(heading.arg(faults), part.bytes,
                          part.isFrame() ? partText(part, faults) : QString());
    }
    return rows;
}

QStringList replyRows(const Exchange& exchange)
{
    const QVector<kx::ReplyPart> parts = kx::partsOfReply(recordOf(exchange));
    return ownReplyRows(exchange, parts) + besideRows(exchange, parts);
}

} // namespace

QString detailsText(const Exchange& exchange)
{
    QStringList rows;
    const QString words = requestWords(exchange);
    rows << (words.isEmpty() ? exchange.reason
                             : Words::tr("Station %1: %2").arg(stationOf(exchange)).arg(words));
    rows << exchange.outcome;
    if (exchange.turnaround >= 0)
        rows << Words::tr("The reply began %1 after the request.")
                    .arg(timeWords(exchange.turnaround));
    rows << QString();
    rows += frameRows(Words::tr("Request, sent %1, %n byte(s)", nullptr,
                                static_cast<int>(exchange.request.size()))
                          .arg(timeOfDay(exchange.sentAt)),
                      exchange.request,
                      exchange.request.isEmpty() ? QString() : kx::requestText(exchange.request));
    rows << QString();
    rows += replyRows(exchange);
    return rows.join(QLatin1Char('\n'));
}

} // namespace kxpanel
