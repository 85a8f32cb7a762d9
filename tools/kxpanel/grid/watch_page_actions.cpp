// What a person can do on the page, each by a key and from the tool bar or the context menu.

#include "kxpanel/actions/page_action.h"
#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_commands.h"
#include "kxpanel/tags/tag_list.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolBar>

#include <algorithm>

namespace kxpanel
{

namespace
{

QAction* separator(QObject* parent)
{
    auto* const action = new QAction(parent);
    action->setSeparator(true);
    return action;
}

} // namespace

QAction* WatchPage::makeAction(const QString& text, const QKeySequence& shortcut,
                               const QString& tip, void (WatchPage::*slot)())
{
    QAction* const action = pageAction(this, text, shortcut, tip);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

/// Its key is the table's alone: Space on a button beside it must write nothing.
QAction* WatchPage::makeTableAction(const QString& text, const QKeySequence& shortcut,
                                    const QString& tip, void (WatchPage::*slot)())
{
    QAction* const action = makeAction(text, shortcut, tip, slot);
    action->setShortcutContext(Qt::WidgetShortcut);
    return action;
}

void WatchPage::makeEditActions()
{
    QAction* const undo = m_undo.createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* const redo = m_undo.createRedoAction(this, tr("&Redo"));
    redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Y")), QKeySequence(QStringLiteral("Ctrl+Shift+Z"))});
    for (QAction* const action : {undo, redo}) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
    }
    QAction* const add = makeAction(tr("&Add"), Qt::Key_Insert, tr("Type an address to watch"),
                                    &WatchPage::beginTyping);
    QAction* const open = makeAction(tr("&Open Tags…"), QStringLiteral("Ctrl+T"),
                                     tr("Add the values of a tags file"), &WatchPage::askForTags);
    QAction* const remove =
        makeTableAction(tr("Re&move"), QKeySequence::Delete,
                        tr("Remove the selected values from the list"), &WatchPage::removeSelected);
    QAction* const save = makeAction(tr("Sa&ve Tags…"), QStringLiteral("Ctrl+Shift+T"),
                                     tr("Save all values as a tags file, which kxhost takes, too"),
                                     &WatchPage::askWhereToSaveTags);
    m_toolBar->addActions({add, open, save, remove, separator(this), undo, redo, separator(this)});
    m_editActions = {
        undo,
        redo,
        separator(this),
        makeTableAction(tr("Cu&t"), QKeySequence::Cut,
                        tr("Take the selected values to the clipboard"), &WatchPage::cutSelected),
        makeTableAction(tr("&Copy"), QKeySequence::Copy,
                        tr("Copy the selected values as rows of a tags file"),
                        &WatchPage::copySelected),
        makeTableAction(tr("Copy as &Shown"), QStringLiteral("Ctrl+Shift+C"),
                        tr("Copy the cells of the selected rows for a spreadsheet"),
                        &WatchPage::copyShown),
        makeTableAction(
            tr("&Paste"), QKeySequence::Paste,
            tr("Add addresses or rows of a tags file from the clipboard, or write values "
               "to the selected cells"),
            &WatchPage::paste),
        remove,
    };
}

void WatchPage::makeMoveActions()
{
    m_editActions << separator(this)
                  << makeTableAction(tr("Mov&e Up"), QStringLiteral("Alt+Up"),
                                     tr("Move the selected values up in the list"),
                                     &WatchPage::moveUp)
                  << makeTableAction(tr("Move &Down"), QStringLiteral("Alt+Down"),
                                     tr("Move the selected values down in the list"),
                                     &WatchPage::moveDown);
    QAction* const again = makeAction(
        tr("Sort A&gain"), Qt::Key_F5,
        tr("Sort by the values of now; rows do not move by themselves"), &WatchPage::sortAgain);
    QAction* const unsorted =
        makeAction(tr("&List Order"), QStringLiteral("Shift+F5"),
                   tr("Show rows in the order of the list"), &WatchPage::listOrder);
    QAction* const find = makeAction(tr("&Find"), QKeySequence::Find,
                                     tr("Show the rows with some text only"), &WatchPage::findText);
    makeAction(tr("Show All"), Qt::Key_Escape, tr("Show all rows again"), &WatchPage::showAll);
    auto* const columns = new QMenu(tr("Colum&ns"), this); // a heading cannot have the keyboard
    columns->addActions(m_table->columnActions());
    addAction(columns->menuAction());
    m_editActions << separator(this) << find << again << unsorted << columns->menuAction();
    m_toolBar->addActions({find, again, unsorted, separator(this)});
}

void WatchPage::makeWriteActions()
{
    QAction* const edit = makeTableAction(tr("Ed&it Cell"), Qt::Key_F2, tr("Edit the current cell"),
                                          &WatchPage::editCurrent);
    QAction* const write =
        makeTableAction(tr("&Write…"), QStringLiteral("Ctrl+Return"),
                        tr("Write one value to all selected rows"), &WatchPage::writeSelected);
    QAction* const flip = makeTableAction(tr("Switch &Bit"), Qt::Key_Space,
                                          tr("Write the other value to the selected bit"),
                                          &WatchPage::switchSelected);
    m_toolBar->addActions({write, flip});
    m_table->addActions(QList<QAction*>{edit, write, flip, separator(this)} + m_editActions);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void WatchPage::addTags(const QList<kx::Tag>& tags, int row)
{
    auto* const command = new InsertTags(m_context.tags, row, tags);
    m_undo.push(command);
    const QList<int> numbers = command->numbers();
    m_table->select(numbers);
    const int count = static_cast<int>(numbers.size());
    const auto isShown = [this](int number) { return m_table->cellOf(number).isValid(); };
    const bool areShown = std::all_of(numbers.begin(), numbers.end(), isShown);
    say(!areShown ? tr("%n values added; the filter hides some", nullptr, count)
                  : tr("%n values added", nullptr, count),
        false);
}

void WatchPage::beginTyping()
{
    m_addLine->edit()->setFocus();
    m_addLine->edit()->selectAll();
}

void WatchPage::removeSelected()
{
    const QList<int> numbers = m_table->selectedNumbers();
    if (!numbers.isEmpty())
        m_undo.push(new RemoveTags(m_context.tags, numbers));
}

void WatchPage::moveUp()
{
    moveSelected(-1);
}

void WatchPage::moveDown()
{
    moveSelected(1);
}

/// As a block, past the row above or below it.
void WatchPage::moveSelected(int step)
{
    const QList<int> numbers = m_table->selectedNumbers();
    if (numbers.isEmpty())
        return;
    if (m_filter->sortColumn() >= 0 || m_filter->isFiltering()) {
        say(tr("Rows are moved in the order of the list: Shift+F5 and Esc show it"), true);
        return;
    }
    const int row =
        step < 0 ? m_model->rowOf(numbers.first()) - 1 : m_model->rowOf(numbers.last()) + 2;
    if (row >= 0 && row <= m_model->rowCount())
        pushEdit(&m_undo, std::make_unique<MoveTags>(m_context.tags, numbers, row));
}

} // namespace kxpanel
