#include "kxpanel/line/line_page.h"

#include "kxpanel/actions/page_action.h"
#include "kxpanel/line/colours/line_legend.h"
#include "kxpanel/line/cycle/cycle_picture.h"
#include "kxpanel/line/cycle/cycle_words.h"
#include "kxpanel/line/limit/limit_panel.h"
#include "kxpanel/line/plan/plan_picture.h"
#include "kxpanel/line/watched_polls.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"
#include "panel/polling/poll_plan.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int BETWEEN_EDITS = 300; // milliseconds; a person types on
const int CYCLES = 3;          // shown and measured
const double ZOOM_STEP = 1.5;

QLabel* wordsLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumHeight(2 * label->fontMetrics().lineSpacing()); // it holds two rows
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return label;
}

} // namespace

LinePage::LinePage(const PageContext& context, QWidget* parent) : Page(parent), m_context(context)
{
    setWindowTitle(tr("Line"));
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(makeCycle());
    splitter->addWidget(makePlan());
    auto* box = new QVBoxLayout(this);
    box->addWidget(splitter);
    makeActions();
    m_changes.setSingleShot(true);
    connect(&m_changes, &QTimer::timeout, this, &LinePage::predict);
    if (context.machine) {
        connect(context.machine, &Machine::exchanged, this, &LinePage::onExchanged);
        connect(context.machine, &Machine::lineChanged, this, &LinePage::onLineChanged);
        connect(context.machine, &Machine::counted, this, &LinePage::onCounted);
    }
    if (context.tags)
        connect(context.tags, &TagList::valuesChanged, this, &LinePage::onValuesChanged);
    showShares();
}

QWidget* LinePage::makeCycle()
{
    auto* half = new QWidget(this);
    m_picture = new CyclePicture(&m_record, half);
    m_shares = new QLabel(half);
    m_shares->setTextFormat(Qt::PlainText);
    m_shares->setToolTip(tr("How the line was used in the time that is shown"));
    m_words = wordsLabel(half);
    auto* bar = new QToolBar(half);
    bar->setObjectName(QStringLiteral("cycleBar"));
    auto* row = new QHBoxLayout;
    row->addWidget(bar);
    row->addWidget(new LineLegend(LineLegend::Cycle, half));
    row->addStretch(1);
    auto* box = new QVBoxLayout(half);
    box->setContentsMargins(0, 0, 0, 0);
    box->addLayout(row);
    box->addWidget(m_picture, 1);
    box->addWidget(m_shares);
    box->addWidget(m_words);
    connect(m_picture, &CyclePicture::told, m_words, &QLabel::setText);
    connect(m_picture, &CyclePicture::shown, this, &LinePage::showShares);
    return half;
}

QWidget* LinePage::makePlan()
{
    auto* half = new QSplitter(Qt::Horizontal, this);
    auto* left = new QWidget(half);
    m_plan = new PlanPicture(left);
    m_scroll = new QScrollArea(left);
    m_scroll->setWidget(m_plan);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    QLabel* words = wordsLabel(left);
    auto* box = new QVBoxLayout(left);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(new LineLegend(LineLegend::Plan, left));
    box->addWidget(m_scroll, 1);
    box->addWidget(words);
    m_limits = new LimitPanel(&m_costs, half);
    half->addWidget(left);
    half->addWidget(m_limits);
    half->setStretchFactor(0, 3);
    half->setStretchFactor(1, 2);
    connect(m_plan, &PlanPicture::told, words, &QLabel::setText);
    connect(m_plan, &PlanPicture::selectedAt, this,
            [this](const QPoint& at) { m_scroll->ensureVisible(at.x(), at.y()); });
    connect(m_limits, &LimitPanel::chosenChanged, this, &LinePage::showPlan);
    connect(m_limits, &LimitPanel::applied, this, &LinePage::applyLimits);
    return half;
}

void LinePage::makeActions()
{
    m_pause = pageAction(this, tr("Pause"), QStringLiteral("Ctrl+P"),
                         tr("Keep the picture as it is; what comes is kept, too"));
    m_pause->setCheckable(true);
    connect(m_pause, &QAction::toggled, m_picture,
            [this](bool paused) { m_picture->setLive(!paused); });
    connect(m_picture, &CyclePicture::liveChanged, this, &LinePage::onLiveChanged);
    QAction* in = pageAction(this, tr("Zoom in"), QKeySequence::ZoomIn, tr("Show less time"));
    connect(in, &QAction::triggered, m_picture, [this] { m_picture->zoom(1 / ZOOM_STEP); });
    QAction* out = pageAction(this, tr("Zoom out"), QKeySequence::ZoomOut, tr("Show more time"));
    connect(out, &QAction::triggered, m_picture, [this] { m_picture->zoom(ZOOM_STEP); });
    QAction* cycles = pageAction(this, tr("Cycles"), QStringLiteral("Ctrl+0"),
                                 tr("Show as much time as the latest three cycles took"));
    connect(cycles, &QAction::triggered, m_picture, [this] { m_picture->showCycles(CYCLES); });
    findChild<QToolBar*>()->addActions({m_pause, in, out, cycles});
}

void LinePage::onExchanged(const QVector<Exchange>& exchanges)
{
    for (const Exchange& exchange : exchanges) {
        // What is looked at stays, until it is looked at no more.
        const bool waits = !m_picture->isLive() && (m_record.isFull() || m_waitingCount > 0);
        m_waitingCount += waits ? 1 : 0;
        if (waits)
            m_waiting.add(exchange);
        else
            m_record.add(exchange, m_recordTiming);
    }
    m_picture->onRecordChanged();
    if (m_waitingCount > 0)
        showShares();
}

void LinePage::onLiveChanged(bool live)
{
    m_pause->setChecked(!live);
    if (!live)
        return;
    for (qint64 place = m_waiting.begin(); place < m_waiting.end(); ++place)
        m_record.add(m_waiting.at(place), m_recordTiming);
    forgetWaiting();
}

void LinePage::forgetWaiting()
{
    m_waiting.clear();
    m_waitingCount = 0;
}

void LinePage::onLineChanged(const LineStatus& status)
{
    const bool isAnother = status.name != m_line || status.isNetwork != m_isNetwork;
    const bool hasOtherTiming = status.timing.baud != m_timing.baud
                                || status.timing.bitsPerCharacter() != m_timing.bitsPerCharacter();
    m_limits->setInForce(status.state == LineState::Closed ? 0 : status.longestRequest);
    m_line = status.name;
    m_timing = status.timing;
    m_isNetwork = status.isNetwork;
    m_recordTiming = status.timing;
    m_recordTiming.baud = m_isNetwork ? 0 : m_timing.baud;
    if (isAnother || hasOtherTiming) {
        m_record.clear();
        forgetWaiting();
        m_picture->onRecordChanged();
        onValuesChanged();
    }
}

void LinePage::onCounted()
{
    const LineRecord::Cycles cycles = m_record.latestCycles(CYCLES);
    m_limits->setMeasured(cycles.count > 0 ? cycles.time / cycles.count : 0);
    const bool isNewlyKnown = cycles.count > 0 && !m_isPredicted;
    m_isPredicted = m_isPredicted || isNewlyKnown; // by what stations take, from now on
    if (isNewlyKnown || m_record.silentStations() != m_silent)
        m_changes.start(BETWEEN_EDITS);
}

void LinePage::onValuesChanged()
{
    m_isPredicted = false;
    m_changes.start(BETWEEN_EDITS);
}

void LinePage::predict()
{
    if (!m_context.tags || !isVisible())
        return;
    m_silent = m_record.silentStations();
    const QList<kx::PolledRange> polled = polledRanges(*m_context.tags);
    const QList<int> leftOut = stationsAmong(m_silent, polled);
    m_costs.start(rangesWithout(polled, leftOut), m_timing, m_record.replyTimes());
    m_limits->setSilent(leftOut);
    showPlan();
}

void LinePage::showPlan()
{
    if (!m_context.tags)
        return;
    const QList<kx::PolledRange> polled = polledRanges(*m_context.tags);
    const kx::ReadRules rules = limitedRules(m_limits->chosen(), m_timing, m_record.replyTimes());
    m_plan->setPlan(kx::plannedPolls(polled, rules, nullptr), watchedRanges(polled), rules);
}

void LinePage::showShares()
{
    if (m_record.history().size() == 0)
        return m_shares->clear();
    const LineShares shares = m_picture->shares();
    QString words = m_isNetwork ? networkSharesWords(shares) : sharesWords(shares);
    if (m_waitingCount > 0)
        words += tr("; paused, %1 more have come").arg(m_waitingCount);
    m_shares->setText(words);
}

void LinePage::applyLimits(int maxWords, int maxBits)
{
    if (m_context.machine)
        m_context.machine->setLimits(maxWords, maxBits);
    emit said(
        maxWords > 0
            ? tr("Requests take %n registers or %1 bits at most", nullptr, maxWords).arg(maxBits)
            : tr("Requests are as long as takes the least time"));
}

void LinePage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    m_picture->onRecordChanged();
    m_changes.start(0); // what has changed meanwhile
}

} // namespace kxpanel
