#include "kxpanel/frames/filter_bar.h"

#include "kxpanel/exchanges/exchange_words.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

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

FilterBar::FilterBar(QWidget* parent)
    : QToolBar(parent),
      m_station(new QComboBox(this)),
      m_kind(new QComboBox(this)),
      m_outcome(new QComboBox(this)),
      m_text(new QLineEdit(this))
{
    m_station->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_station->addItem(tr("All stations"), ALL);
    name(m_station, tr("Station"), tr("Show the exchanges of one station"));
    m_kind->addItem(tr("All types"), NO_JOB);
    for (const JobKind kind :
         {CYCLIC_READ_JOB, CONDITION_READ_JOB, WRITE_JOB, RECIPE_WRITE_JOB, RECIPE_READ_JOB})
        m_kind->addItem(kindWords(kind), kind);
    name(m_kind, tr("Type"), tr("Show requests of one type"));
    m_outcome->addItems(
        {tr("All outcomes"), tr("Accepted"), tr("Not accepted"), tr("Repeated"), tr("Failed")});
    name(m_outcome, tr("Outcome"), tr("Show the exchanges that ended so"));
    m_text->setPlaceholderText(tr("Request, such as D100"));
    m_text->setClearButtonEnabled(true);
    name(m_text, tr("Text in the request"),
         tr("Show requests with this text, such as D100 or write"));
    for (QComboBox* choice : {m_station, m_kind, m_outcome}) {
        connect(choice, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &FilterBar::chosen);
        addWidget(choice);
    }
    connect(m_text, &QLineEdit::textChanged, this, &FilterBar::chosen);
    addWidget(m_text);
}

FrameFilter FilterBar::filter() const
{
    FrameFilter filter;
    filter.station = m_station->currentData().toInt();
    filter.kind = static_cast<JobKind>(m_kind->currentData().toInt());
    filter.verdicts = verdictsOf(m_outcome->currentIndex());
    filter.text = m_text->text().trimmed();
    return filter;
}

void FilterBar::addStation(int station)
{
    int at = 1;
    while (at < m_station->count() && m_station->itemData(at).toInt() < station)
        ++at;
    m_station->insertItem(at, tr("Station %1").arg(station), station);
}

void FilterBar::beginTyping()
{
    m_text->setFocus(Qt::ShortcutFocusReason);
}

} // namespace kxpanel
