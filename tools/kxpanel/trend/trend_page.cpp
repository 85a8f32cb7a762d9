#include "kxpanel/trend/trend_page.h"

#include "kxpanel/machine/machine.h"
#include "kxpanel/trend/model/trend_text.h"
#include "kxpanel/trend/plot/trend_mouse.h"
#include "kxpanel/trend/plot/trend_plot.h"
#include "kxpanel/trend/trend_legend_view.h"

#include <QtCore/QDateTime>
#include <QtWidgets/QAction>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int FRAME = 50; // milliseconds

qint64 timeOfDay()
{
    return QDateTime::currentMSecsSinceEpoch();
}

const struct {
    qint64 milliseconds;
    const char* text;
} SPANS[] = {
    {10000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "10 s")},
    {60000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "1 min")},
    {300000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "5 min")},
    {900000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "15 min")},
    {3600000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "1 h")},
    {4 * 3600000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "4 h")},
    {24 * 3600000, QT_TRANSLATE_NOOP("kxpanel::TrendPage", "24 h")},
};

} // namespace

TrendPage::TrendPage(const PageContext& context, QWidget* parent)
    : Page(parent),
      m_channels(context.tags),
      m_legend(&m_channels, &m_view),
      m_plot(new TrendPlot(&m_channels, &m_view)),
      m_mouse(new TrendMouse(m_plot, &m_view)),
      m_actions(makeTrendActions(this, m_plot)),
      m_spans(new QComboBox),
      m_table(new TrendLegendView(&m_legend)),
      m_state(new QLabel)
{
    setWindowTitle(tr("Trend"));
    m_view.setNow(timeOfDay());
    build();
    connectActions();
    connectModels(context.machine);
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
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_state->setAccessibleName(tr("Cursors"));
    QSplitter* parts = new QSplitter(Qt::Vertical);
    parts->addWidget(m_plot);
    parts->addWidget(m_table);
    parts->setStretchFactor(0, 1);
    parts->setCollapsible(0, false);
    QVBoxLayout* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(makeBar());
    rows->addWidget(parts, 1);
    rows->addWidget(m_state);
    const int text = fontMetrics().height();
    parts->setSizes({text * 20, text * 7});
}

QToolBar* TrendPage::makeBar()
{
    QToolBar* bar = new QToolBar(tr("Trend"));
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    fillSpans();
    bar->addAction(m_actions.live);
    bar->addAction(m_actions.toNow);
    bar->addWidget(m_spans);
    bar->addSeparator();
    for (QAction* action : {m_actions.zoomIn, m_actions.zoomOut, m_actions.earlier, m_actions.later,
                            m_actions.fitValues})
        bar->addAction(action);
    bar->addSeparator();
    for (QAction* action : {m_actions.firstCursor, m_actions.secondCursor, m_actions.clearCursors})
        bar->addAction(action);
    bar->addSeparator();
    bar->addAction(m_actions.remove);
    return bar;
}

void TrendPage::fillSpans()
{
    for (const auto& span : SPANS)
        m_spans->addItem(tr(span.text), span.milliseconds);
    m_spans->setToolTip(tr("Time that the window shows"));
    m_spans->setAccessibleName(m_spans->toolTip());
    connect(m_spans, qOverload<int>(&QComboBox::activated), this,
            [this](int row) { m_view.setSpan(m_spans->itemData(row).toLongLong()); });
    showSpan();
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
    on(m_actions.remove, [this] { m_channels.remove(m_table->selected()); });
}

void TrendPage::connectModels(Machine* machine)
{
    const auto makeStale = [this] { m_isStale = true; };
    connect(&m_view, &TrendView::changed, this, makeStale);
    connect(&m_view, &TrendView::cursorsChanged, this, makeStale);
    connect(&m_channels, &TrendChannels::samplesAdded, this, makeStale);
    connect(m_plot, &TrendPlot::resized, this, makeStale);
    connect(&m_view, &TrendView::changed, this, &TrendPage::showSpan);
    connect(&m_view, &TrendView::cursorsChanged, this, &TrendPage::showState);
    connect(&m_view, &TrendView::liveChanged, m_actions.live, &QAction::setChecked);
    connect(&m_channels, &TrendChannels::channelsChanged, this, [this] {
        m_isStale = true;
        emit layoutChanged();
    });
    connect(m_table, &TrendLegendView::axisChosen, &m_channels, &TrendChannels::setAxis);
    connect(m_plot, &TrendPlot::valuesDropped, this, &TrendPage::addValues);
    connect(machine, &Machine::valuesRead, this, [this](const QVector<Reading>& readings) {
        m_channels.takeReadings(readings, timeOfDay());
    });
    connect(machine, &Machine::lineChanged, this,
            [this](const LineStatus& status) { m_channels.takeLine(status, timeOfDay()); });
}

void TrendPage::addValues(const QList<int>& numbers)
{
    emit said(m_channels.add(numbers));
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
    const qint64 now = timeOfDay();
    const bool isBehind = m_view.isLive() && now - m_view.to() >= m_plot->pixelTime();
    if (!m_isStale && !isBehind)
        return;
    m_view.setNow(now);
    draw();
}

void TrendPage::draw()
{
    m_plot->refresh();
    m_legend.setGround(palette().color(QPalette::Base));
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

/// None of those that can be chosen: the list shows which it is.
void TrendPage::showSpan()
{
    const int row = m_spans->findData(m_view.span());
    m_spans->setCurrentIndex(row);
    m_spans->setPlaceholderText(spanText(m_view.span()));
}

QJsonObject TrendPage::layout() const
{
    QJsonObject layout;
    layout[QLatin1String("channels")] = m_channels.layout();
    layout[QLatin1String("span")] = m_view.span();
    return layout;
}

void TrendPage::setLayout(const QJsonObject& layout)
{
    m_channels.setLayout(layout.value(QLatin1String("channels")).toArray());
    const double span = layout.value(QLatin1String("span")).toDouble();
    if (span > 0)
        m_view.setSpan(static_cast<qint64>(span));
}

} // namespace kxpanel
