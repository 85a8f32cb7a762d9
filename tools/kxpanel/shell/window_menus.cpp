#include "kxpanel/shell/window_menus.h"

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/menu_letters.h"
#include "kxpanel/shell/project_keeper.h"
#include "kxpanel/shell/shortcut_list.h"
#include "kxpanel/shell/version_text.h"

#include <QAction>      // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QActionGroup> // the same
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>

#include <algorithm>

namespace kxpanel
{

namespace
{

QString themeSetting()
{
    return QStringLiteral("theme");
}

/// Keys that a field or a button may want for itself are not.
bool isForTheWindow(const QKeySequence& shortcut)
{
    static const QRegularExpression pattern(QStringLiteral("Ctrl\\+|F[0-9]+$"));
    return pattern.match(shortcut.toString(QKeySequence::PortableText)).hasMatch();
}

/// What the menu shows works while the page is shown, wherever the keyboard is.
void widen(QAction* action)
{
    const QList<QKeySequence> shortcuts = action->shortcuts();
    if (action->shortcutContext() == Qt::WidgetWithChildrenShortcut && !shortcuts.isEmpty()
        && std::all_of(shortcuts.begin(), shortcuts.end(), isForTheWindow))
        action->setShortcutContext(Qt::WindowShortcut);
}

} // namespace

WindowMenus::WindowMenus(MainWindow* window, ProjectKeeper* project, QSettings* settings)
    : QObject(window), m_window(window), m_project(project), m_settings(settings)
{
    makeFileMenu();
    makeEditMenu();
    makeLineMenu();
    makeViewMenu();
    makeHelpMenu();
}

QAction* WindowMenus::add(QMenu* menu, const QString& text, const QKeySequence& shortcut,
                          const QString& tip)
{
    QAction* const action = menu->addAction(text);
    action->setShortcut(shortcut);
    action->setStatusTip(tip);
    return action;
}

void WindowMenus::makeFileMenu()
{
    QMenu* const menu = m_window->menuBar()->addMenu(tr("&File"));
    connect(add(menu, tr("&New"), QKeySequence::New, tr("Begin an empty project")),
            &QAction::triggered, m_project, &ProjectKeeper::beginNew);
    connect(add(menu, tr("&Open..."), QKeySequence::Open,
                tr("Open a project, or add the tags of a tags file")),
            &QAction::triggered, m_project, &ProjectKeeper::chooseFile);
    m_recent = menu->addMenu(tr("Open &recent"));
    connect(m_project, &ProjectKeeper::stateChanged, this, &WindowMenus::showRecentFiles);
    connect(menu, &QMenu::aboutToShow, this, &WindowMenus::showRecentFiles); // other windows' too
    showRecentFiles();
    menu->addSeparator();
    connect(add(menu, tr("&Save"), QKeySequence::Save, tr("Save the project")), &QAction::triggered,
            m_project, &ProjectKeeper::save);
    connect(add(menu, tr("Save &as..."), QKeySequence(QStringLiteral("Ctrl+Shift+S")),
                tr("Save the project in another file")),
            &QAction::triggered, m_project, &ProjectKeeper::saveAs);
    menu->addSeparator();
    connect(add(menu, tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), tr("Close the window")),
            &QAction::triggered, m_window, &QWidget::close);
}

void WindowMenus::showRecentFiles()
{
    m_recent->clear();
    const QStringList files = m_project->recentFiles();
    QStringList names;
    for (const QString& path : files)
        names << QFileInfo(path).fileName();
    for (const QString& path : files) {
        QString name = QFileInfo(path).fileName();
        if (names.count(name) > 1) // in folders that tell them apart
            name = path;
        QAction* const action =
            m_recent->addAction(name.replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setStatusTip(path);
        connect(action, &QAction::triggered, m_project,
                [this, path] { m_project->openRecent(path); });
    }
    m_recent->setEnabled(!files.isEmpty());
}

void WindowMenus::makeEditMenu()
{
    m_edit = m_window->menuBar()->addMenu(tr("&Edit"));
    for (const Page* const page : m_window->pages()) {
        for (QAction* const action : page->actions())
            widen(action);
    }
    connect(m_edit, &QMenu::aboutToShow, this, &WindowMenus::showPageActions); // by other names
    showPageActions();
}

void WindowMenus::showPageActions()
{
    m_edit->clear();
    const Page* const page = m_window->currentPage();
    const QList<QAction*> actions = page ? page->actions() : QList<QAction*>();
    m_edit->addActions(actions);
    QStringList texts;
    for (const QAction* const action : actions)
        texts << action->text();
    texts = withOwnLetters(texts);
    for (int i = 0; i < texts.size(); ++i)
        actions.at(i)->setText(texts.at(i));
    m_edit->menuAction()->setEnabled(!m_edit->isEmpty());
}

void WindowMenus::makeLineMenu()
{
    QMenu* const menu = m_window->menuBar()->addMenu(tr("&Line"));
    menu->addAction(m_window->connectionBar()->connectAction());
    menu->addAction(m_window->connectionBar()->scanAction());
}

void WindowMenus::makeViewMenu()
{
    QMenu* const menu = m_window->menuBar()->addMenu(tr("&View"));
    int number = 1;
    for (Page* const page : m_window->pages()) {
        QAction* const action =
            add(menu, page->windowTitle(), QKeySequence(QStringLiteral("Alt+%1").arg(number++)),
                tr("Show the page '%1'").arg(page->windowTitle()));
        connect(action, &QAction::triggered, m_window, [this, page] { m_window->showPage(page); });
    }
    menu->addSeparator();
    makeThemeMenu(menu);
}

void WindowMenus::makeThemeMenu(QMenu* view)
{
    QMenu* const menu = view->addMenu(tr("&Theme"));
    auto* const group = new QActionGroup(menu);
    const Theme chosen = themeOf(m_settings->value(themeSetting()).toString());
    const QPair<Theme, QString> themes[] = {
        {Theme::System, tr("&System's")}, {Theme::Light, tr("&Light")}, {Theme::Dark, tr("&Dark")}};
    for (const auto& theme : themes) {
        QAction* const action = menu->addAction(theme.second);
        group->addAction(action);
        action->setCheckable(true);
        action->setChecked(theme.first == chosen);
        connect(action, &QAction::triggered, this,
                [this, shown = theme.first] { chooseTheme(shown); });
    }
    setTheme(chosen);
}

void WindowMenus::chooseTheme(Theme theme)
{
    m_settings->setValue(themeSetting(), themeName(theme));
    setTheme(theme);
}

void WindowMenus::makeHelpMenu()
{
    QMenu* const menu = m_window->menuBar()->addMenu(tr("&Help"));
    connect(add(menu, tr("&Shortcuts"), QKeySequence::HelpContents, tr("Show all shortcuts")),
            &QAction::triggered, this, [this] { showShortcuts(m_window); });
    connect(add(menu, tr("&About"), QKeySequence(), tr("Show versions")), &QAction::triggered, this,
            &WindowMenus::showAbout);
}

void WindowMenus::showAbout()
{
    auto* const box = new QMessageBox(m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(tr("About kxpanel"));
    box->setText(tr("Values, trends and the line of KX series controllers"));
    // Which the library that draws the trends asks for.
    const QString qwt =
        tr("kxpanel is based in part on the work of the Qwt project (http://qwt.sf.net).");
    box->setInformativeText((versionRows() << QString() << qwt).join(QLatin1Char('\n')));
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->open();
}

} // namespace kxpanel
