#include "kxpanel/grid/watch_page.h"

#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/edit/filter_line.h"
#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int FRAME_TIME = 50; // milliseconds
const int TICK_TIME = 500; // milliseconds

ValueWriter::JobStarter starterOf(Machine* machine)
{
    return [machine](int ticket, const JobMaker& make) { machine->startJob(ticket, make); };
}

} // namespace

WatchPage::WatchPage(const PageContext& context, QWidget* parent)
    : Page(parent),
      m_context(context),
      m_writer(context.tags, starterOf(context.machine)),
      m_model(new WatchModel(context.tags, &m_writer, &m_undo, this)),
      m_filter(new WatchFilter(m_model, this))
{
    setWindowTitle(tr("Watch"));
    followClock();
    m_writer.setClock([this] { return now(); });
    m_model->setClock([this] { return now(); });
    makeWidgets();
    makeEditActions();
    makeMoveActions();
    makeWriteActions();
    makeLayout();
    connectAll();
}

WatchPage::~WatchPage()
{
    // Views listen to the stack and the writer, which go before them.
    delete m_table;
    disconnect(&m_undo, nullptr, nullptr, nullptr);
}

void WatchPage::makeWidgets()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_addLine = new AddLine(this);
    m_filterLine = new FilterLine(m_filter, this);
    m_writeBar = new WriteBar(&m_writer, this);
    m_table = new WatchTable(m_model, m_filter, this);
    m_message = new QLabel(this);
    m_message->setWordWrap(true);
    m_message->setTextFormat(Qt::PlainText); // names are no markup
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message->setObjectName(QStringLiteral("message"));
    m_faults = new QPlainTextEdit(this);
    m_faults->setReadOnly(true);
    m_faults->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_faults->setMaximumHeight(fontMetrics().lineSpacing() * 8);
    m_faults->setAccessibleName(tr("What is wrong"));
    m_faults->hide();
    auto* const delegate = new WatchDelegate(
        [this](const QModelIndex& index, const QString& text) {
            return m_model->faultOf(m_filter->mapToSource(index), text);
        },
        this);
    m_table->setItemDelegate(delegate);
    connect(delegate, &WatchDelegate::explained, this,
            [this](const QString& reason) { explain(reason, true); });
    connect(delegate, &WatchDelegate::switchAsked, this, &WatchPage::switchClicked);
    connect(delegate, &WatchDelegate::editingBegan, this, [this](const QModelIndex& index) {
        m_filter->keep(index.data(WatchModel::NumberRole).toInt());
    });
    connect(delegate, &WatchDelegate::editingEnded, this, [this] { m_filter->keep(0); });
}

void WatchPage::makeLayout()
{
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_addLine);
    layout->addWidget(m_filterLine);
    layout->addWidget(m_writeBar);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_faults);
    layout->addWidget(m_message);
    setMainPart(m_table);
}

void WatchPage::connectAll()
{
    Machine* const machine = m_context.machine;
    connect(machine, &Machine::jobEnded, &m_writer, &ValueWriter::onJobEnded);
    connect(machine, &Machine::clockSet, this, [this](qint64 by) {
        m_clock.shift(by); // before the writer, which goes by it
        m_writer.onClockSet(by);
    });
    connect(machine, &Machine::lineChanged, this, &WatchPage::onLineChanged);
    connect(machine, &Machine::valuesRead, this, &WatchPage::onValuesRead);
    connect(&m_writer, &ValueWriter::ended, this, &WatchPage::onWriteEnded);
    connect(&m_writer, &ValueWriter::allEnded, this, &WatchPage::onWritesEnded);
    connect(m_context.tags, &TagList::valuesChanged, this, &WatchPage::onValuesChanged);
    connect(m_context.tags, &TagList::readingsChanged, this, &WatchPage::onReadings);
    connect(m_model, &WatchModel::refused, this,
            [this](const QString& reason) { say(reason, true); });
    connect(m_addLine, &AddLine::added, this,
            [this](const kx::Tag& tag) { addTags({tag}, m_model->rowCount()); });
    connect(m_addLine, &AddLine::explained, this, &WatchPage::explain);
    connect(m_filterLine, &FilterLine::changed, this, &Page::layoutChanged);
    connect(m_addLine, &AddLine::stationChanged, this, &Page::layoutChanged);
    connect(m_table, &WatchTable::layoutChanged, this, &Page::layoutChanged);
    connect(m_writeBar, &WriteBar::closed, m_table, qOverload<>(&QWidget::setFocus));
    m_frame.setSingleShot(true);
    m_frame.setInterval(FRAME_TIME);
    connect(&m_frame, &QTimer::timeout, m_table, &WatchTable::refreshVisible);
    m_tick.start(TICK_TIME);
    connect(&m_tick, &QTimer::timeout, this, &WatchPage::onTick);
}

void WatchPage::followClock()
{
    const SystemTimes times = systemTimes();
    m_clock.follow(times.steady, times.timeOfDay);
}

void WatchPage::onValuesRead(const QVector<Reading>& readings)
{
    const qint64 steady = systemTimes().steady;
    for (const Reading& reading : readings)
        m_clock.onRead(steady, reading.readAt);
}

/// Costs the same however many were read: they are painted later, where they are seen.
void WatchPage::onReadings()
{
    if (!m_frame.isActive() && isVisible())
        m_frame.start();
}

void WatchPage::onTick()
{
    if (!isVisible())
        return;
    m_filter->refreshStates();
    m_table->refreshVisible();
}

void WatchPage::onValuesChanged()
{
    m_writer.follow();
    if (m_writeBar->isVisible())
        m_writeBar->finish(); // it asked of others
}

void WatchPage::sortAgain()
{
    m_filter->sort(m_filter->sortColumn(), m_filter->sortOrder());
}

void WatchPage::listOrder()
{
    m_table->sortByColumn(-1, Qt::AscendingOrder);
}

void WatchPage::findText()
{
    m_filterLine->edit()->setFocus();
    m_filterLine->edit()->selectAll();
}

void WatchPage::showAll()
{
    if (m_writeBar->isVisible())
        return m_writeBar->finish();
    if (m_writer.waiting() > 0)
        return m_writer.callOff();
    m_filterLine->clear();
    if (m_addLine->edit()->hasFocus())
        m_addLine->edit()->clear();
    showFaults({});
    say(QString(), false);
    m_table->setFocus();
}

void WatchPage::setStation(int station)
{
    m_addLine->setStation(station);
}

QJsonObject WatchPage::layout() const
{
    QJsonObject layout = Page::layout();
    const QJsonObject table = m_table->layout();
    layout.remove(QStringLiteral("sort"));
    for (auto member = table.begin(); member != table.end(); ++member)
        layout[member.key()] = member.value();
    layout[QLatin1String("filter")] = m_filterLine->layout();
    layout[QLatin1String("station")] = m_addLine->station();
    return layout;
}

void WatchPage::setLayout(const QJsonObject& layout)
{
    Page::setLayout(layout);
    m_table->setLayout(layout);
    m_filterLine->setLayout(layout[QLatin1String("filter")].toObject());
    if (layout[QLatin1String("station")].isDouble())
        setStation(layout[QLatin1String("station")].toInt());
}

} // namespace kxpanel
