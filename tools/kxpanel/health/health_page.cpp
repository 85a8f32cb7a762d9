#include "kxpanel/health/health_page.h"

#include "kxpanel/actions/page_action.h"
#include "kxpanel/health/health_model.h"
#include "kxpanel/health/health_words.h"
#include "kxpanel/health/histogram_view.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tables/column_widths.h"
#include "kxpanel/tables/plain_headings.h"

#include <QtCore/QTime>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTableView>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int REFRESH = 250; // milliseconds: as fast as an eye compares bars

} // namespace

HealthPage::HealthPage(const PageContext& context, QWidget* parent)
    : Page(parent),
      m_model(new HealthModel(this)),
      m_histogram(new HistogramView(this)),
      m_class(new QLabel(this)),
      m_faults(new QLabel(this)),
      m_since(new QLabel(this))
{
    setWindowTitle(tr("Health"));
    auto* bar = new QToolBar(this);
    QAction* resetCounts =
        pageAction(this, tr("Reset"), QStringLiteral("Ctrl+R"), tr("Begin all counts anew"));
    connect(resetCounts, &QAction::triggered, this, &HealthPage::reset);
    bar->addAction(resetCounts);
    bar->addWidget(m_since);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(makeTable());
    splitter->addWidget(m_histogram);
    for (QLabel* label : {m_class, m_faults, m_since})
        label->setTextFormat(Qt::PlainText);
    m_faults->setWordWrap(true);
    m_faults->setToolTip(tr("What came without being asked for, or too late. None of it reached "
                            "the driver."));
    auto* box = new QVBoxLayout(this);
    box->addWidget(bar);
    box->addWidget(splitter, 1);
    box->addWidget(m_class);
    box->addWidget(m_faults);
    connect(m_histogram, &HistogramView::classSelected, m_class, &QLabel::setText);
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &HealthPage::showTimes);
    if (context.machine) {
        connect(context.machine, &Machine::exchanged, this, &HealthPage::onExchanged);
        connect(context.machine, &Machine::counted, this, &HealthPage::onCounted);
        connect(context.machine, &Machine::lineChanged, this, &HealthPage::onLineChanged);
    }
    reset();
}

QWidget* HealthPage::makeTable()
{
    m_table = new QTableView(this);
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->setAccessibleName(tr("Stations"));
    QStringList samples;
    for (int column = 0; column < HealthModel::COLUMNS; ++column)
        samples << (column == HealthModel::Median || column == HealthModel::MostOf100
                            || column == HealthModel::Longest
                        ? QStringLiteral("123.4 ms")
                        : QStringLiteral("12345"));
    samples[HealthModel::State] = stateWords(StationHealth());
    showPlainHeadings(m_table);
    fitColumns(m_table, samples);
    connect(m_model, &HealthModel::rowsInserted, this, &HealthPage::selectFirst);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &HealthPage::showTimes);
    return m_table;
}

void HealthPage::onExchanged(const QVector<Exchange>& exchanges)
{
    m_model->add(exchanges);
    if (isVisible() && !m_refresh.isActive())
        m_refresh.start(REFRESH);
}

void HealthPage::onCounted(const kx::WatchSummary& summary)
{
    m_count.take(summary);
    showFaults();
}

void HealthPage::onLineChanged(const LineStatus& status)
{
    if (status.state == LineState::Closed || status.state == LineState::Opening)
        m_count.endRun();
}

void HealthPage::reset()
{
    m_model->clear();
    m_count.reset();
    m_since->setText(
        tr("Counts since %1").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))));
    showTimes();
    showFaults();
}

void HealthPage::selectFirst()
{
    if (!m_table->currentIndex().isValid())
        m_table->selectRow(0);
}

void HealthPage::showTimes()
{
    const QModelIndex current = m_table->currentIndex();
    if (current.isValid())
        m_histogram->setTimes(
            m_model->health(current.row()).replies,
            tr("Reply times of station %1").arg(m_model->stationOfRow(current.row())));
    else
        m_histogram->setTimes(ReplyTimes(), tr("Reply times"));
}

void HealthPage::showFaults()
{
    const QString words = faultWords(m_count.faults());
    m_faults->setText(tr("Line: %1").arg(words.isEmpty() ? tr("nothing was thrown away") : words));
}

void HealthPage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    showTimes();
}

} // namespace kxpanel
