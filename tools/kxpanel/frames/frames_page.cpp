#include "kxpanel/frames/frames_page.h"

#include "kxpanel/actions/page_action.h"
#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/frames/filter_bar.h"
#include "kxpanel/frames/follow_end.h"
#include "kxpanel/frames/frame_details.h"
#include "kxpanel/frames/frame_saver.h"
#include "kxpanel/frames/frames_model.h"
#include "kxpanel/frames/reading_place.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tables/column_widths.h"
#include "kxpanel/tables/fill_column.h"
#include "kxpanel/tables/plain_headings.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

FramesPage::FramesPage(const PageContext& context, QWidget* parent)
    : Page(parent),
      m_model(new FramesModel(FramesModel::MOST, this)),
      m_filters(new FilterBar(this)),
      m_saver(new FrameSaver(this))
{
    setWindowTitle(tr("Frames"));
    makeActions();
    m_details = new QPlainTextEdit(this);
    m_details->setReadOnly(true);
    m_details->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_details->setPlaceholderText(tr("Select an exchange to see its fields and bytes."));
    m_details->setAccessibleName(tr("Fields and bytes of the selected exchange"));
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(makeTable());
    splitter->addWidget(m_details);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    m_counts = new QLabel(this);
    m_counts->setTextFormat(Qt::PlainText);
    auto* box = new QVBoxLayout(this);
    box->addWidget(m_filters);
    box->addWidget(splitter, 1);
    box->addWidget(m_counts);
    connect(m_model, &FramesModel::stationSeen, m_filters, &FilterBar::addStation);
    connect(m_filters, &FilterBar::chosen, this, &FramesPage::onFilterChosen);
    connect(m_model, &FramesModel::countsChanged, this, &FramesPage::showCounts);
    connect(m_model, &FramesModel::modelReset, this, &FramesPage::clearDetails);
    connect(m_saver, &FrameSaver::ended, this, &FramesPage::saySaved);
    if (context.machine)
        connect(context.machine, &Machine::exchanged, m_model, &FramesModel::add);
    showCounts();
}

FramesPage::~FramesPage() = default;

void FramesPage::makeActions()
{
    QAction* find =
        pageAction(this, tr("Find"), QKeySequence::Find, tr("Type what the request must contain"));
    connect(find, &QAction::triggered, m_filters, &FilterBar::beginTyping);
    QAction* pause = pageAction(this, tr("Pause"), QStringLiteral("Ctrl+P"),
                                tr("Keep the rows as they are; what comes waits"));
    pause->setCheckable(true);
    connect(pause, &QAction::toggled, m_model, &FramesModel::setPaused);
    QAction* save = pageAction(this, tr("Save..."), QStringLiteral("Ctrl+E"),
                               tr("Save the exchanges shown as text, JSON lines or a capture"));
    connect(save, &QAction::triggered, this, &FramesPage::askWhereToSave);
    QAction* clear =
        pageAction(this, tr("Clear"), QStringLiteral("Ctrl+L"), tr("Forget all exchanges"));
    connect(clear, &QAction::triggered, m_model, &FramesModel::clear);
    m_filters->addActions({pause, save, clear});
}

QTableView* FramesPage::makeTable()
{
    m_table = new QTableView(this);
    // Before the view hears of it, which would select the next row.
    connect(m_model, &FramesModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) { leaveRows(first, last); });
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setAccessibleName(tr("Exchanges"));
    QHeaderView* rows = m_table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(m_table->fontMetrics().height() * 5 / 4);
    showPlainHeadings(m_table);
    fitColumns(m_table, {timeOfDay(0), QStringLiteral("247"), kindWords(RECIPE_WRITE_JOB),
                         QStringLiteral("write D1000:10"), QStringLiteral("1234 1234 1234 1234"),
                         QStringLiteral("+ reply of another request, repeated"),
                         QStringLiteral("123.4 ms"), QStringLiteral("1234 ms")});
    m_replies =
        new FillColumn(m_table, FramesModel::Reply, m_table->columnWidth(FramesModel::Reply));
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FramesPage::showDetails);
    new FollowEnd(m_table);
    m_place = std::make_unique<ReadingPlace>(m_table, m_model);
    return m_table;
}

void FramesPage::onFilterChosen()
{
    const qint64 selected = m_selected;
    m_place->mark(selected);
    m_model->setFilter(m_filters->filter());
    const int row = m_model->rowOf(selected);
    if (row >= 0)
        m_table->selectRow(row);
    m_place->goBack();
}

void FramesPage::showDetails(const QModelIndex& current)
{
    if (!current.isValid())
        return;
    m_selected = m_model->placeOf(current.row());
    m_details->setPlainText(detailsText(m_model->exchange(current.row())));
}

void FramesPage::leaveRows(int first, int last)
{
    const int current = m_table->currentIndex().row();
    if (current >= first && current <= last)
        m_table->selectionModel()->clear();
}

void FramesPage::clearDetails()
{
    m_selected = -1;
    m_details->clear();
}

void FramesPage::showCounts()
{
    QString text =
        tr("%1 of %n exchanges shown", nullptr, m_model->kept()).arg(m_model->rowCount());
    if (m_model->isPaused())
        text += tr("; paused, %1 more wait").arg(m_model->waiting());
    if (m_model->thrownAway() > 0)
        text += tr("; %1 had no room and were thrown away").arg(m_model->thrownAway());
    m_counts->setText(text);
}

void FramesPage::askWhereToSave()
{
    auto* dialog = new QFileDialog(this, tr("Save frames"), QStringLiteral("frames.txt"),
                                   tr("Text (*.txt);;JSON lines (*.jsonl);;Capture (*.pcap)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        for (const char* const suffix : {"txt", "jsonl", "pcap"}) {
            if (filter.contains(QLatin1String("*.") + QLatin1String(suffix)))
                dialog->setDefaultSuffix(QLatin1String(suffix));
        }
    });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, &FramesPage::save);
    dialog->open();
}

void FramesPage::save(const QString& path)
{
    m_saver->save(path, m_model->shown());
}

void FramesPage::saySaved(const QString& path, int exchanges, const QString& error)
{
    emit said(error.isEmpty() ? tr("%n exchange(s) saved in %1", nullptr, exchanges).arg(path)
                              : error);
}

QByteArray FramesPage::place() const
{
    return m_table->horizontalHeader()->saveState();
}

void FramesPage::setPlace(const QByteArray& place)
{
    m_table->horizontalHeader()->restoreState(place);
    showPlainHeadings(m_table);
    m_replies->fit();
}

} // namespace kxpanel
