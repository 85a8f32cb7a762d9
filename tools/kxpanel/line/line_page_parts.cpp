// What stands on the page, and its actions.

#include "kxpanel/actions/page_action.h"
#include "kxpanel/line/colours/line_legend.h"
#include "kxpanel/line/cycle/cycle_picture.h"
#include "kxpanel/line/limit/limit_panel.h"
#include "kxpanel/line/line_page.h"
#include "kxpanel/line/plan/plan_picture.h"

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

const int SHOWN_CYCLES = 3;
const double BUTTON_ZOOM = 1.5;

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
    connect(in, &QAction::triggered, m_picture, [this] { m_picture->zoom(1 / BUTTON_ZOOM); });
    QAction* out = pageAction(this, tr("Zoom out"), QKeySequence::ZoomOut, tr("Show more time"));
    connect(out, &QAction::triggered, m_picture, [this] { m_picture->zoom(BUTTON_ZOOM); });
    QAction* cycles = pageAction(this, tr("Cycles"), QStringLiteral("Ctrl+0"),
                                 tr("Show as much time as the latest three cycles took"));
    connect(cycles, &QAction::triggered, m_picture,
            [this] { m_picture->showCycles(SHOWN_CYCLES); });
    findChild<QToolBar*>()->addActions({m_pause, in, out, cycles});
}

} // namespace kxpanel
