#include "kxhost/watch_table.h"

namespace
{

const qint64 SHOWN_AS_CHANGED = 1000; // milliseconds

/// What one line of the table shows, heading included.
struct Cells {
    QString station;
    QString type;
    QString address;
    QString modbus;
    QString value;
    QString hex;
    QString age;
    QString state;
};

QString row(const Cells& cells)
{
    return QString::fromLatin1("%1  %2 %3  %4  %5  %6  %7  %8")
        .arg(cells.station, 7)
        .arg(cells.type, -4)
        .arg(cells.address, 7)
        .arg(cells.modbus, 6)
        .arg(cells.value, 10)
        .arg(cells.hex, 10)
        .arg(cells.age, 8)
        .arg(cells.state);
}

QString heading()
{
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    return row({text("STATION"), text("TYPE"), text("ADDRESS"), text("MODBUS"), text("VALUE"),
                text("HEX"), text("AGE"), text("STATE")});
}

/// Time since the last good read, in seconds.
QString ageText(const WatchEntry& entry, qint64 now)
{
    if (entry.readAt == 0)
        return QString();
    return QString::fromLatin1("%1 s").arg(
        QString::number(static_cast<double>(now - entry.readAt) / 1000, 'f', 1));
}

QString entryRow(const WatchEntry& entry, qint64 now)
{
    return row({QString::number(entry.station), QString::fromLatin1(entry.type->name),
                QString::number(entry.address, entry.type->radix),
                QString::number(modbusNumber(entry.type, entry.address)),
                entry.isKnown ? QString::number(entry.value) : QString(), hexValue(entry),
                ageText(entry, now), stateText(entry, now)});
}

} // namespace

QString stateText(const WatchEntry& entry, qint64 now)
{
    switch (entry.state) {
    case WatchState::NeverRead:
        return QLatin1String("never read");
    case WatchState::NoAnswer:
        return QLatin1String("no answer");
    case WatchState::Refused:
        return QLatin1String("refused");
    case WatchState::Ok:
        break;
    }
    const bool isRecent = entry.changedAt > 0 && now - entry.changedAt < SHOWN_AS_CHANGED;
    return QLatin1String(isRecent ? "changed" : "ok");
}

QString hexValue(const WatchEntry& entry)
{
    if (!entry.isKnown)
        return QString();
    if (entry.type->registerClass == BIT_CLASS)
        return QString::number(entry.value);
    const int digits = 4 * registersPerAddress(entry.type);
    return QLatin1String("0x")
           + QString::fromLatin1("%1").arg(entry.value, digits, 16, QLatin1Char('0')).toUpper();
}

QStringList tableLines(const QList<WatchEntry>& entries, qint64 now, int width, int height)
{
    QStringList lines(heading());
    const int total = static_cast<int>(entries.size());
    const int rows = total < height ? total : qMax(0, height - 2);
    for (int i = 0; i < rows; ++i)
        lines << entryRow(entries.at(i), now);
    if (rows < total)
        lines << QString::fromLatin1("... and %1 more").arg(total - rows);
    while (lines.size() > qMax(0, height))
        lines.removeLast();
    for (QString& line : lines)
        line = line.left(width);
    return lines;
}
