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
    m_open = makeAction(tr("Open recipe..."), QStringLiteral("Ctrl+Shift+O"),
                        tr("Open a recipe file (CSV)"), &RecipesPage::askWhatToOpen);
    m_reload =
        makeAction(tr("Reload"), Qt::Key_F5, tr("Open the same file again"), &RecipesPage::reload);
    m_read = makeAction(tr("Read from controller"), QStringLiteral("Ctrl+R"),
                        tr("Read all values of the recipe and compare them"), &RecipesPage::read);
    m_download = makeAction(tr("Download..."), QStringLiteral("Ctrl+D"),
                            tr("Send the values in the file to the controller; asks first"),
                            &RecipesPage::askToDownload);
    m_differencesOnly = pageAction(this, tr("Differences only"), QStringLiteral("Ctrl+Shift+D"),
                                   tr("Show the values that differ and no others"));
    m_differencesOnly->setCheckable(true);
    connect(m_differencesOnly, &QAction::toggled, this, [this](bool only) {
        m_order->setDifferencesOnly(only);
        emit layoutChanged();
    });
    m_save =
        makeAction(tr("Save what was read..."), QStringLiteral("Ctrl+E"),
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
