// Copy and paste, from and to spreadsheets.

#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/cell_values.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/tags/tag_text.h"

#include <QtCore/QLocale>
#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>

namespace kxpanel
{

namespace
{

/// The language of its numbers. The program's own, which QLocale() is, writes them in one way.
QLocale ofTheDesktop()
{
    return QLocale::system();
}

/// Of what the program itself copied: numbers as it writes them.
QLocale localeOf(const QMimeData* copied)
{
    const bool isOwn = copied && copied->hasFormat(QString::fromLatin1(TAGS_MIME_TYPE));
    return isOwn ? QLocale::c() : ofTheDesktop();
}

CellNotes notesOfClipboard()
{
    return CellNotes([] { return QApplication::clipboard()->mimeData()->html(); });
}

} // namespace

void WatchPage::copySelected()
{
    QList<kx::Tag> tags;
    for (const int number : m_table->selectedNumbers())
        tags << m_context.tags->find(number)->tag;
    if (!tags.isEmpty())
        QApplication::clipboard()->setMimeData(tagsData(tags));
}

void WatchPage::copyShown()
{
    if (!m_table->selectedNumbers().isEmpty())
        QApplication::clipboard()->setMimeData(m_table->selectedData());
}

void WatchPage::cutSelected()
{
    copySelected();
    removeSelected();
}

/// Rows behind the current one, or at the end; what is no address are values of selected rows.
void WatchPage::paste()
{
    const QClipboard& clipboard = *QApplication::clipboard();
    const QString text = clipboard.text();
    QList<kx::Tag> tags;
    QString fault;
    const QLocale locale = localeOf(clipboard.mimeData());
    if (parseTagsText(text, m_addLine->station(), &tags, &fault, locale, notesOfClipboard()))
        addTags(tags, qMin(m_table->currentModelRow() + 1, m_model->rowCount()));
    else if (!pasteValues(text))
        say(tr("Nothing pasted: %1").arg(fault), true);
}

/// False when the text looks like no values; texts are some on cells of values alone.
bool WatchPage::pasteValues(const QString& text)
{
    const bool isNumber = looksLikeNumber(text.trimmed());
    if (!isNumber && m_table->currentIndex().column() != WatchModel::Value)
        return false;
    QString fault;
    if (askToPaste(text, &fault))
        return true;
    if (isNumber)
        say(tr("Nothing pasted: %1").arg(fault), true);
    return isNumber;
}

bool WatchPage::askToPaste(const QString& text, QString* fault)
{
    QStringList texts;
    if (!parseColumn(text, &texts, fault))
        return false;
    const int count = static_cast<int>(texts.size());
    QList<QPair<WatchedValue, QString>> values;
    CellNotes notes = notesOfClipboard();
    for (const int number : rowsForValues(count)) {
        const WatchedValue& value = *m_context.tags->find(number);
        const int row = count == 1 ? 0 : static_cast<int>(values.size());
        const QString& cell = texts.at(row);
        *fault = thousandsFault(value.tag, cell, ofTheDesktop());
        const std::optional<QString> typed = fault->isEmpty()
                                                 ? typedValue(value.tag, cell, ofTheDesktop())
                                                 : notes.numberIn(row, {cell}, 0);
        if (!typed)
            return false;
        values << qMakePair(value, *typed);
    }
    *fault = tr("%n values for other rows: select as many, or the first of them", nullptr, count);
    return !values.isEmpty() && m_writeBar->askEach(values, fault);
}

/// Numbers of the values that so many are meant for: one for all that are selected, one for each,
/// or from the selected row downwards; none when that does not come out even.
QList<int> WatchPage::rowsForValues(int values) const
{
    const QList<int> selected = m_table->selectedNumbers();
    if (values == 1 || values == selected.size())
        return selected;
    return selected.size() == 1 ? m_table->numbersFrom(selected.first(), values) : QList<int>();
}

} // namespace kxpanel
