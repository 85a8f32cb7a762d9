#include "kxpanel/frames/frames_page.h"

#include "kxpanel/actions/page_action.h"
#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/frames/follow_end.h"
#include "kxpanel/frames/frame_details.h"
#include "kxpanel/frames/frames_model.h"
#include "kxpanel/frames/saved_frames.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tables/column_widths.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTableView>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int ALL = -1;

/// Which verdicts each choice of the outcome stands for.
QVector<ExchangeVerdict> verdictsOf(int choice)
{
    switch (choice) {
    case 1:
        return {ExchangeVerdict::Accepted};
    case 2:
        return {ExchangeVerdict::Repeated, ExchangeVerdict::Failed};
    case 3:
        return {ExchangeVerdict::Repeated};
    case 4:
        return {ExchangeVerdict::Failed};
    default:
        return {};
    }
}

void name(QWidget* widget, const QString& accessibleName, const QString& tip)
{
    widget->setAccessibleName(accessibleName);
    widget->setToolTip(tip);
}

} // namespace

FramesPage::FramesPage(const PageContext& context, QWidget* parent)
    : Page(parent), m_model(new FramesModel(FramesModel::MOST, this))
{
    setWindowTitle(tr("Frames"));
    auto* bar = new QToolBar(this);
    makeFilters(bar);
    makeActions(bar);
    m_details = new QPlainTextEdit(this);
    m_details->setReadOnly(true);
    m_details->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_details->setPlaceholderText(tr("Select an exchange to see its fields and bytes."));
    name(m_details, tr("Fields and bytes of the selected exchange"), QString());
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(makeTable());
    splitter->addWidget(m_details);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    m_counts = new QLabel(this);
    auto* box = new QVBoxLayout(this);
    box->addWidget(bar);
    box->addWidget(splitter, 1);
    box->addWidget(m_counts);
    connect(m_model, &FramesModel::stationSeen, this, &FramesPage::addStation);
    connect(m_model, &FramesModel::countsChanged, this, &FramesPage::showCounts);
    if (context.machine)
        connect(context.machine, &Machine::exchanged, m_model, &FramesModel::add);
    showCounts();
}

void FramesPage::makeFilters(QToolBar* bar)
{
    m_station = new QComboBox(this);
    m_station->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_station->addItem(tr("All stations"), ALL);
    name(m_station, tr("Station"), tr("Show the exchanges of one station"));
    m_kind = new QComboBox(this);
    m_kind->addItem(tr("All types"), NO_JOB);
    for (const JobKind kind :
         {CYCLIC_READ_JOB, CONDITION_READ_JOB, WRITE_JOB, RECIPE_WRITE_JOB, RECIPE_READ_JOB})
        m_kind->addItem(kindWords(kind), kind);
    name(m_kind, tr("Type"), tr("Show requests of one type"));
    m_outcome = new QComboBox(this);
    m_outcome->addItems(
        {tr("All outcomes"), tr("Accepted"), tr("Not accepted"), tr("Repeated"), tr("Failed")});
    name(m_outcome, tr("Outcome"), tr("Show the exchanges that ended so"));
    m_text = new QLineEdit(this);
    m_text->setPlaceholderText(tr("Request, such as D100"));
    m_text->setClearButtonEnabled(true);
    name(m_text, tr("Text in the request"),
         tr("Show requests with this text, such as D100 or write"));
    for (QComboBox* choice : {m_station, m_kind, m_outcome}) {
        connect(choice, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &FramesPage::onFilterChosen);
        bar->addWidget(choice);
    }
    connect(m_text, &QLineEdit::textChanged, this, &FramesPage::onFilterChosen);
    bar->addWidget(m_text);
}

void FramesPage::makeActions(QToolBar* bar)
{
    QAction* find =
        pageAction(this, tr("Find"), QKeySequence::Find, tr("Type what the request must contain"));
    connect(find, &QAction::triggered, m_text,
            [this] { m_text->setFocus(Qt::ShortcutFocusReason); });
    QAction* pause = pageAction(this, tr("Pause"), QStringLiteral("Ctrl+P"),
                                tr("Keep the rows as they are; what comes waits"));
    pause->setCheckable(true);
    connect(pause, &QAction::toggled, m_model, &FramesModel::setPaused);
    QAction* save = pageAction(this, tr("Save..."), QStringLiteral("Ctrl+E"),
                               tr("Save the exchanges shown as text or JSON lines"));
    connect(save, &QAction::triggered, this, &FramesPage::askWhereToSave);
    QAction* clear =
        pageAction(this, tr("Clear"), QStringLiteral("Ctrl+L"), tr("Forget all exchanges"));
    connect(clear, &QAction::triggered, m_model, &FramesModel::clear);
    bar->addActions({pause, save, clear});
}

QTableView* FramesPage::makeTable()
{
    m_table = new QTableView(this);
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
    fitColumns(m_table, {timeOfDay(0), QStringLiteral("247"), kindWords(RECIPE_WRITE_JOB),
                         QStringLiteral("write D1000:10"), QStringLiteral("1234 1234 1234 1234"),
                         QStringLiteral("+ no reply, repeated"), QStringLiteral("123.4 ms"),
                         QStringLiteral("1234 ms")});
    connect(m_table->horizontalHeader(), &QHeaderView::sectionResized, this, &Page::layoutChanged);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FramesPage::showDetails);
    new FollowEnd(m_table);
    return m_table;
}

void FramesPage::onFilterChosen()
{
    FrameFilter filter;
    filter.station = m_station->currentData().toInt();
    filter.kind = static_cast<JobKind>(m_kind->currentData().toInt());
    filter.verdicts = verdictsOf(m_outcome->currentIndex());
    filter.text = m_text->text().trimmed();
    m_model->setFilter(filter);
    showDetails();
}

void FramesPage::addStation(int station)
{
    int at = 1;
    while (at < m_station->count() && m_station->itemData(at).toInt() < station)
        ++at;
    m_station->insertItem(at, tr("Station %1").arg(station), station);
}

void FramesPage::showDetails()
{
    const QModelIndex current = m_table->currentIndex();
    m_details->setPlainText(current.isValid() ? detailsText(m_model->exchange(current.row()))
                                              : QString());
}

void FramesPage::showCounts()
{
    QString text = tr("%1 of %2 exchanges shown").arg(m_model->rowCount()).arg(m_model->kept());
    if (m_model->isPaused())
        text += tr("; paused, %1 more have come").arg(m_model->waiting());
    m_counts->setText(text);
}

void FramesPage::askWhereToSave()
{
    auto* dialog = new QFileDialog(this, tr("Save frames"), QStringLiteral("frames.txt"),
                                   tr("Text (*.txt);;JSON lines (*.jsonl)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, &FramesPage::save);
    dialog->open();
}

void FramesPage::save(const QString& path)
{
    const QVector<Exchange> exchanges = m_model->shown();
    QString error;
    emit said(saveFrames(path, exchanges, &error)
                  ? tr("%n exchange(s) saved in %1", nullptr, static_cast<int>(exchanges.size()))
                        .arg(path)
                  : error);
}

QJsonObject FramesPage::layout() const
{
    const QByteArray columns = m_table->horizontalHeader()->saveState().toBase64();
    return {{QStringLiteral("columns"), QString::fromLatin1(columns)}};
}

void FramesPage::setLayout(const QJsonObject& layout)
{
    const QString columns = layout.value(QStringLiteral("columns")).toString();
    m_table->horizontalHeader()->restoreState(QByteArray::fromBase64(columns.toLatin1()));
}

} // namespace kxpanel
