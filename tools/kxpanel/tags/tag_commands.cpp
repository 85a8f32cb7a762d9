#include "kxpanel/tags/tag_commands.h"

#include "kxpanel/tags/tag_fields.h"
#include "kxpanel/tags/tag_list.h"

#include <QUndoStack> // in another module since Qt 6
#include <QtCore/QHash>
#include <QtCore/QSet>

#include <algorithm>

namespace kxpanel
{

namespace
{

QList<int> numbersOf(const QList<WatchedValue>& values)
{
    QList<int> numbers;
    for (const WatchedValue& value : values)
        numbers << value.number;
    return numbers;
}

} // namespace

void pushEdit(QUndoStack* stack, std::unique_ptr<QUndoCommand> edit)
{
    if (!edit->isObsolete()) // the stack drops what was undone for these, too
        stack->push(edit.release());
}

InsertTags::InsertTags(TagList* list, int row, const QList<kx::Tag>& tags)
    : m_list(list), m_row(row), m_tags(tags)
{
    setText(tr("adding of values"));
}

QList<int> InsertTags::numbers() const
{
    return numbersOf(m_values);
}

void InsertTags::redo()
{
    if (m_values.isEmpty()) {
        for (const int number : m_list->insert(m_row, m_tags))
            m_values << *m_list->find(number);
        m_tags.clear();
        return;
    }
    m_list->setValues(m_list->values().mid(0, m_row) + m_values + m_list->values().mid(m_row));
}

void InsertTags::undo()
{
    m_list->remove(numbers());
}

RemoveTags::RemoveTags(TagList* list, const QList<int>& numbers) : m_list(list)
{
    setText(tr("removal of values"));
    for (const int number : numbers) {
        if (const WatchedValue* const value = list->find(number))
            m_removed << qMakePair(list->rowOf(number), *value);
    }
    std::sort(m_removed.begin(), m_removed.end(),
              [](const auto& one, const auto& other) { return one.first < other.first; });
}

void RemoveTags::redo()
{
    QList<int> numbers;
    for (const auto& removed : m_removed)
        numbers << removed.second.number;
    m_list->remove(numbers);
}

void RemoveTags::undo()
{
    QList<WatchedValue> values;
    auto kept = m_list->values().begin();
    for (const auto& removed : m_removed) {
        while (values.size() < removed.first)
            values << *kept++;
        values << removed.second;
    }
    while (kept != m_list->values().end())
        values << *kept++;
    m_list->setValues(values);
}

MoveTags::MoveTags(TagList* list, const QList<int>& numbers, int row)
    : m_list(list), m_before(numbersOf(list->values()))
{
    setText(tr("moving of values"));
    const QSet<int> moved(numbers.begin(), numbers.end());
    QList<int> front;
    QList<int> block;
    QList<int> back;
    for (int i = 0; i < m_before.size(); ++i) {
        const int number = m_before.at(i);
        (moved.contains(number) ? block : i < row ? front : back) << number;
    }
    m_after = front + block + back;
    setObsolete(m_after == m_before);
}

void MoveTags::redo()
{
    setOrder(m_after);
}

void MoveTags::undo()
{
    setOrder(m_before);
}

void MoveTags::setOrder(const QList<int>& numbers)
{
    QList<WatchedValue> values;
    for (const int number : numbers)
        values << *m_list->find(number);
    m_list->setValues(values);
}

EditTag::EditTag(TagList* list, const WatchedValue& before, const kx::Tag& after)
    : m_list(list), m_before(before), m_after(after)
{
    setText(tr("edit of %1").arg(TagList::shownName(before)));
    setObsolete(before.tag.name == after.name && tagFields(before.tag) == tagFields(after));
}

void EditTag::redo()
{
    m_list->replace(m_before.number, m_after);
}

void EditTag::undo()
{
    m_list->replace(m_before.number, m_before.tag);
}

} // namespace kxpanel
