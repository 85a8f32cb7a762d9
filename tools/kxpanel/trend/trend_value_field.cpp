#include "kxpanel/trend/trend_value_field.h"

#include "kxpanel/tags/tag_list.h"

#include <QtCore/QStringListModel>
#include <QtCore/QTimer>
#include <QtWidgets/QCompleter>

namespace kxpanel
{

TrendValueField::TrendValueField(const TagList* tags, QWidget* parent)
    : QLineEdit(parent), m_tags(tags)
{
    setPlaceholderText(tr("Add value"));
    setToolTip(tr("Name or address of a watched value, and Enter"));
    setAccessibleName(tr("Add a value to the plot"));
    setMaximumWidth(fontMetrics().averageCharWidth() * 24);
    QCompleter* names = new QCompleter(new QStringListModel(this), this);
    names->setCaseSensitivity(Qt::CaseInsensitive);
    names->setFilterMode(Qt::MatchContains);
    setCompleter(names);
    connect(this, &QLineEdit::returnPressed, this, &TrendValueField::take);
}

void TrendValueField::focusInEvent(QFocusEvent* event)
{
    QStringList names;
    for (const WatchedValue& value : m_tags->values())
        names << TagList::shownName(value);
    static_cast<QStringListModel*>(completer()->model())->setStringList(names);
    QLineEdit::focusInEvent(event);
}

/// A name that several values have means all of them.
void TrendValueField::take()
{
    QList<int> numbers;
    const QString typed = text().trimmed();
    if (typed.isEmpty())
        return;
    for (const WatchedValue& value : m_tags->values()) {
        const kx::AddressRange& range = value.tag.range;
        if (TagList::shownName(value).compare(typed, Qt::CaseInsensitive) == 0
            || kx::addressText(range.type, range.address).compare(typed, Qt::CaseInsensitive) == 0)
            numbers << value.number;
    }
    if (numbers.isEmpty()) {
        emit refused(tr("No watched value is called %1").arg(typed));
        return;
    }
    emit valuesNamed(numbers);
    // The completer has the text once more after its Enter.
    QTimer::singleShot(0, this, &QLineEdit::clear);
}

} // namespace kxpanel
