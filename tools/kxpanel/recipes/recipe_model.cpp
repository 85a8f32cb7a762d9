#include "kxpanel/recipes/recipe_model.h"

#include "addresses/address_text.h"
#include "kxpanel/actions/plain_tool_tip.h"
#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/tables/plain_headings.h"
#include "panel/recipe/recipe_row.h"
#include "panel/values/value_address.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace kxpanel
{

namespace
{

QString valueWords(const kx::RecipeRow& row, const QList<qint64>& value)
{
    const QString text = kx::recipeText(row, value);
    return row.format.unit.isEmpty() ? text : text + QLatin1Char(' ') + row.format.unit;
}

QString stateWords(RecipeState state)
{
    switch (state) {
    case RecipeState::Differs:
        return QStringLiteral("\u2260 ") + RecipeModel::tr("differs");
    case RecipeState::NoValue:
        return QStringLiteral("\u25CB ") + RecipeModel::tr("not in the file");
    case RecipeState::NotRead:
        return QStringLiteral("? ") + RecipeModel::tr("not read");
    case RecipeState::Same:
        break;
    }
    return QStringLiteral("= ") + RecipeModel::tr("same");
}

bool isStationOrValue(int column)
{
    return column == RecipeModel::Station || column == RecipeModel::InFile
           || column == RecipeModel::InController;
}

} // namespace

int RecipeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RecipeModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMNS;
}

QVariant RecipeModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), column);
    case Qt::ToolTipRole:
        return plainToolTip(tip(index.row(), column));
    case Qt::TextAlignmentRole:
        return columnAlignment(isStationOrValue(column));
    case Qt::ForegroundRole:
        if (state(index.row()) == RecipeState::Differs
            && (column == State || column == InController))
            return verdictColour(ExchangeVerdict::Repeated, QGuiApplication::palette());
        break;
    default:
        break;
    }
    return QVariant();
}

QString RecipeModel::text(int row, int column) const
{
    const kx::RecipeRow& shown = m_rows.at(row);
    switch (column) {
    case State:
        return stateWords(state(row));
    case Name:
        return shown.name;
    case Station:
        return QString::number(shown.range.station);
    case Address:
        return kx::addressText(shown.range.type, shown.range.address);
    case InFile:
        return shown.hasValue ? valueWords(shown, shown.value) : QString();
    case InController:
        return isRead() ? valueWords(shown, m_values.at(row)) : QString();
    default:
        return QString();
    }
}

QString RecipeModel::tip(int row, int column) const
{
    const kx::RecipeRow& shown = m_rows.at(row);
    switch (column) {
    case Name:
        return shown.place();
    case Address:
        return tr("%n address(es) from %1 on", nullptr, shown.range.values).arg(text(row, Address));
    default:
        return text(row, column);
    }
}

QVariant RecipeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return columnAlignment(isStationOrValue(section));
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return QAbstractTableModel::headerData(section, orientation, role);
    const bool isTip = role == Qt::ToolTipRole;
    switch (section) {
    case State:
        return isTip ? tr("Whether file and controller have the same value") : tr("State");
    case Name:
        return isTip ? tr("Name in the file") : tr("Name");
    case Station:
        return isTip ? tr("Number of the station that has the value") : tr("Station");
    case Address:
        return isTip ? tr("First address of the value; X and Y in octal") : tr("Address");
    case InFile:
        return isTip ? tr("Value in the file, with its unit") : tr("In the file");
    case InController:
        return isTip ? tr("Value that was read from the controller, with its unit")
                     : tr("In the controller");
    default:
        return QVariant();
    }
}

void RecipeModel::setRows(const QList<kx::RecipeRow>& rows)
{
    beginResetModel();
    m_rows = rows;
    m_values.clear();
    endResetModel();
}

void RecipeModel::setValues(const QList<QList<qint64>>& values)
{
    Q_ASSERT(values.isEmpty() || values.size() == m_rows.size());
    m_values = values;
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, COLUMNS - 1));
}

void RecipeModel::takeValues()
{
    for (int row = 0; row < m_values.size(); ++row) {
        m_rows[row].value = m_values.at(row);
        m_rows[row].hasValue = true;
    }
    setValues(m_values);
}

RecipeState RecipeModel::state(int row) const
{
    const kx::RecipeRow& shown = m_rows.at(row);
    if (!shown.hasValue)
        return RecipeState::NoValue;
    if (!isRead())
        return RecipeState::NotRead;
    return shown.value == m_values.at(row) ? RecipeState::Same : RecipeState::Differs;
}

int RecipeModel::count(RecipeState wanted) const
{
    int found = 0;
    for (int row = 0; row < rowCount(); ++row)
        found += state(row) == wanted ? 1 : 0;
    return found;
}

} // namespace kxpanel
