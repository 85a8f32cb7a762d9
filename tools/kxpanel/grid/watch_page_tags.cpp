// Tags files.

#include "kxpanel/grid/edit/add_line.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/tags/tag_fields.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/tags/tag_text.h"
#include "panel/files/replaced_file.h"
#include "panel/files/text_file.h"

#include <QtWidgets/QFileDialog>

namespace kxpanel
{

void WatchPage::askForTags()
{
    auto* const dialog = new QFileDialog(this, tr("Open Tags"), QString(),
                                         tr("Tags files (*.csv *.txt);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &WatchPage::openTags);
    dialog->open();
}

void WatchPage::askWhereToSaveTags()
{
    auto* const dialog =
        new QFileDialog(this, tr("Save Tags"), QString(), tr("Tags files (*.csv);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("csv"));
    connect(dialog, &QFileDialog::fileSelected, this, &WatchPage::saveTags);
    dialog->open();
}

bool WatchPage::saveTags(const QString& path)
{
    QList<kx::Tag> tags;
    for (const WatchedValue& value : m_context.tags->values())
        tags << value.tag;
    QString error;
    const bool isSaved = kx::replaceFile(path, tagsFileText(tags), &error);
    say(isSaved ? tr("%n values saved in %1", nullptr, static_cast<int>(tags.size())).arg(path)
                : error,
        !isSaved);
    return isSaved;
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
        dropAddressName(&tag);
    }
    addTags(tags, m_model->rowCount());
    return true;
}

} // namespace kxpanel
