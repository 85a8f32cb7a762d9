#include "kxpanel/trend/trend_page.h"

#include "kxpanel/machine/machine.h"
#include "kxpanel/trend/model/trend_text.h"
#include "kxpanel/trend/plot/trend_mouse.h"
#include "kxpanel/trend/plot/trend_plot.h"
#include "kxpanel/trend/trend_legend_view.h"
#include "kxpanel/trend/trend_span_box.h"
#include "kxpanel/trend/trend_value_field.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int FRAME = 50; // milliseconds

} // namespace

TrendPage::TrendPage(const PageContext& context, QWidget* parent)
    : Page(parent),
      m_channels(context.tags),
      m_legend(&m_channels, &m_view, this),
      m_plot(new TrendPlot(&m_channels, &m_view)),
      m_mouse(new TrendMouse(m_plot, &m_view)),
      m_actions(makeTrendActions(this, m_plot)),
      m_spans(new TrendSpanBox(&m_view)),
      m_table(new TrendLegendView(&m_legend)),
      m_field(new TrendValueField(context.tags)),
      m_state(new QLabel),
      m_files({&m_channels, &m_view, &m_legend, m_plot}, this)
{
    setWindowTitle(tr("Trend"));
    followClock();
    m_view.setNow(now());
    build();
    connectActions();
    connectModels();
    connectMachine(context.machine);
    m_timer.setInterval(FRAME);
    connect(&m_timer, &QTimer::timeout, this, &TrendPage::tick);
    showState();
}

QString TrendPage::key() const
{
    return QStringLiteral("trend");
}

void TrendPage::build()
{
    m_table->addAction(m_actions.remove);
    m_plot->setAccessibleName(tr("Trend of values"));
    m_plot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding); // and shrinking, too
    m_state->setTextFormat(Qt::PlainText);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_state->setObjectName(QStringLiteral("cursors")); // a name to be said would hide the text
    m_state->setWordWrap(true);
    m_plot->canvas()->setAccessibleName(m_plot->accessibleName());
    setMainPart(m_plot->canvas()); // which the keys are meant for
    QSplitter* parts = new QSplitter(Qt::Vertical);
    parts->addWidget(m_plot);
    parts->addWidget(m_table);
    parts->setStretchFactor(0, 1);
    parts->setCollapsible(0, false);
    QVBoxLayout* rows = new QVBoxLayout(this);
    rows->addWidget(makeTrendBar(windowTitle(), m_actions, m_spans));
    rows->addWidget(parts, 1);
    QHBoxLayout* foot = new QHBoxLayout;
    foot->addWidget(m_state, 1);
    foot->addWidget(m_field);
    rows->addLayout(foot);
    const int legend = m_table->sizeHint().height();
    parts->setSizes({3 * legend, legend});
}

void TrendPage::connectActions()
{
    const auto on = [this](QAction* action, auto&& what) {
        connect(action, &QAction::triggered, this, what);
    };
    on(m_actions.live, [this](bool isLive) { isLive ? m_view.goLive() : m_view.pause(); });
    on(m_actions.toNow, [this] {
        m_actions.fitValues->trigger();
        m_view.goLive();
    });
    on(m_actions.zoomIn, [this] { m_view.zoom(0.5, m_view.from() + m_view.span() / 2); });
    on(m_actions.zoomOut, [this] { m_view.zoom(2, m_view.from() + m_view.span() / 2); });
    on(m_actions.earlier, [this] { m_view.pan(-0.25); });
    on(m_actions.later, [this] { m_view.pan(0.25); });
    on(m_actions.fitValues, [this] {
        m_view.showValues(TrendSide::Left, std::nullopt);
        m_view.showValues(TrendSide::Right, std::nullopt);
    });
    on(m_actions.firstCursor, [this] { setCursor(0); });
    on(m_actions.secondCursor, [this] { setCursor(1); });
    on(m_actions.cursorLeft, [this] { moveCursor(-1); });
    on(m_actions.cursorRight, [this] { moveCursor(1); });
    on(m_actions.clearCursors, [this] { m_view.clearCursors(); });
    on(m_actions.open, [this] { m_files.askToOpen(); });
    on(m_actions.showRecording, [this] { m_files.showWhole(); });
    connect(&m_files, &TrendFiles::recordingChanged, m_actions.showRecording, &QAction::setEnabled);
    on(m_actions.exportPicture, [this] { m_files.askToSavePicture(); });
    on(m_actions.exportValues, [this] { m_files.askToSaveValues(); });
    on(m_actions.remove, [this] { m_channels.remove(m_table->selected()); });
}

void TrendPage::connectModels()
{
    const auto makeStale = [this] { m_isStale = true; };
    connect(&m_view, &TrendView::changed, this, makeStale);
    connect(&m_view, &TrendView::cursorsChanged, this, makeStale);
    connect(&m_channels, &TrendChannels::samplesAdded, this, makeStale);
    connect(m_plot, &TrendPlot::resized, this, makeStale);
    connect(m_spans, &TrendSpanBox::spanChanged, this, &TrendPage::layoutChanged);
    connect(&m_view, &TrendView::cursorsChanged, this, &TrendPage::showState);
    connect(&m_view, &TrendView::liveChanged, m_actions.live, &QAction::setChecked);
    connect(&m_channels, &TrendChannels::channelsChanged, this, [this] {
        m_isStale = true;
        emit layoutChanged();
    });
    connect(m_table, &TrendLegendView::axisChosen, &m_channels, &TrendChannels::setAxis);
    connect(m_plot, &TrendPlot::valuesDropped, this, &TrendPage::addValues);
    connect(m_field, &TrendValueField::valuesNamed, this, &TrendPage::addValues);
    connect(m_field, &TrendValueField::refused, this, &TrendPage::said);
    connect(&m_files, &TrendFiles::said, this, &TrendPage::said);
}

void TrendPage::connectMachine(Machine* machine)
{
    connect(machine, &Machine::valuesRead, this, [this](const QVector<Reading>& readings) {
        const qint64 steady = systemTimes().steady;
        for (const Reading& reading : readings)
            m_clock.onRead(steady, reading.readAt);
        m_channels.takeReadings(readings, now());
    });
    connect(machine, &Machine::missed, &m_channels, &TrendChannels::takeMissed);
    connect(machine, &Machine::clockSet, this, [this](qint64 by) {
        m_clock.shift(by);
        shift(by);
    });
    connect(machine, &Machine::lineChanged, this, [this](const LineStatus& status) {
        if (status.state == LineState::Closed || status.state == LineState::Opening)
            followClock();
        m_channels.takeLine(status, now());
    });
}

/// Of a clock that was set back, all that was goes back as well: nothing is drawn over it.
void TrendPage::followClock()
{
    const SystemTimes times = systemTimes();
    const qint64 back = m_clock.follow(times.steady, times.timeOfDay);
    if (back != 0)
        shift(-back);
}

void TrendPage::shift(qint64 milliseconds)
{
    m_channels.shift(milliseconds);
    m_view.shift(milliseconds);
}

void TrendPage::addValues(const QList<int>& numbers)
{
    emit said(m_channels.add(numbers, now()));
}

void TrendPage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    m_timer.start();
}

void TrendPage::hideEvent(QHideEvent* event)
{
    Page::hideEvent(event);
    m_timer.stop();
}

/// While live, time alone is a reason to draw when it moves the curves by a pixel.
void TrendPage::tick()
{
    const qint64 time = now();
    const bool isBehind = m_view.isLive() && time - m_view.to() >= m_plot->pixelTime();
    if (!m_isStale && !isBehind)
        return;
    m_view.setNow(time);
    draw();
}

void TrendPage::draw()
{
    m_plot->refresh();
    m_legend.refreshValues();
    m_isStale = false;
}

/// Where the mouse is, else in the middle.
void TrendPage::setCursor(int cursor)
{
    const qint64 middle = m_view.from() + m_view.span() / 2;
    m_view.setCursor(cursor, qBound(m_view.from(), m_mouse->time().value_or(middle), m_view.to()));
}

void TrendPage::moveCursor(int pixels)
{
    m_view.moveCursor(pixels * m_plot->pixelTime());
}

void TrendPage::showState()
{
    m_state->setText(cursorText(m_view));
}

QJsonObject TrendPage::layout() const
{
    QJsonObject layout = Page::layout();
    layout[QLatin1String("channels")] = m_channels.layout();
    layout[QLatin1String("span")] = m_view.span();
    return layout;
}

void TrendPage::setLayout(const QJsonObject& layout)
{
    Page::setLayout(layout);
    m_files.close();
    m_view.reset();
    m_channels.setLayout(layout.value(QLatin1String("channels")).toArray());
    const double span = layout.value(QLatin1String("span")).toDouble();
    if (span >= TrendView::SHORTEST_SPAN && span <= TrendView::LONGEST_SPAN)
        m_view.setSpan(static_cast<qint64>(span));
}

} // namespace kxpanel
