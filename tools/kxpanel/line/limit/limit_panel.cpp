#include "kxpanel/line/limit/limit_panel.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/line/limit/limit_costs.h"
#include "kxpanel/line/limit/limit_curve.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace kxpanel
{

LimitPanel::LimitPanel(const LimitCosts* costs, QWidget* parent)
    : QWidget(parent),
      m_costs(costs),
      m_curve(new LimitCurve(costs, this)),
      m_predicted(new QLabel(this)),
      m_measured(new QLabel(this)),
      m_inForce(new QLabel(this)),
      m_longest(kx::MOST_REGISTERS_PER_READ)
{
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(m_curve, 1);
    box->addWidget(makeChoice());
    box->addWidget(m_predicted);
    box->addWidget(m_measured);
    box->addWidget(m_inForce);
    box->addWidget(makeButtons());
    connect(costs, &LimitCosts::advanced, this, &LimitPanel::showCosts);
    connect(m_curve, &LimitCurve::chosen, this, &LimitPanel::setChosen);
    for (QLabel* label : {m_predicted, m_measured, m_inForce})
        label->setTextFormat(Qt::PlainText);
    m_predicted->setWordWrap(true);
    onChosen(chosen());
    setMeasured(0);
    setInForce(0, true);
    showCosts();
}

QWidget* LimitPanel::makeChoice()
{
    auto* choice = new QWidget(this);
    m_slider = new QSlider(Qt::Horizontal, choice);
    m_number = new QSpinBox(choice);
    auto* label = new QLabel(tr("Lon&gest request"), choice);
    label->setBuddy(m_slider);
    m_slider->setRange(1, kx::MOST_REGISTERS_PER_READ);
    m_number->setRange(1, kx::MOST_REGISTERS_PER_READ);
    m_slider->setValue(kx::MOST_REGISTERS_PER_READ);
    m_number->setValue(kx::MOST_REGISTERS_PER_READ);
    const QString tip = tr("The longest request in registers, or 16 times as many bits. Nothing "
                           "is changed before it is applied.");
    for (QWidget* widget : {static_cast<QWidget*>(m_slider), static_cast<QWidget*>(m_number)}) {
        widget->setAccessibleName(tr("Longest request in registers"));
        widget->setToolTip(tip);
    }
    connect(m_slider, &QSlider::valueChanged, this, &LimitPanel::onChosen);
    connect(m_number, QOverload<int>::of(&QSpinBox::valueChanged), m_slider, &QSlider::setValue);
    auto* row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(m_slider, 1);
    row->addWidget(m_number);
    return choice;
}

QWidget* LimitPanel::makeButtons()
{
    auto* buttons = new QWidget(this);
    auto* applyChosen = new QPushButton(tr("&Apply"), buttons);
    applyChosen->setToolTip(tr("Polls with requests of this length at most from now on (Alt+A)"));
    m_best = new QPushButton(buttons);
    auto* automatic = new QPushButton(tr("A&utomatic"), buttons);
    automatic->setToolTip(
        tr("Polls with requests as long as takes the least time from now on (Alt+U)"));
    connect(applyChosen, &QPushButton::clicked, this, [this] { apply(chosen()); });
    connect(m_best, &QPushButton::clicked, this, [this] { apply(m_costs->best()); });
    connect(automatic, &QPushButton::clicked, this, [this] { emit applied(0, 0); });
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* button : {applyChosen, m_best, automatic})
        row->addWidget(button);
    row->addStretch(1);
    return buttons;
}

int LimitPanel::chosen() const
{
    return m_slider->value();
}

void LimitPanel::setChosen(int maxWords)
{
    m_slider->setValue(maxWords);
}

void LimitPanel::onChosen(int maxWords)
{
    m_number->setValue(maxWords);
    m_number->setSuffix(maxWords == 1 ? tr(" register") : tr(" registers"));
    m_curve->setChosen(maxWords);
    showCosts();
    emit chosenChanged(maxWords);
}

void LimitPanel::setMeasured(qint64 time)
{
    m_curve->setMeasured(time);
    m_measured->setText(time > 0 ? tr("Measured: %1 per cycle").arg(timeWords(time))
                                 : tr("Measured: nothing yet"));
}

void LimitPanel::setInForce(int longest, bool isAutomatic)
{
    if (longest <= 0)
        return m_inForce->setText(tr("In force: no line is open"));
    const bool isLimited = longest < kx::MOST_REGISTERS_PER_READ || !isAutomatic;
    m_inForce->setText(isLimited ? tr("In force: %n register(s) at most", nullptr, longest)
                                 : tr("In force: automatic, %1 registers at most").arg(longest));
    if (longest != m_longest)
        setChosen(longest); // what is predicted is then what is measured
    m_longest = longest;
}

void LimitPanel::setSilent(const QList<int>& stations)
{
    QStringList numbers;
    for (const int station : stations)
        numbers << QString::number(station);
    m_leftOut = stations.isEmpty() ? QString()
                                   : tr("; without %n silent station(s): %1", nullptr,
                                        static_cast<int>(stations.size()))
                                         .arg(numbers.join(QStringLiteral(", ")));
    showCosts();
}

void LimitPanel::setAssumed(qint64 wait)
{
    m_assumed = wait > 0 ? tr("; assumed, until stations answer, that they take %1 for each reply")
                               .arg(timeWords(wait))
                         : QString();
    showCosts();
}

void LimitPanel::showCosts()
{
    const int best = m_costs->best();
    m_best->setEnabled(best > 0);
    m_best->setText(best > 0 ? tr("Apply the &best: %1").arg(best) : tr("Apply the &best"));
    m_best->setToolTip(tr("The limit with the shortest cycle: of equal ones that which leaves the "
                          "line the most time, then the lowest (Alt+B)"));
    const kx::LengthResult* result = m_costs->of(chosen());
    m_predicted->setText(
        (result ? predictedWords(result->cost) + m_assumed : tr("Predicted: nothing yet"))
        + m_leftOut);
}

QString LimitPanel::predictedWords(const kx::CycleCost& cost)
{
    const QString time = timeWords(cost.duration);
    return cost.busy > 0
               ? tr("Predicted: %1 per cycle, %n requests, line used %2 %", nullptr, cost.requests)
                     .arg(time)
                     .arg(100 * cost.lineLoad(), 0, 'f', 1)
               : tr("Predicted: %1 per cycle, %n requests", nullptr, cost.requests).arg(time);
}

void LimitPanel::apply(int maxWords)
{
    setChosen(maxWords);
    emit applied(maxWords, bitsFor(maxWords));
}

} // namespace kxpanel
