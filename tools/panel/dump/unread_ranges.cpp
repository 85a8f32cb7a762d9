#include "panel/dump/unread_ranges.h"

#include "addresses/read_pieces.h"

namespace kx
{

namespace
{

const int VALUES_PER_PIECE = 100;

bool continuesUnread(const UnreadRange& last, const ReadOutcome& next)
{
    const AddressRange& range = next.tag.range;
    return last.range.station == range.station && last.range.type == range.type
           && last.range.address + last.range.values == range.address
           && last.reason == next.failure.text;
}

} // namespace

QList<Tag> piecesToRead(const QList<AddressRange>& ranges)
{
    QList<Tag> tags;
    for (const AddressRange& range : ranges) {
        for (const AddressRange& piece : readPieces(range, VALUES_PER_PIECE)) {
            Tag tag;
            tag.range = piece;
            tags << tag;
        }
    }
    return tags;
}

QList<UnreadRange> unreadRanges(const QList<ReadOutcome>& failed)
{
    QList<UnreadRange> unread;
    for (const ReadOutcome& outcome : failed) {
        const AddressRange& range = outcome.tag.range;
        if (!unread.isEmpty() && continuesUnread(unread.last(), outcome))
            unread.last().range.values += range.values;
        else
            unread.append({range, outcome.failure.text});
    }
    return unread;
}

QString rangeText(const AddressRange& range)
{
    const QString count =
        range.values == 1 ? QString() : QLatin1Char(':') + QString::number(range.values);
    return QStringLiteral("%1%2@%3").arg(addressText(range.type, range.address), count,
                                         QString::number(range.station));
}

} // namespace kx
