#include "kxpanel/actions/page_action.h"
#include "kxpanel/recipes/recipe_order.h"
#include "kxpanel/recipes/recipes_page.h"

#include <QtWidgets/QToolBar>

namespace kxpanel
{

QAction* RecipesPage::makeAction(const QString& text, const QKeySequence& shortcut,
                                 const QString& tip, void (RecipesPage::*slot)())
{
    QAction* const action = pageAction(this, text, shortcut, tip);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

QToolBar* RecipesPage::makeActions()
{
    m_open = makeAction(tr("Open recipe..."), Qt::CTRL | Qt::SHIFT | Qt::Key_O,
                        tr("Open a recipe file (CSV)"), &RecipesPage::askWhatToOpen);
    m_reload =
        makeAction(tr("Reload"), Qt::Key_F5, tr("Open the same file again"), &RecipesPage::reload);
    m_read = makeAction(tr("Read from controller"), Qt::CTRL | Qt::Key_R,
                        tr("Read all values of the recipe and compare them"), &RecipesPage::read);
    m_download = makeAction(tr("Download..."), Qt::CTRL | Qt::Key_D,
                            tr("Send the values in the file to the controller; asks first"),
                            &RecipesPage::askToDownload);
    m_differencesOnly = pageAction(this, tr("Differences only"), Qt::CTRL | Qt::SHIFT | Qt::Key_D,
                                   tr("Show the values that differ and no others"));
    m_differencesOnly->setCheckable(true);
    connect(m_differencesOnly, &QAction::toggled, this, [this](bool only) {
        m_order->setDifferencesOnly(only);
        emit layoutChanged();
    });
    m_save =
        makeAction(tr("Save what was read..."), Qt::CTRL | Qt::Key_E,
                   tr("Save the file with the controller's values"), &RecipesPage::askWhereToSave);
    auto* const bar = new QToolBar(this);
    bar->addActions({m_open, m_reload});
    bar->addSeparator();
    bar->addActions({m_read, m_download});
    bar->addSeparator();
    bar->addActions({m_differencesOnly, m_save});
    return bar;
}

} // namespace kxpanel
