#include "kxpanel/frames/frame_details.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "panel/text/frame_text.h"

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

QStringList frameRows(const QString& heading, const QByteArray& frame, const QString& named)
{
    QStringList rows = {heading};
    if (named != kx::hexText(frame)) // else no field has a name
        rows += fieldRows(named);
    return rows + hexRows(frame);
}

QStringList replyRows(const Exchange& exchange)
{
    const QString time = timeOfDay(exchange.finishedAt);
    if (exchange.reply.isEmpty())
        return {Words::tr("No reply until %1").arg(time)};
    const int size = static_cast<int>(exchange.reply.size());
    const int before = std::max(bytesBeforeAnswer(exchange), 0);
    QStringList rows =
        frameRows(Words::tr("Reply, over at %1, %n byte(s)", nullptr, size - before).arg(time),
                  exchange.reply.mid(before), kx::replyText(exchange.reply.mid(before)));
    if (before > 0)
        rows << QString() << Words::tr("Before it came %n byte(s)", nullptr, before)
             << hexRows(exchange.reply.left(before));
    return rows;
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
                      exchange.request, kx::requestText(exchange.request));
    rows << QString();
    rows += replyRows(exchange);
    return rows.join(QLatin1Char('\n'));
}

} // namespace kxpanel
