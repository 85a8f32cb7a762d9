#include "kxpanel/grid/model/cell_texts.h"

#include "addresses/modbus_span.h"
#include "kxhost/views/entry_text.h"
#include "panel/values/format_text.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

const qint64 SHOWN_AS_CHANGED = 1000;      // milliseconds
const qint64 SHOWN_AS_WRITTEN = 3000;      // milliseconds
const qint64 SHOWN_AS_NOT_WRITTEN = 10000; // milliseconds
const qint64 SECOND = 1000;                // milliseconds
const qint64 MINUTE = 60 * SECOND;
const qint64 HOUR = 60 * MINUTE;

const char16_t ELLIPSIS = 0x2026;
const char16_t AT_LEAST = 0x2265;
const char16_t AT_MOST = 0x2264;

struct StateWords {
    char16_t symbol;
    const char* text;
};

// In the order of CellState.
const StateWords STATES[] = {
    {0x25CF, QT_TRANSLATE_NOOP("kxpanel::Cell", "ok")},
    {0x25B2, QT_TRANSLATE_NOOP("kxpanel::Cell", "changed")},
    {0x25CB, QT_TRANSLATE_NOOP("kxpanel::Cell", "never read")},
    {0x25CC, QT_TRANSLATE_NOOP("kxpanel::Cell", "no line")},
    {0x270E, QT_TRANSLATE_NOOP("kxpanel::Cell", "writing\342\200\246")},
    {0x2713, QT_TRANSLATE_NOOP("kxpanel::Cell", "written")},
    {0x2717, QT_TRANSLATE_NOOP("kxpanel::Cell", "not written")},
    {0x2298, QT_TRANSLATE_NOOP("kxpanel::Cell", "refused")},
    {0x26A0, QT_TRANSLATE_NOOP("kxpanel::Cell", "no answer")},
};

QString translated(const char* text)
{
    return QCoreApplication::translate("kxpanel::Cell", text);
}

/// Of one that was not read.
CellState stateOf(kx::WatchState state)
{
    switch (state) {
    case kx::WatchState::NoAnswer:
        return CellState::NoAnswer;
    case kx::WatchState::Refused:
        return CellState::Refused;
    default:
        return CellState::NeverRead;
    }
}

kx::WatchEntry entryOf(const WatchedValue& value, const Reading& reading)
{
    kx::WatchEntry entry;
    entry.station = value.tag.range.station;
    entry.type = value.tag.range.type;
    entry.address = value.tag.range.address;
    entry.width = value.tag.range.values;
    entry.isKnown = !reading.raw.isEmpty();
    entry.value = reading.raw.value(0);
    entry.others = reading.raw.mid(1);
    return entry;
}

/// "0…90", "≥ 0".
QString limitsText(const kx::ValueFormat& format)
{
    if (format.lowest && format.highest)
        return format.lowest->text() + QChar(ELLIPSIS) + format.highest->text();
    if (format.lowest)
        return QStringLiteral("%1 %2").arg(QChar(AT_LEAST)).arg(format.lowest->text());
    return format.highest ? QStringLiteral("%1 %2").arg(QChar(AT_MOST)).arg(format.highest->text())
                          : QString();
}

bool isUnderWay(const ValueWrite* write)
{
    return write && (write->phase == ValueWrite::Waiting || write->phase == ValueWrite::Writing);
}

/// Of one that has ended: until the value was read again.
bool isNews(const ValueWrite* write, const Reading& reading)
{
    return write && write->phase == ValueWrite::Confirmed && reading.readAt < write->endedAt;
}

} // namespace

CellState cellStateOf(const WatchedValue& value, const Reading& reading, const ValueWrite* write,
                      qint64 now, bool isOnline)
{
    if (isUnderWay(write))
        return CellState::Waiting;
    const bool isOk = reading.state == kx::WatchState::Ok;
    if (write && write->phase == ValueWrite::Failed && now - write->endedAt < SHOWN_AS_NOT_WRITTEN)
        return CellState::NotWritten;
    const bool isNew = write && isOk && now - write->endedAt < SHOWN_AS_WRITTEN;
    if (isNew && valueCellText(value, reading, write) == write->text) // else changed since
        return CellState::Written;
    if (!isOk)
        return stateOf(reading.state);
    if (!isOnline)
        return CellState::Offline;
    const bool isRecent = reading.changedAt > 0 && now - reading.changedAt < SHOWN_AS_CHANGED;
    return isRecent ? CellState::Changed : CellState::Ok;
}

QString stateSymbol(CellState state)
{
    return QString(QChar(STATES[static_cast<int>(state)].symbol));
}

QString stateText(CellState state, const ValueWrite* write)
{
    QString text = translated(STATES[static_cast<int>(state)].text);
    if (state != CellState::NotWritten || !write)
        return text;
    if (write->mayBeDone)
        text = translated(QT_TRANSLATE_NOOP("kxpanel::Cell", "not confirmed"));
    return text + QLatin1String(": ") + write->reason;
}

QString valueCellText(const WatchedValue& value, const Reading& reading, const ValueWrite* write)
{
    const bool isWritten = isUnderWay(write) || isNews(write, reading);
    return isWritten ? write->text : kx::valueText(value.tag.format, reading.raw);
}

QString rawText(const WatchedValue& value, const Reading& reading)
{
    return kx::hexValue(entryOf(value, reading));
}

QString modbusCellText(const kx::AddressRange& range)
{
    const QString text = kx::modbusText(range.type, kx::modbusSpans(range));
    return QString(text).remove(QStringLiteral("holding ")); // words are nothing else here
}

QString formatCellText(const kx::ValueFormat& format)
{
    kx::ValueFormat kind = format;
    kind.unit.clear();
    kind.decimals = -1;
    kind.lowest.reset();
    kind.highest.reset();
    QStringList parts = kx::formatText(kind).split(QLatin1Char(','));
    if (format.decimals >= 0)
        parts << QString::number(0.0, 'f', format.decimals);
    parts << limitsText(format);
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString intervalText(int milliseconds)
{
    if (milliseconds < 0)
        return QString();
    if (milliseconds > 0 && milliseconds % MINUTE == 0)
        return QStringLiteral("%1 min").arg(milliseconds / MINUTE);
    if (milliseconds > 0 && milliseconds % SECOND == 0)
        return QStringLiteral("%1 s").arg(milliseconds / SECOND);
    return QStringLiteral("%1 ms").arg(milliseconds);
}

QString ageText(const Reading& reading, qint64 now)
{
    if (reading.readAt == 0)
        return QString();
    const qint64 age = qMax<qint64>(0, now - reading.readAt);
    if (age >= HOUR)
        return translated(QT_TRANSLATE_NOOP("kxpanel::Cell", "%1 h")).arg(age / HOUR);
    if (age >= MINUTE)
        return translated(QT_TRANSLATE_NOOP("kxpanel::Cell", "%1 min")).arg(age / MINUTE);
    return translated(QT_TRANSLATE_NOOP("kxpanel::Cell", "%1 s"))
        .arg(QString::number(static_cast<double>(age) / SECOND, 'f', 1));
}

bool isKnownNow(const Reading& reading, const ValueWrite* write)
{
    if (reading.state != kx::WatchState::Ok || reading.raw.isEmpty() || isUnderWay(write))
        return false;
    return !write || write->phase == ValueWrite::Confirmed || reading.readAt >= write->endedAt;
}

bool isSwitch(const kx::Tag& tag)
{
    return tag.format.bit >= 0 || tag.range.type->registerClass == BIT_CLASS;
}

} // namespace kxpanel
