#ifndef KX_KXPANEL_GRID_MODEL_WATCH_MODEL_H
#define KX_KXPANEL_GRID_MODEL_WATCH_MODEL_H

#include "kxpanel/grid/model/cell_texts.h"
#include "kxpanel/tags/tag_commands.h"

#include <QtCore/QAbstractTableModel>

class QUndoStack;

namespace kxpanel
{

class TagList;

/// The values of a list as rows, in its order.
///
/// New readings are not told of, since thousands come each second: whoever shows rows calls
/// refresh() for them, as often as it paints.
class WatchModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Name,
        Station,
        Address,
        Value,
        Unit,
        State,
        Age,
        Every,
        Format,
        Raw,
        Modbus,
        Comment,
        ColumnCount
    };

    enum Role {
        StateRole = Qt::UserRole, ///< a CellState
        SwitchRole,               ///< whether the value is shown as a switch
        TextRole,                 ///< whether the value is a text, of which a part is no other one
        NumberRole                ///< WatchedValue::number
    };

    /// All three outlive the model.
    WatchModel(TagList* tags, ValueWriter* writer, QUndoStack* undo, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Edits as a person does: what is wrong is told by refused() and changes nothing. A value is
    /// written.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override
    {
        return Qt::CopyAction | Qt::MoveAction;
    }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

    int numberAt(int row) const { return m_numbers.value(row); }
    int rowOf(int number) const;
    /// Null when the row's value has just gone.
    const WatchedValue* valueAt(int row) const;
    CellState stateAt(int row) const;
    /// By which a column is sorted: numbers as double, texts as QString; invalid goes last.
    QVariant sortKey(int row, int column) const;
    /// Why that text does not suit the cell; empty when it does. Sends and changes nothing.
    QString faultOf(const QModelIndex& index, const QString& text) const;

    /// What was read of these rows may be other, and their ages are.
    void refresh(int firstRow, int lastRow);

    /// Whether a line is open; without one nothing that was read counts as known.
    bool isOnline() const { return m_isOnline; }
    void setOnline(bool isOnline);

    /// That of readings; else the system's.
    void setClock(const std::function<qint64()>& milliseconds) { m_now = milliseconds; }

signals:
    /// One line: why an edit was not done.
    void refused(const QString& reason);

private:
    struct Edit;

    CellState stateOf(const WatchedValue& value) const;
    QString textOf(const WatchedValue& value, int column) const;
    QVariant editTextOf(const WatchedValue& value, int column) const;
    bool parseEdit(const WatchedValue& value, int column, const QString& text, Edit* edit,
                   QString* fault) const;
    QString toolTipOf(const WatchedValue& value, int column) const;
    void onValuesChanged();
    void removeGone();
    int runsGone() const;
    void reorder();
    void insertNew();
    int runsNew() const;
    void onWriteChanged(int number);

    TagList* m_tags;
    ValueWriter* m_writer;
    QUndoStack* m_undo;
    QVector<int> m_numbers; ///< of the rows that views know
    std::function<qint64()> m_now;
    bool m_isOnline = true; ///< until somebody says otherwise
};

} // namespace kxpanel

#endif
