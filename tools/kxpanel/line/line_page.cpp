#include "kxpanel/line/line_page.h"

#include "exchange/loop_clock.h"
#include "kxpanel/actions/page_action.h"
#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/exchanges/station_sign.h"
#include "kxpanel/line/cycle/cycle_picture.h"
#include "kxpanel/line/cycle/cycle_words.h"
#include "kxpanel/line/limit/limit_panel.h"
#include "kxpanel/line/plan/plan_picture.h"
#include "kxpanel/line/watched_polls.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"
#include "panel/polling/poll_plan.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

namespace
{

const int BETWEEN_EDITS = 300; // milliseconds; a person types on

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
        connect(context.machine, &Machine::missed, this, [this] { m_cycle.forget(); });
        connect(context.machine, &Machine::clockSet, this, [this] { m_cycle.forget(); });
    }
    if (context.tags)
        connect(context.tags, &TagList::valuesChanged, this, &LinePage::onValuesChanged);
    showShares();
}

void LinePage::onExchanged(const QVector<Exchange>& exchanges)
{
    for (const Exchange& exchange : exchanges) {
        m_cycle.add(exchange);
        if (isStationsReply(exchange))
            m_answers.add(stationOf(exchange),
                          static_cast<int>(exchange.request.size() + exchange.reply.size()),
                          exchange.turnaround);
        // What is looked at stays, until it is looked at no more.
        const bool waits = !m_picture->isLive() && (m_record.isFull() || m_waitingCount > 0);
        m_waitingCount += waits ? 1 : 0;
        if (waits) {
            m_waiting.add(exchange);
            m_record.hear(exchange);
        } else {
            m_record.add(exchange, m_recordTiming);
        }
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
    const bool isOpen = status.state != LineState::Closed;
    m_limits->setInForce(isOpen ? status.longestRequest : 0, status.isAutomatic);
    if (status.state != LineState::Open || status.sessions != m_sessions)
        m_cycle.forget();
    m_sessions = status.sessions;
    m_line = status.name;
    m_timing = status.timing;
    m_isNetwork = status.isNetwork;
    if (status.shortened != m_shortened) {
        m_shortened = status.shortened;
        onValuesChanged();
    }
    m_replyTimeout = status.replyTimeout * kx::MICROSECONDS_PER_MILLISECOND;
    m_recordTiming = status.timing;
    m_recordTiming.baud = m_isNetwork ? 0 : m_timing.baud;
    if (isAnother || hasOtherTiming) {
        m_record.clear();
        m_cycle.clear();
        m_answers.clear();
        forgetWaiting();
        m_picture->onRecordChanged();
        onValuesChanged();
    }
}

void LinePage::onCounted()
{
    const qint64 measured = m_cycle.average();
    m_limits->setMeasured(measured);
    const bool isNewlyKnown = measured > 0 && !m_isPredicted;
    m_isPredicted = m_isPredicted || isNewlyKnown; // by what stations take, from now on
    if (isNewlyKnown || m_record.silentStations() != m_silent || hasOtherPace())
        m_changes.start(BETWEEN_EDITS);
}

/// What was predicted holds no more.
bool LinePage::hasOtherPace() const
{
    return isVisible() && m_isPredicted && !m_costs.isWorking() && areFarApart(m_pace, paceNow());
}

AnswerPace LinePage::paceNow() const
{
    AnswerPace pace = m_answers.pace(m_timing, m_isNetwork);
    pace.shortened = m_shortened;
    pace.replyTimeout = m_replyTimeout;
    return pace;
}

void LinePage::onValuesChanged()
{
    m_isPredicted = false;
    m_cycle.forget();
    m_changes.start(BETWEEN_EDITS);
}

void LinePage::predict()
{
    if (!m_context.tags || !isVisible())
        return;
    m_silent = m_record.silentStations();
    const AnswerPace pace = paceNow();
    if (areFarApart(m_pace, pace))
        m_pace = pace;
    const QList<kx::PolledRange> polled = polledRanges(*m_context.tags);
    const QList<int> leftOut = stationsAmong(m_silent, polled);
    m_limits->setSilent(leftOut);
    const QList<kx::PolledRange> predicted = rangesWithout(polled, leftOut);
    m_limits->setAssumed(assumedWait(predicted, m_pace));
    if (m_costs.start(predicted, m_pace))
        showPlan();
}

void LinePage::showPlan()
{
    if (!m_context.tags)
        return;
    const QList<kx::PolledRange> polled = polledRanges(*m_context.tags);
    const kx::ReadRules rules = limitedRules(m_limits->chosen(), m_pace);
    m_plan->setPlan(kx::plannedPolls(polled, rules, nullptr), watchedRanges(polled),
                    requestCost(m_pace));
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
