#include "kxpanel/recipes/recipes_page.h"

#include "kxpanel/actions/message_label.h"
#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/recipes/download_bar.h"
#include "kxpanel/recipes/recipe_model.h"
#include "kxpanel/recipes/recipe_order.h"
#include "kxpanel/recipes/recipe_table.h"
#include "kxpanel/recipes/transfer_bar.h"
#include "kxpanel/recipes/transfer_texts.h"
#include "kxpanel/tags/tag_list.h"
#include "panel/recipe/recipe_storage.h"

#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTableView>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace kxpanel
{

RecipesPage::RecipesPage(const PageContext& context, QWidget* parent)
    : Page(parent),
      m_context(context),
      m_model(new RecipeModel(this)),
      m_order(new RecipeOrder(m_model, this)),
      m_question(new DownloadBar(this)),
      m_progress(new TransferBar(this)),
      m_fault(new MessageLabel(this)),
      m_table(makeRecipeTable(m_order, this)),
      m_counts(new QLabel(this))
{
    setWindowTitle(tr("Recipes"));
    m_fault->setObjectName(QStringLiteral("fault"));
    m_counts->setObjectName(QStringLiteral("counts"));
    if (context.machine) {
        m_run = new RecipeRun(context.machine, this);
        connect(m_run, &RecipeRun::ended, this, &RecipesPage::onEnded);
        connect(m_run, &RecipeRun::progress, m_progress, &TransferBar::setProgress);
        connect(m_progress, &TransferBar::aborted, m_run, &RecipeRun::abort);
        connect(context.machine, &Machine::lineChanged, this, &RecipesPage::onLineChanged);
    }
    QToolBar* const bar = makeActions();
    m_counts->setTextFormat(Qt::PlainText); // a file may have any name
    auto* const box = new QVBoxLayout(this);
    box->addWidget(bar);
    box->addWidget(m_question);
    box->addWidget(m_progress);
    box->addWidget(m_fault);
    box->addWidget(m_table, 1);
    box->addWidget(m_counts);
    connect(m_question, &DownloadBar::confirmed, this, &RecipesPage::download);
    connect(m_question, &DownloadBar::cancelled, m_table, qOverload<>(&QWidget::setFocus));
    setMainPart(m_table);
    complain(QString());
    refresh();
}

void RecipesPage::askWhatToOpen()
{
    auto* const dialog = new QFileDialog(this, tr("Open recipe"), QFileInfo(m_path).absolutePath(),
                                         tr("Recipes (*.csv);;All files (*)"));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, &RecipesPage::open);
    dialog->open();
}

void RecipesPage::open(const QString& path)
{
    if (take(path))
        emit layoutChanged();
}

bool RecipesPage::take(QString path)
{
    kx::RecipeDefaults defaults;
    defaults.station = m_station;
    if (m_context.tags) {
        for (const WatchedValue& value : m_context.tags->values())
            defaults.tags << value.tag;
    }
    QByteArray text;
    QString error;
    kx::RecipeFile file;
    const bool isRead = kx::readRecipeFile(path, &text, &error);
    if (!isRead || !kx::RecipeFile::parse(text, defaults, &file, &error)) {
        complain(isRead ? QStringLiteral("%1: %2").arg(path, error) : error);
        return false;
    }
    close();
    m_file = file;
    m_seen.see(path, text);
    m_path = std::move(path);
    m_isOpen = true;
    m_model->setRows(file.rows());
    refresh();
    return true;
}

void RecipesPage::reload()
{
    open(m_path);
}

void RecipesPage::close()
{
    leaveTransfer();
    m_question->hide();
    m_isOpen = false;
    m_path.clear();
    m_file = kx::RecipeFile();
    m_model->setRows({});
    m_before = ReadBefore();
    m_isUnsaved = false;
    complain(QString());
    refresh();
}

void RecipesPage::askWhereToSave()
{
    auto* const dialog = new QFileDialog(this, tr("Save what was read"), m_path,
                                         tr("Recipes (*.csv);;All files (*)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("csv"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, &RecipesPage::save);
    dialog->open();
}

void RecipesPage::save(const QString& path)
{
    QString error;
    if (!m_model->isRead())
        return;
    const QByteArray text = m_file.withValues(m_model->values());
    if (!m_seen.mayReplace(path, &error) || !kx::replaceRecipeFile(path, text, &error))
        return complain(error);
    if (QFileInfo(path) == QFileInfo(m_path)) {
        m_seen.see(path, text);
        m_model->takeValues();
    }
    m_question->hide(); // it was about other values, or that these are not saved
    m_isUnsaved = false;
    refresh();
    complain(QString());
    emit said(tr("%n value(s) saved in %1", nullptr, m_model->rowCount()).arg(path));
}

void RecipesPage::complain(const QString& fault)
{
    showFaultColour();
    m_fault->say(fault.isEmpty()
                     ? QString()
                     : verdictSymbol(ExchangeVerdict::Failed) + QLatin1Char(' ') + fault);
    m_fault->setVisible(!fault.isEmpty());
    if (!fault.isEmpty())
        emit said(QString()); // what went well before
}

void RecipesPage::showFaultColour()
{
    QPalette colours = m_fault->palette();
    colours.setColor(QPalette::WindowText, verdictColour(ExchangeVerdict::Failed, palette()));
    m_fault->setPalette(colours);
}

void RecipesPage::changeEvent(QEvent* event)
{
    Page::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showFaultColour();
}

void RecipesPage::refresh()
{
    const bool isRunning = m_run && m_run->isRunning();
    m_progress->setVisible(isRunning);
    m_open->setEnabled(!isRunning);
    m_reload->setEnabled(!m_path.isEmpty() && !isRunning);
    for (QAction* const action : {m_read, m_download})
        action->setEnabled(m_isOpen && !isRunning && m_run);
    m_save->setEnabled(m_model->isRead() && !isRunning);
    m_counts->setText(m_isOpen ? countsText()
                               : tr("Open a recipe to compare it with the controller."));
}

QString RecipesPage::countsText() const
{
    QString text =
        QStringLiteral("%1: %2").arg(QFileInfo(m_path).fileName(), comparisonWords(*m_model));
    if (m_model->isRead() && m_readFrom != m_line)
        text += tr("; read from %1").arg(m_readFrom);
    return m_isUnsaved ? text + tr("; what was read is not saved") : text;
}

QJsonObject RecipesPage::layout() const
{
    QJsonObject layout = Page::layout();
    layout[QLatin1String("file")] = m_path;
    layout[QLatin1String("differencesOnly")] = m_differencesOnly->isChecked();
    return layout;
}

void RecipesPage::setLayout(const QJsonObject& layout)
{
    Page::setLayout(layout);
    m_differencesOnly->setChecked(layout.value(QStringLiteral("differencesOnly")).toBool());
    close();
    m_path = layout.value(QStringLiteral("file")).toString();
    if (!m_path.isEmpty())
        take(m_path);
    refresh();
}

QByteArray RecipesPage::place() const
{
    return m_table->horizontalHeader()->saveState();
}

void RecipesPage::setPlace(const QByteArray& place)
{
    restoreHeadings(m_table, place);
}

} // namespace kxpanel
