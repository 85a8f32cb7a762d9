#include "kxpanel/grid/edit/filter_line.h"

#include "addresses/address_text.h"
#include "kxpanel/grid/model/watch_filter.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace kxpanel
{

namespace
{

struct StateChoice {
    const char* key; ///< in a project
    const char* text;
};

// In the order of StateFilter.
const StateChoice STATES[] = {
    {"", QT_TRANSLATE_NOOP("kxpanel::FilterLine", "All states")},
    {"attention", QT_TRANSLATE_NOOP("kxpanel::FilterLine", "Not answered, refused, not written")},
    {"changed", QT_TRANSLATE_NOOP("kxpanel::FilterLine", "Changed or written now")},
    {"notRead", QT_TRANSLATE_NOOP("kxpanel::FilterLine", "Never read")},
};

} // namespace

FilterLine::FilterLine(WatchFilter* filter, QWidget* parent)
    : QWidget(parent),
      m_filter(filter),
      m_edit(new QLineEdit(this)),
      m_states(new QComboBox(this)),
      m_types(new QComboBox(this)),
      m_count(new QLabel(this))
{
    m_count->setTextFormat(Qt::PlainText);
    m_edit->setPlaceholderText(tr("Filter by name, address or comment"));
    m_edit->setToolTip(tr("Words that a row must have (Ctrl+F; Esc shows all)"));
    m_edit->setAccessibleName(tr("Filter by name, address or comment"));
    m_edit->setClearButtonEnabled(true);
    for (const StateChoice& state : STATES)
        m_states->addItem(tr(state.text), QLatin1String(state.key));
    m_states->setToolTip(tr("Rows in this state only"));
    m_states->setAccessibleName(tr("Filter by state"));
    m_types->addItem(tr("All types"), QString());
    for (const QString& type : kx::registerTypeNames().split(QStringLiteral(", ")))
        m_types->addItem(type, type);
    m_types->setToolTip(tr("Rows of this register type only"));
    m_types->setAccessibleName(tr("Filter by register type"));

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_states);
    layout->addWidget(m_types);
    layout->addWidget(m_count);

    connect(m_edit, &QLineEdit::textChanged, this, &FilterLine::apply);
    for (QComboBox* const box : {m_states, m_types})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &FilterLine::apply);
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(filter, signal, this, &FilterLine::count);
    connect(filter, &QAbstractItemModel::modelReset, this, &FilterLine::count);
    connect(filter, &QAbstractItemModel::layoutChanged, this, &FilterLine::count);
    count();
}

void FilterLine::clear()
{
    m_edit->clear();
    m_states->setCurrentIndex(0);
    m_types->setCurrentIndex(0);
}

void FilterLine::apply()
{
    m_filter->setText(m_edit->text());
    m_filter->setStates(static_cast<StateFilter>(m_states->currentIndex()));
    m_filter->setType(m_types->currentData().toString());
    count();
    emit changed();
}

void FilterLine::count()
{
    const int shown = m_filter->rowCount();
    const int all = m_filter->sourceModel()->rowCount();
    m_count->setText(shown == all ? tr("%n values", nullptr, all)
                                  : tr("%1 of %n values", nullptr, all).arg(shown));
}

QJsonObject FilterLine::layout() const
{
    QJsonObject layout = m_layout;
    const auto keep = [&layout](const char* key, const QString& text) {
        layout.remove(QLatin1String(key));
        if (!text.isEmpty())
            layout[QLatin1String(key)] = text;
    };
    keep("text", m_edit->text());
    keep("state", m_states->currentData().toString());
    keep("type", m_types->currentData().toString());
    return layout;
}

void FilterLine::setLayout(const QJsonObject& layout)
{
    m_layout = layout;
    m_edit->setText(layout[QLatin1String("text")].toString());
    const auto choose = [&layout](QComboBox* box, const char* key) {
        box->setCurrentIndex(qMax(0, box->findData(layout[QLatin1String(key)].toString())));
    };
    choose(m_states, "state");
    choose(m_types, "type");
}

} // namespace kxpanel
