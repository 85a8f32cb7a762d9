#include "kxpanel/grid/watch_table.h"

#include "kxpanel/grid/drag_picture.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/machine/session_times.h"

#include <QAction> // in another module since Qt 6
#include <QtGui/QDrag>
#include <QtGui/QDropEvent>
#include <QtWidgets/QHeaderView>

namespace kxpanel
{

namespace
{

const qint64 AIM_TIME = 500; // milliseconds from the look at a switch to its release

} // namespace

WatchTable::WatchTable(WatchModel* model, WatchFilter* filter, QWidget* parent)
    : QTableView(parent),
      m_model(model),
      m_filter(filter),
      m_now([] { return systemTimes().steady; })
{
    setModel(filter);
    setAccessibleName(tr("Watched values"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setShowGrid(false);
    setTabKeyNavigation(false); // Tab leaves the table
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(DragDrop);
    setDragDropOverwriteMode(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    QHeaderView* const header = horizontalHeader();
    header->setSectionsMovable(true);
    header->setStretchLastSection(true);
    header->setHighlightSections(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    setUsualColumns();
    makeColumnActions();
    connect(filter, &WatchFilter::rowsAboutToChange, this, &WatchTable::keepSelection);
    connect(filter, &WatchFilter::rowsChanged, this, &WatchTable::restoreSelection);
    connect(filter, &WatchFilter::rowsAboutToChange, this, &WatchTable::keepPlaces);
    connect(filter, &WatchFilter::rowsChanged, this, &WatchTable::noteRows);
    connect(header, &QHeaderView::sectionResized, this, &WatchTable::layoutChanged);
    connect(header, &QHeaderView::sectionMoved, this, &WatchTable::layoutChanged);
    connect(header, &QHeaderView::sortIndicatorChanged, this, &WatchTable::layoutChanged);
}

void WatchTable::makeColumnActions()
{
    for (int column = 0; column < WatchModel::ColumnCount; ++column) {
        auto* const action =
            new QAction(m_model->headerData(column, Qt::Horizontal).toString(), this);
        action->setCheckable(true);
        action->setChecked(true);
        connect(action, &QAction::toggled, this,
                [this, column](bool isShown) { setColumnHidden(column, !isShown); });
        m_columnActions << action;
    }
    horizontalHeader()->addActions(m_columnActions);
    horizontalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void WatchTable::resizeEvent(QResizeEvent* event)
{
    const int offset = verticalOffset();
    QTableView::resizeEvent(event);
    if (isVisible() && verticalOffset() != offset)
        m_movedAt = m_now();
    noteTop();
}

/// Where the page is no smaller for what came above it, nothing tells the table that it moved.
void WatchTable::noteTop()
{
    const int top = viewport()->mapTo(window(), QPoint()).y();
    if (isVisible() && top != m_top)
        m_movedAt = m_now();
    m_top = top;
}

/// Pixels from the top by the numbers of the rows that are seen.
QHash<int, int> WatchTable::placesSeen() const
{
    QHash<int, int> places;
    const int first = rowAt(0);
    for (int row = qMax(first, 0); first >= 0 && row < m_filter->rowCount(); ++row) {
        const int place = rowViewportPosition(row);
        if (place >= viewport()->height())
            break;
        places.insert(m_filter->index(row, 0).data(WatchModel::NumberRole).toInt(), place);
    }
    return places;
}

void WatchTable::keepPlaces()
{
    m_places = placesSeen();
}

/// Where rows come and go all the time, those that stay in their place can be switched.
void WatchTable::noteRows()
{
    executeDelayedItemsLayout();
    const qint64 now = m_now();
    QHash<int, qint64> moved;
    const QHash<int, int> places = placesSeen();
    for (auto place = places.cbegin(); place != places.cend(); ++place) {
        const qint64 before = m_rowMovedAt.value(place.key(), -1);
        const auto kept = m_places.constFind(place.key());
        if (kept == m_places.cend() || *kept != place.value())
            moved.insert(place.key(), now);
        else if (before >= 0 && now - before < AIM_TIME)
            moved.insert(place.key(), before);
    }
    m_rowMovedAt = moved;
}

bool WatchTable::hasJustMoved(const QModelIndex& cell)
{
    noteTop();
    const int number = cell.data(WatchModel::NumberRole).toInt();
    const qint64 movedAt = qMax(m_movedAt, m_rowMovedAt.value(number, -1));
    return movedAt >= 0 && m_now() - movedAt < AIM_TIME;
}

/// Takes names along: a picture of whole rows hides where it goes. Nothing is taken away here; a
/// move between rows is the model's.
void WatchTable::startDrag(Qt::DropActions actions)
{
    QModelIndexList cells;
    QStringList names;
    for (const int row : selectedRows()) {
        cells << m_filter->index(row, WatchModel::Name);
        names << cells.last().data().toString();
        if (names.last().isEmpty())
            names.last() = m_filter->index(row, WatchModel::Address).data().toString();
    }
    if (cells.isEmpty())
        return;
    auto* const drag = new QDrag(this);
    drag->setMimeData(m_filter->mimeData(cells));
    drag->setPixmap(dragPicture(names, this));
    drag->exec(actions, Qt::CopyAction);
}

void WatchTable::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == this)
        QTableView::dragEnterEvent(event);
    else
        event->ignore();
}

void WatchTable::dragMoveEvent(QDragMoveEvent* event)
{
    if (event->source() == this)
        QTableView::dragMoveEvent(event);
    else
        event->ignore();
}

void WatchTable::dropEvent(QDropEvent* event)
{
    if (event->source() == this)
        QTableView::dropEvent(event);
    else
        event->ignore();
}

int WatchTable::currentModelRow() const
{
    const QModelIndex index = m_filter->mapToSource(currentIndex());
    return index.isValid() ? index.row() : m_model->rowCount();
}

/// In the order of the columns. @param row -1: of the headings
QList<Cell> WatchTable::cellsOfRow(int row) const
{
    QList<Cell> cells;
    for (int place = 0; place < WatchModel::ColumnCount; ++place) {
        const int column = horizontalHeader()->logicalIndex(place);
        if (isColumnHidden(column))
            continue;
        const QModelIndex index = m_filter->index(row, column);
        const bool isNumber =
            column == WatchModel::Station
            || (column == WatchModel::Value && !index.data(WatchModel::TextRole).toBool());
        const QString text = row < 0 ? m_model->headerData(column, Qt::Horizontal).toString()
                                     : index.data().toString();
        cells << Cell{text, isNumber};
    }
    return cells;
}

QMimeData* WatchTable::selectedData() const
{
    QList<QList<Cell>> rows = {cellsOfRow(-1)};
    for (const int row : selectedRows())
        rows << cellsOfRow(row);
    return cellsData(rows);
}

void WatchTable::refreshVisible()
{
    noteTop();
    const int first = rowAt(0);
    if (first < 0)
        return;
    const int lastSeen = rowAt(viewport()->height() - 1);
    const int last = lastSeen < 0 ? m_filter->rowCount() - 1 : lastSeen;
    int begin = -1; // of rows that stand together in the model, too
    int end = -1;
    for (int row = first; row <= last; ++row) {
        const int source = m_filter->mapToSource(m_filter->index(row, 0)).row();
        if (begin >= 0 && source == end + 1) {
            end = source;
            continue;
        }
        m_model->refresh(begin, end);
        begin = end = source;
    }
    m_model->refresh(begin, end);
}

} // namespace kxpanel
