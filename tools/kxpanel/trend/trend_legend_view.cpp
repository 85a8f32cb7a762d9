#include "kxpanel/trend/trend_legend_view.h"

#include "kxpanel/tables/plain_headings.h"
#include "kxpanel/trend/model/trend_colours.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyledItemDelegate>

namespace kxpanel
{

namespace
{

/// Shows the line of a row beside its name: colours come again, in other kinds of lines.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const int text = option->fontMetrics.height();
        const double ratio = option->widget ? option->widget->devicePixelRatioF() : 1;
        const QSize size(text * 2, text);
        QPixmap line(size * ratio);
        line.setDevicePixelRatio(ratio);
        line.fill(Qt::transparent);
        QPainter painter(&line);
        drawTrendSample(index.data(TrendLegend::LookRole).toInt(),
                        option->palette.color(QPalette::Base), QRect(QPoint(), size), &painter);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = size;
        option->icon = QIcon(line);
    }
};

} // namespace

TrendLegendView::TrendLegendView(TrendLegend* legend, QWidget* parent)
    : QTableView(parent), m_legend(legend)
{
    setModel(legend);
    setItemDelegateForColumn(TrendLegend::Name, new LineDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setAccessibleName(tr("Values in the plot"));
    const int character = fontMetrics().averageCharWidth();
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 5 / 4);
    for (int column = 0; column < TrendLegend::ColumnCount; ++column)
        setColumnWidth(column, character * 18); // "(recorder stopped)"
    setColumnWidth(TrendLegend::Unit, character * 9);
    setColumnWidth(TrendLegend::Axis, character * 9);
    showPlainHeadings(this);
    horizontalHeader()->setMinimumSectionSize(character * 8);
    horizontalHeader()->setSectionResizeMode(TrendLegend::Name, QHeaderView::Stretch);
}

QSize TrendLegendView::sizeHint() const
{
    const int rows = 5;
    const int height = horizontalHeader()->sizeHint().height()
                       + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth()
                       + horizontalScrollBar()->sizeHint().height(); // in a narrow window
    return QSize(QTableView::sizeHint().width(), height);
}

QList<int> TrendLegendView::selected() const
{
    QList<int> numbers;
    for (const QModelIndex& row : selectionModel()->selectedRows())
        numbers << m_legend->numberAt(row.row());
    return numbers;
}

void TrendLegendView::contextMenuEvent(QContextMenuEvent* event)
{
    const QList<int> numbers = selected();
    if (numbers.isEmpty())
        return;
    QMenu* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto offer = [&](const QString& text, TrendAxis axis) {
        connect(menu->addAction(text), &QAction::triggered, this,
                [this, numbers, axis] { emit axisChosen(numbers, axis); });
    };
    offer(tr("Left &scale"), TrendAxis::Left);
    offer(tr("&Right scale"), TrendAxis::Right);
    offer(tr("&Lane of its own"), TrendAxis::Lane);
    offer(tr("By its &unit"), TrendAxis::Automatic);
    menu->addSeparator();
    menu->addActions(actions());
    menu->popup(event->globalPos());
}

} // namespace kxpanel
