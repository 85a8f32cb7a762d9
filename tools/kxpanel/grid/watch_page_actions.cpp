// What a person can do on the page, each by a key and from the tool bar or the context menu.

#include "kxpanel/actions/page_action.h"
#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/edit/filter_line.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_commands.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/tags/tag_text.h"
#include "panel/files/text_file.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolBar>

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
    QAction* const open = makeAction(tr("Open &Tags…"), QStringLiteral("Ctrl+T"),
                                     tr("Add the values of a tags file"), &WatchPage::askForTags);
    QAction* const remove =
        makeAction(tr("&Remove"), QKeySequence::Delete,
                   tr("Remove the selected values from the list"), &WatchPage::removeSelected);
    m_toolBar->addActions({add, open, remove, separator(this), undo, redo, separator(this)});
    m_editActions = {
        undo,
        redo,
        separator(this),
        makeAction(tr("Cu&t"), QKeySequence::Cut, tr("Take the selected values to the clipboard"),
                   &WatchPage::cutSelected),
        makeAction(tr("&Copy"), QKeySequence::Copy,
                   tr("Copy the selected values as rows of a tags file"), &WatchPage::copySelected),
        makeAction(tr("Copy as &Shown"), QStringLiteral("Ctrl+Shift+C"),
                   tr("Copy the cells of the selected rows for a spreadsheet"),
                   &WatchPage::copyShown),
        makeAction(tr("&Paste"), QKeySequence::Paste,
                   tr("Add addresses or rows of a tags file from the clipboard"),
                   &WatchPage::paste),
        remove,
    };
}

void WatchPage::makeMoveActions()
{
    m_editActions << separator(this)
                  << makeAction(tr("Move U&p"), QStringLiteral("Alt+Up"),
                                tr("Move the selected values up in the list"), &WatchPage::moveUp)
                  << makeAction(tr("Move Do&wn"), QStringLiteral("Alt+Down"),
                                tr("Move the selected values down in the list"),
                                &WatchPage::moveDown);
    QAction* const again = makeAction(
        tr("S&ort Again"), Qt::Key_F5,
        tr("Sort by the values of now; rows do not move by themselves"), &WatchPage::sortAgain);
    QAction* const unsorted =
        makeAction(tr("&List Order"), QStringLiteral("Shift+F5"),
                   tr("Show rows in the order of the list"), &WatchPage::listOrder);
    QAction* const find = makeAction(tr("&Find"), QKeySequence::Find,
                                     tr("Show the rows with some text only"), &WatchPage::findText);
    makeAction(tr("Show All"), Qt::Key_Escape, tr("Show all rows again"), &WatchPage::showAll);
    m_editActions << separator(this) << find << again << unsorted;
    m_toolBar->addActions({find, again, unsorted, separator(this)});
}

void WatchPage::makeWriteActions()
{
    QAction* const edit = makeAction(tr("&Edit Cell"), Qt::Key_F2, tr("Edit the current cell"),
                                     &WatchPage::editCurrent);
    QAction* const write =
        makeAction(tr("&Write…"), QStringLiteral("Ctrl+Return"),
                   tr("Write one value to all selected rows"), &WatchPage::writeSelected);
    QAction* const flip =
        makeAction(tr("S&witch Bit"), Qt::Key_Space,
                   tr("Write the other value to the selected bit"), &WatchPage::switchSelected);
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
    const int shown = static_cast<int>(m_table->selectedNumbers().size());
    say(shown < count ? tr("%n values added; the filter hides some", nullptr, count)
                      : tr("%n values added", nullptr, count),
        false);
}

void WatchPage::beginTyping()
{
    m_addLine->edit()->setFocus();
    m_addLine->edit()->selectAll();
}

void WatchPage::askForTags()
{
    auto* const dialog = new QFileDialog(this, tr("Open Tags"), QString(),
                                         tr("Tags files (*.csv *.txt);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &WatchPage::openTags);
    dialog->open();
}

bool WatchPage::openTags(const QString& path)
{
    QByteArray content;
    QString error;
    QList<kx::Tag> tags;
    QStringList faults;
    if (kx::readTextFile(path, &content, &error))
        faults = kx::tagFaults(content, path, &tags);
    else
        faults << error;
    showFaults(faults.size() > 1 ? faults : QStringList());
    if (!faults.isEmpty()) {
        say(faults.size() == 1 ? faults.first()
                               : tr("%1 has %n faults; nothing was added", nullptr,
                                    static_cast<int>(faults.size()))
                                     .arg(path),
            true);
        return false;
    }
    for (kx::Tag& tag : tags) {
        if (tag.range.station < 0)
            tag.range.station = m_addLine->station();
    }
    addTags(tags, m_model->rowCount());
    return true;
}

void WatchPage::removeSelected()
{
    const QList<int> numbers = m_table->selectedNumbers();
    if (!numbers.isEmpty())
        m_undo.push(new RemoveTags(m_context.tags, numbers));
}

void WatchPage::copySelected()
{
    QList<kx::Tag> tags;
    for (const int number : m_table->selectedNumbers())
        tags << m_context.tags->find(number)->tag;
    if (!tags.isEmpty())
        QApplication::clipboard()->setText(tagsText(tags));
}

void WatchPage::copyShown()
{
    if (!m_table->selectedNumbers().isEmpty())
        QApplication::clipboard()->setText(m_table->selectedText());
}

void WatchPage::cutSelected()
{
    copySelected();
    removeSelected();
}

/// Behind the current row, or at the end.
void WatchPage::paste()
{
    const QString text = QApplication::clipboard()->text();
    QList<kx::Tag> tags;
    QString fault;
    if (!parseTagsText(text, m_addLine->station(), &tags, &fault)) {
        say(tr("Nothing pasted: %1").arg(fault), true);
        return;
    }
    addTags(tags, qMin(m_table->currentModelRow() + 1, m_model->rowCount()));
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
        m_undo.push(new MoveTags(m_context.tags, numbers, row));
}

} // namespace kxpanel
