// The page's side of a transfer: what is asked before it, and what its end means.
#include "kxpanel/machine/machine.h"
#include "kxpanel/recipes/download_bar.h"
#include "kxpanel/recipes/recipe_model.h"
#include "kxpanel/recipes/recipes_page.h"
#include "kxpanel/recipes/transfer_bar.h"
#include "kxpanel/recipes/transfer_texts.h"
#include "panel/recipe/recipe_layout.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTableView>

#include <utility>

namespace kxpanel
{

namespace
{

/// A download of which no station can have stored anything.
bool sentNothing(const RecipeOutcome& outcome)
{
    return outcome.direction == kx::RecipeDirection::Download && outcome.blocksDone.isEmpty()
           && outcome.blockMaybeDone.isEmpty();
}

} // namespace

void RecipesPage::read()
{
    start(kx::RecipeDirection::Upload);
}

void RecipesPage::askToDownload()
{
    QString error;
    if (!kx::canBeDownloaded(m_model->rows(), &error))
        return complain(tr("Nothing was sent: %1").arg(error));
    complain(QString());
    m_question->ask(m_model->rows(), m_isUnsaved);
}

void RecipesPage::download()
{
    m_before = {m_model->values(), m_isUnsaved};
    m_model->setValues({}); // they will be others
    m_isUnsaved = false;
    m_table->setFocus();
    start(kx::RecipeDirection::Download);
}

void RecipesPage::start(kx::RecipeDirection direction)
{
    complain(QString());
    m_question->hide();
    m_progress->begin(direction);
    m_run->start(direction, m_model->rows());
    refresh();
}

void RecipesPage::onEnded(const RecipeOutcome& outcome)
{
    if (!m_left.isEmpty())
        return onLeftEnded(outcome);
    const bool isGood = outcome.fault.isEmpty();
    const bool wasChecking = m_isCheckingDownload;
    m_isCheckingDownload = isGood && outcome.direction == kx::RecipeDirection::Download;
    if (m_isCheckingDownload)
        return start(kx::RecipeDirection::Upload);
    if (isGood)
        takeRead(outcome.values, !wasChecking);
    else if (sentNothing(outcome))
        takeBack();
    refresh();
    if (!isGood)
        complainOf(outcome, wasChecking);
    else if (wasChecking && m_model->count(RecipeState::Differs) > 0)
        complain(tr("All was sent, but the controller has %n other value(s) than were sent",
                    nullptr, m_model->count(RecipeState::Differs)));
    else
        emit said(wasChecking ? tr("Sent, and read again from %1").arg(m_readFrom)
                              : tr("Read from %1").arg(m_readFrom));
}

void RecipesPage::takeRead(const QList<QList<qint64>>& values, bool areNews)
{
    m_model->setValues(values);
    m_readFrom = m_line;
    m_isUnsaved = areNews && m_model->count(RecipeState::Same) < m_model->rowCount();
}

/// What was read before a download of which nothing was sent.
void RecipesPage::takeBack()
{
    m_model->setValues(m_before.values);
    m_isUnsaved = m_before.isUnsaved;
}

void RecipesPage::complainOf(const RecipeOutcome& outcome, bool wasChecking)
{
    const QString words = failureWords(outcome);
    if (wasChecking)
        complain(tr("All was sent, but not compared. %1").arg(words));
    else
        complain(m_model->isRead() ? tr("%1; the values shown were read before").arg(words)
                                   : words);
}

void RecipesPage::leaveTransfer()
{
    if (m_run && m_run->isRunning() && m_left.isEmpty()) {
        m_left = QFileInfo(m_path).fileName();
        m_run->abort();
    }
    m_isCheckingDownload = false;
}

void RecipesPage::onLeftEnded(const RecipeOutcome& outcome)
{
    const QString file = std::exchange(m_left, QString());
    refresh();
    if (outcome.direction == kx::RecipeDirection::Upload)
        return; // nobody looks at what was read
    if (outcome.fault.isEmpty())
        emit said(tr("%1 was sent").arg(file));
    else
        complain(QStringLiteral("%1: %2").arg(file, failureWords(outcome)));
}

void RecipesPage::onLineChanged(const LineStatus& status)
{
    if (status.state == LineState::Open)
        m_line = status.name;
    else if (status.state != LineState::Interrupted)
        m_question->hide(); // which was about another line
    refresh();
}

} // namespace kxpanel
