/// Edits of the list of values that can be undone.
#ifndef KX_KXPANEL_TAGS_TAG_COMMANDS_H
#define KX_KXPANEL_TAGS_TAG_COMMANDS_H

#include "kxpanel/machine/machine_events.h"

#include <QUndoCommand> // in another module since Qt 6
#include <QtCore/QCoreApplication>

#include <memory>

class QUndoStack;

namespace kxpanel
{

class TagList;

/// Does the edit, unless it changes nothing: what was undone before can be done again then.
void pushEdit(QUndoStack* stack, std::unique_ptr<QUndoCommand> edit);

/// Puts tags in front of a row.
class InsertTags : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::InsertTags)

public:
    InsertTags(TagList* list, int row, const QList<kx::Tag>& tags);
    /// Of the values, once it was done.
    QList<int> numbers() const;
    void redo() override;
    void undo() override;

private:
    TagList* m_list;
    int m_row;
    QList<kx::Tag> m_tags;        ///< until it was done for the first time
    QList<WatchedValue> m_values; ///< which they became
};

class RemoveTags : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::RemoveTags)

public:
    RemoveTags(TagList* list, const QList<int>& numbers);
    void redo() override;
    void undo() override;

private:
    TagList* m_list;
    QList<QPair<int, WatchedValue>> m_removed; ///< with their rows, rising
};

/// Puts values, in their order, in front of the one of a row. Obsolete where that changes nothing.
class MoveTags : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::MoveTags)

public:
    /// @param row as it is before; past the last one: the end
    MoveTags(TagList* list, const QList<int>& numbers, int row);
    void redo() override;
    void undo() override;

private:
    void setOrder(const QList<int>& numbers);

    TagList* m_list;
    QList<int> m_before; ///< all numbers
    QList<int> m_after;
};

/// Obsolete where nothing is other.
class EditTag : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::EditTag)

public:
    EditTag(TagList* list, const WatchedValue& before, const kx::Tag& after);
    void redo() override;
    void undo() override;

private:
    TagList* m_list;
    WatchedValue m_before;
    kx::Tag m_after;
};

} // namespace kxpanel

#endif
