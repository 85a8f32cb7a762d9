#include "kxpanel/grid/model/watch_model.h"

#include "kxpanel/actions/plain_tool_tip.h"
#include "kxpanel/grid/model/watch_columns.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/tags/tag_text.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"

#include <QtCore/QDateTime>

namespace kxpanel
{

namespace
{

bool isEditable(int column)
{
    return column == WatchModel::Name || column == WatchModel::Address
           || column == WatchModel::Value || column == WatchModel::Every
           || column == WatchModel::Format || column == WatchModel::Comment;
}

} // namespace

WatchModel::WatchModel(TagList* tags, ValueWriter* writer, QUndoStack* undo, QObject* parent)
    : QAbstractTableModel(parent),
      m_tags(tags),
      m_writer(writer),
      m_undo(undo),
      m_now(&QDateTime::currentMSecsSinceEpoch)
{
    connect(tags, &TagList::valuesChanged, this, &WatchModel::onValuesChanged);
    connect(writer, &ValueWriter::changed, this, &WatchModel::onWriteChanged);
    onValuesChanged();
}

int WatchModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_numbers.size());
}

int WatchModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

const WatchedValue* WatchModel::valueAt(int row) const
{
    return m_tags->find(numberAt(row));
}

int WatchModel::rowOf(int number) const
{
    const int row = m_tags->rowOf(number); // where views know of all changes
    return numberAt(row) == number ? row : static_cast<int>(m_numbers.indexOf(number));
}

CellState WatchModel::stateAt(int row) const
{
    const WatchedValue* const value = valueAt(row);
    return value ? stateOf(*value) : CellState::NeverRead;
}

CellState WatchModel::stateOf(const WatchedValue& value) const
{
    return cellStateOf(value, m_tags->reading(value.number), m_writer->writeOf(value.number),
                       m_now(), m_isOnline);
}

QVariant WatchModel::data(const QModelIndex& index, int role) const
{
    const WatchedValue* const value = index.isValid() ? valueAt(index.row()) : nullptr;
    if (!value)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return textOf(*value, index.column());
    case Qt::EditRole:
        return editTextOf(*value, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(toolTipOf(*value, index.column()));
    case Qt::TextAlignmentRole:
        return static_cast<int>(
            Qt::AlignVCenter
            | (columnText(index.column()).isNumber ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1: %2").arg(headerData(index.column(), Qt::Horizontal).toString(),
                                            textOf(*value, index.column()));
    case StateRole:
        return static_cast<int>(stateAt(index.row()));
    case SwitchRole:
        return isSwitch(value->tag);
    case TextRole:
        return value->tag.format.kind == kx::ValueKind::Ascii;
    case NumberRole:
        return value->number;
    default:
        return QVariant();
    }
}

QString WatchModel::textOf(const WatchedValue& value, int column) const
{
    const kx::Tag& tag = value.tag;
    const Reading& reading = m_tags->reading(value.number);
    const ValueWrite* const write = m_writer->writeOf(value.number);
    switch (column) {
    case Name:
        return tag.name;
    case Station:
        return QString::number(tag.range.station);
    case Address:
        return kx::valueName(tag.range, tag.format, 0);
    case Value:
        return valueCellText(value, reading, write);
    case Unit:
        return tag.format.unit;
    case State: {
        const CellState state = stateOf(value);
        return stateSymbol(state) + QLatin1Char(' ') + stateText(state, write);
    }
    case Age:
        return ageText(reading, m_now());
    case Every:
        return intervalText(tag.interval);
    case Format:
        return formatCellText(tag.format);
    case Raw:
        return rawText(value, reading);
    case Modbus:
        return modbusCellText(tag.range);
    default:
        return tag.comment;
    }
}

QVariant WatchModel::editTextOf(const WatchedValue& value, int column) const
{
    if (column == Address)
        return typedText(value.tag);
    if (column == Format)
        return kx::formatText(value.tag.format);
    return textOf(value, column);
}

QString WatchModel::toolTipOf(const WatchedValue& value, int column) const
{
    if (column != Value)
        return textOf(value, column);
    QString text = textOf(value, Value);
    const QString unit = value.tag.format.unit;
    if (!text.isEmpty() && !unit.isEmpty())
        text += QLatin1Char(' ') + unit;
    const CellState state = stateAt(rowOf(value.number));
    const bool holds = state == CellState::Ok || state == CellState::Changed;
    QStringList lines = {text, holds ? QString() : textOf(value, State),
                         ValueWriter::readOnlyReason(value.tag)};
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

QVariant WatchModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (section < 0 || section >= ColumnCount)
        return QVariant();
    const ColumnText& column = columnText(section);
    if (role == Qt::DisplayRole)
        return tr(column.heading);
    if (role == Qt::ToolTipRole)
        return tr(column.toolTip);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter
                                | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    return QVariant();
}

Qt::ItemFlags WatchModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDropEnabled;
    if (!index.isValid())
        return flags;
    flags = (flags | Qt::ItemIsDragEnabled) & ~Qt::ItemIsDropEnabled; // rows go between rows
    const WatchedValue* const value = valueAt(index.row());
    const bool isWritable =
        value && (index.column() != Value || ValueWriter::readOnlyReason(value->tag).isEmpty());
    return isWritable && isEditable(index.column()) ? flags | Qt::ItemIsEditable : flags;
}

QVariant WatchModel::sortKey(int row, int column) const
{
    const WatchedValue* const value = valueAt(row);
    if (!value)
        return QVariant();
    const kx::AddressRange& range = value->tag.range;
    const Reading& reading = m_tags->reading(value->number);
    double number = 0;
    switch (column) {
    case Station:
        return static_cast<double>(range.station);
    case Address: // by type first, in the order of the catalogue
        return registerTypeRow(range.type) * 1e6 + range.address * 16 + value->tag.format.bit;
    case Value:
        if (kx::valueNumber(value->tag.format, reading.raw, &number))
            return number;
        return reading.raw.isEmpty() ? QVariant() : QVariant(textOf(*value, Value));
    case State:
        return static_cast<double>(stateAt(row));
    case Age:
        return reading.readAt == 0 ? QVariant() : QVariant(-static_cast<double>(reading.readAt));
    case Every:
        return value->tag.interval < 0 ? QVariant()
                                       : QVariant(static_cast<double>(value->tag.interval));
    case Modbus:
        return static_cast<double>(modbusNumber(range.type, range.address));
    default:
        return textOf(*value, column);
    }
}

void WatchModel::refresh(int firstRow, int lastRow)
{
    const int last = qMin(lastRow, rowCount() - 1);
    if (firstRow >= 0 && firstRow <= last)
        emit dataChanged(index(firstRow, 0), index(last, ColumnCount - 1));
}

void WatchModel::setOnline(bool isOnline)
{
    if (m_isOnline == isOnline)
        return;
    m_isOnline = isOnline;
    refresh(0, rowCount() - 1);
}

void WatchModel::onWriteChanged(int number)
{
    const int row = rowOf(number);
    refresh(row, row);
}

} // namespace kxpanel
