#include "kxpanel/grid/edit/watch_delegate.h"

#include "kxpanel/actions/plain_tool_tip.h"
#include "kxpanel/grid/model/watch_model.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLineEdit>

namespace kxpanel
{

namespace
{

const char IS_ENTERED[] = "kxEntered"; // property of an editor: Enter was pressed
const char IS_VALUE[] = "kxValue";     // property of an editor: of the column of values
const char IS_FILLED[] = "kxFilled";   // property of an editor: it had the cell's text

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

/// Accepts what suits the cell, so that the delegate keeps the editor open else.
class CellValidator : public QValidator
{
public:
    CellValidator(const WatchDelegate::Check& check, const QModelIndex& index, QObject* parent)
        : QValidator(parent), m_check(check), m_index(index)
    {
    }

    State validate(QString& text, int&) const override
    {
        return m_check(m_index, text).isEmpty() ? Acceptable : Intermediate;
    }

private:
    WatchDelegate::Check m_check;
    QPersistentModelIndex m_index;
};

CellState stateOf(const QModelIndex& index)
{
    return static_cast<CellState>(index.data(WatchModel::StateRole).toInt());
}

bool isSwitchCell(const QModelIndex& index)
{
    return index.column() == WatchModel::Value && index.data(WatchModel::SwitchRole).toBool();
}

} // namespace

QColor stateColor(CellState state, const QPalette& palette)
{
    const bool dark = isDark(palette);
    switch (state) {
    case CellState::Ok:
    case CellState::Written:
        return dark ? QColor(0x7B, 0xD8, 0x8F) : QColor(0x1B, 0x6E, 0x33);
    case CellState::Changed:
        return dark ? QColor(0x8A, 0xB4, 0xF8) : QColor(0x0B, 0x57, 0xD0);
    case CellState::Waiting:
        return dark ? QColor(0xFF, 0xC9, 0x66) : QColor(0x8A, 0x56, 0x00);
    case CellState::NotWritten:
    case CellState::Refused:
    case CellState::NoAnswer:
        return dark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB3, 0x1D, 0x12);
    case CellState::NeverRead:
    case CellState::Offline:
        break;
    }
    return dark ? QColor(0xA8, 0xAD, 0xB3) : QColor(0x5F, 0x63, 0x68);
}

QRect switchRect(const QStyleOptionViewItem& option)
{
    const int height = option.fontMetrics.ascent() + 2;
    const int width = height * 2;
    const int margin = option.fontMetrics.averageCharWidth();
    return QRect(option.rect.left() + margin, option.rect.center().y() - height / 2, width, height);
}

WatchDelegate::WatchDelegate(const Check& check, QObject* parent)
    : QStyledItemDelegate(parent), m_check(check)
{
}

void WatchDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != WatchModel::Value && index.column() != WatchModel::State)
        return;
    const CellState state = stateOf(index);
    const bool isPlain = state == CellState::Ok || state == CellState::Changed;
    if (index.column() == WatchModel::State || !isPlain)
        option->palette.setColor(QPalette::Text, stateColor(state, option->palette));
    if (index.column() == WatchModel::State)
        return;
    // What the controller may not have now must not pass for a good value.
    option->font.setItalic(!isPlain && state != CellState::Written);
    if (!isPlain && state != CellState::NeverRead)
        option->text = stateSymbol(state) + QLatin1Char(' ') + option->text;
    // Half a number is another number.
    const int room = option->rect.width() - 2 * option->fontMetrics.averageCharWidth();
    const bool isText = index.data(WatchModel::TextRole).toBool();
    if (!isText && option->fontMetrics.horizontalAdvance(option->text) > room)
        option->text = QChar(0x2026);
}

void WatchDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (isSwitchCell(index) && !index.data().toString().isEmpty())
        paintSwitch(painter, option, index);
}

void WatchDelegate::paintSwitch(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    const bool isOn = index.data().toString() == QLatin1String("1");
    const bool isEditable = index.flags() & Qt::ItemIsEditable;
    // Green is for what is known.
    const CellState state = stateOf(index);
    const bool isKnown =
        state == CellState::Ok || state == CellState::Changed || state == CellState::Written;
    const bool isSelected = option.state & QStyle::State_Selected;
    const QColor color = isSelected        ? option.palette.color(QPalette::HighlightedText)
                         : isOn && isKnown ? stateColor(CellState::Ok, option.palette)
                                           : stateColor(CellState::NeverRead, option.palette);
    const QBrush ground = option.palette.brush(isSelected ? QPalette::Highlight : QPalette::Base);
    const QRectF body = QRectF(switchRect(option)).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal size = body.height();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, size / 12));
    painter->setBrush(isOn && isEditable ? QBrush(color) : QBrush(Qt::NoBrush));
    painter->drawRoundedRect(body, size / 2, size / 2);
    const QRectF knob(isOn ? body.right() - size : body.left(), body.top(), size, size);
    painter->setBrush(isOn && isEditable ? ground : QBrush(color));
    const qreal rim = size / 6;
    painter->drawEllipse(knob.adjusted(rim, rim, -rim, -rim));
    painter->restore();
}

QWidget* WatchDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const
{
    auto* const edit = new QLineEdit(parent);
    edit->setFrame(false);
    edit->setValidator(new CellValidator(m_check, index, edit));
    edit->setProperty(IS_VALUE, index.column() == WatchModel::Value);
    edit->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    const QPersistentModelIndex cell(index);
    connect(edit, &QLineEdit::textChanged, this,
            [this, edit, cell]() { onTextEdited(edit, cell); });
    connect(edit, &QObject::destroyed, this, [this]() {
        emit explained(QString());
        emit editingEnded();
    });
    emit editingBegan(index);
    return edit;
}

void WatchDelegate::onTextEdited(QLineEdit* edit, const QModelIndex& index) const
{
    const QString fault = m_check(index, edit->text());
    edit->setProperty(IS_ENTERED, false);
    QPalette palette = edit->parentWidget()->palette();
    if (!fault.isEmpty())
        palette.setColor(QPalette::Text, stateColor(CellState::NotWritten, palette));
    edit->setPalette(palette);
    edit->setToolTip(plainToolTip(fault));
    emit explained(fault);
}

void WatchDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* const edit = qobject_cast<QLineEdit*>(editor);
    // Once: rows are refreshed while somebody types, or is about to.
    if (!edit || edit->property(IS_FILLED).toBool())
        return;
    edit->setProperty(IS_FILLED, true);
    edit->setText(index.data(Qt::EditRole).toString());
}

void WatchDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const
{
    const auto* const edit = qobject_cast<QLineEdit*>(editor);
    if (!edit || (edit->property(IS_VALUE).toBool() && !edit->property(IS_ENTERED).toBool()))
        return;
    model->setData(index, edit->text(), Qt::EditRole);
}

bool WatchDelegate::eventFilter(QObject* editor, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(editor);
    const bool isValue = editor->property(IS_VALUE).toBool();
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        editor->setProperty(IS_ENTERED, isEnter);
    } else if (event->type() == QEvent::FocusOut && isValue && widget) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // A menu of its own, or another program to look something up.
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            emit closeEditor(widget, RevertModelCache);
        return false;
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

bool WatchDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (isSwitchCell(index)
        && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease
            || event->type() == QEvent::MouseButtonDblClick)) {
        const auto* const mouse = static_cast<QMouseEvent*>(event);
        const bool isInside = mouse->button() == Qt::LeftButton
                              && mouse->modifiers() == Qt::NoModifier
                              && switchRect(option).contains(mouse->pos());
        if (event->type() != QEvent::MouseButtonRelease)
            m_pressed = isInside ? QPersistentModelIndex(index) : QPersistentModelIndex();
        else if (isInside && m_pressed == index)
            emit switchAsked(index);
        if (isInside)
            return event->type() != QEvent::MouseButtonPress; // which selects the cell
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

} // namespace kxpanel
