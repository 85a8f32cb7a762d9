#ifndef KX_KXPANEL_GRID_EDIT_WATCH_DELEGATE_H
#define KX_KXPANEL_GRID_EDIT_WATCH_DELEGATE_H

#include "kxpanel/grid/model/cell_texts.h"

#include <QtGui/QPalette>
#include <QtWidgets/QStyledItemDelegate>

class QLineEdit;

namespace kxpanel
{

/// Colour of a state on a light or dark background.
QColor stateColor(CellState state, const QPalette& palette);

/// Paints and edits the grid's cells: states by colour and symbol, bits as switches, and typed
/// texts with what is wrong with them. A value is written by Enter alone: leaving its cell in any
/// other way takes what was typed back, since it would move a machine.
class WatchDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Why a text does not suit a cell; empty when it does.
    using Check = std::function<QString(const QModelIndex& index, const QString& text)>;

    /// @param isValue whether the index is of the column of values
    explicit WatchDelegate(const Check& check, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

signals:
    /// A cell is edited from now on until editingEnded().
    void editingBegan(const QModelIndex& index) const;
    void editingEnded() const;
    /// What is wrong with the text that is being typed, one line; empty: nothing, or typing ended.
    void explained(const QString& reason) const;
    /// A person wants the bit of this cell to be the other one.
    void switchAsked(const QModelIndex& index);

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void onTextEdited(QLineEdit* edit, const QModelIndex& index) const;
    void paintSwitch(QPainter* painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const;

    Check m_check;
    QPersistentModelIndex m_pressed; ///< the switch under the mouse button
};

/// Where the switch of a cell stands, for clicks.
QRect switchRect(const QStyleOptionViewItem& option);

} // namespace kxpanel

#endif
