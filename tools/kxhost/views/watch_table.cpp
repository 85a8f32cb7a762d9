#include "kxhost/views/watch_table.h"

#include "registers/register_types.h"

namespace kx
{

namespace
{

const qint64 SHOWN_AS_CHANGED = 1000; // milliseconds
// With it, station to state fit a terminal of 80 columns.
const int WIDEST_NAME = 22;

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
    QString name;
};

QString plainRow(const Cells& cells)
{
    return QStringLiteral("%1  %2 %3  %4  %5  %6  %7  %8")
        .arg(cells.station, 7)
        .arg(cells.type, -4)
        .arg(cells.address, 7)
        .arg(cells.modbus, 6)
        .arg(cells.value, 10)
        .arg(cells.hex, 10)
        .arg(cells.age, 8)
        .arg(cells.state);
}

/// What a narrow terminal can do without comes last. The name is not put in by a
/// numbered place, since it may hold a percent sign.
QString namedRow(const Cells& cells, int nameWidth)
{
    const QString before = QStringLiteral("%1  %2 %3  ")
                               .arg(cells.station, 7)
                               .arg(cells.type, -4)
                               .arg(cells.address, 7);
    const QString after = QStringLiteral("  %1  %2  %3  %4  %5")
                              .arg(cells.value, 10)
                              .arg(cells.age, 8)
                              .arg(cells.state, -10)
                              .arg(cells.hex, 10)
                              .arg(cells.modbus, 6);
    return before + cells.name.leftJustified(nameWidth, QLatin1Char(' '), true) + after;
}

/// `nameWidth` 0: without names.
QString row(const Cells& cells, int nameWidth)
{
    return nameWidth == 0 ? plainRow(cells) : namedRow(cells, nameWidth);
}

Cells headings()
{
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    return {text("STATION"), text("TYPE"), text("ADDRESS"), text("MODBUS"), text("VALUE"),
            text("HEX"),     text("AGE"),  text("STATE"),   text("NAME")};
}

/// 0 when no entry has a name.
int nameWidth(int longest)
{
    const int narrowest = static_cast<int>(headings().name.size());
    return longest == 0 ? 0 : qBound(narrowest, longest, WIDEST_NAME);
}

/// Time since the last good read, in seconds.
QString ageText(const WatchEntry& entry, qint64 now)
{
    if (entry.readAt == 0)
        return QString();
    return QStringLiteral("%1 s").arg(
        QString::number(static_cast<double>(now - entry.readAt) / 1000, 'f', 1));
}

Cells cellsOf(const WatchEntry& entry, qint64 now)
{
    return {QString::number(entry.station),
            QString::fromLatin1(entry.type->name),
            QString::number(entry.address, entry.type->radix),
            QString::number(modbusNumber(entry.type, entry.address)),
            entry.isKnown ? QString::number(entry.value) : QString(),
            hexValue(entry),
            ageText(entry, now),
            stateText(entry, now),
            entry.name};
}

} // namespace

QString stateText(const WatchEntry& entry, qint64 now)
{
    switch (entry.state) {
    case WatchState::NeverRead:
        return QStringLiteral("never read");
    case WatchState::NoAnswer:
        return QStringLiteral("no answer");
    case WatchState::Refused:
        return QStringLiteral("refused");
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
           + QStringLiteral("%1").arg(entry.value, digits, 16, QLatin1Char('0')).toUpper();
}

QString cutRow(const QString& line, int width)
{
    QString cut = line.left(qMax(0, width)); // not const, so that it can be moved out
    if (cut.isEmpty() || line.mid(width).trimmed().isEmpty())
        return cut;
    return cut.left(width - 1) + QChar(0x2026);
}

QStringList tableRows(const QVector<WatchEntry>& entries, int longestName, qint64 now, int width,
                      int height)
{
    const int nameColumn = nameWidth(longestName);
    QStringList lines(row(headings(), nameColumn));
    const int total = static_cast<int>(entries.size());
    const int rows = total < height ? total : qMax(0, height - 2);
    for (int i = 0; i < rows; ++i)
        lines << row(cellsOf(entries.at(i), now), nameColumn);
    if (rows < total)
        lines << QStringLiteral("... and %1 more").arg(total - rows);
    while (lines.size() > qMax(0, height))
        lines.removeLast();
    for (QString& line : lines)
        line = cutRow(line, width);
    return lines;
}

} // namespace kx
