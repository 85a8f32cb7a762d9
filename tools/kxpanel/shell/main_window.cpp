#include "kxpanel/shell/main_window.h"

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/project/connection_json.h"
#include "kxpanel/project/project.h"
#include "kxpanel/shell/file_drop.h"
#include "kxpanel/shell/message_bar.h"
#include "kxpanel/shell/page_scroll.h"
#include "kxpanel/shell/project_keeper.h"
#include "kxpanel/shell/status_line.h"
#include "kxpanel/shell/window_menus.h"
#include "panel/values/value_address.h"

#include <QtCore/QDateTime>
#include <QtCore/QSettings>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

#include <limits>

namespace kxpanel
{

MainWindow::MainWindow(Machine* machine, QSettings* settings, const std::vector<PageMaker>& pages)
    : m_machine(machine),
      m_settings(settings),
      m_connection(new ConnectionBar(machine, this)),
      m_tabs(new QTabWidget(this)),
      m_messages(new MessageBar(this)),
      m_status(new StatusLine(machine, statusBar())),
      m_project(new ProjectKeeper({[this](Project* project) { collect(project); },
                                   [this](const Project& project) { showProject(project); }},
                                  settings, this))
{
    makeContents();
    makePages(pages);
    connectValues();
    connectProject();
    m_menus = new WindowMenus(this, m_project, settings);
    connect(m_tabs, &QTabWidget::currentChanged, m_menus, &WindowMenus::showPageActions);
    restorePlace();
    m_project->settle();
    showTitle();
}

MainWindow::~MainWindow() = default;

void MainWindow::makeContents()
{
    auto* const contents = new QWidget(this);
    auto* const column = new QVBoxLayout(contents);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_connection);
    column->addWidget(m_tabs, 1);
    column->addWidget(m_messages); // comes by itself, and what is above it must not move
    m_tabs->setDocumentMode(true);
    m_tabs->tabBar()->setAcceptDrops(true); // values are dragged from page to page
    m_tabs->tabBar()->setChangeCurrentOnDrag(true);
    setCentralWidget(contents);
}

void MainWindow::makePages(const std::vector<PageMaker>& makers)
{
    for (const PageMaker& maker : makers) {
        Page* const made = maker({m_machine, &m_tags}, nullptr);
        m_pages << made;
        m_tabs->addTab(new PageScroll(made, m_tabs), made->windowTitle());
        connect(made, &Page::layoutChanged, m_project, &ProjectKeeper::touch);
        connect(made, &Page::said, m_status, &StatusLine::say);
        connect(m_connection, &ConnectionBar::stationChosen, made, &Page::setStation);
    }
    m_watch = qobject_cast<WatchPage*>(page(QStringLiteral("watch")));
}

void MainWindow::connectValues()
{
    m_newValues.setSingleShot(true);
    connect(&m_tags, &TagList::valuesChanged, &m_newValues, qOverload<>(&QTimer::start));
    connect(&m_newValues, &QTimer::timeout, this,
            [this] { m_machine->setValues(m_tags.values()); });
    connect(m_machine, &Machine::valuesRead, &m_tags, &TagList::takeReadings);
    connect(m_machine, &Machine::clockSet, &m_tags, &TagList::shiftReadings);
    connect(m_machine, &Machine::missed, this, &MainWindow::showMissed);
}

void MainWindow::connectProject()
{
    connect(&m_tags, &TagList::valuesChanged, m_project, &ProjectKeeper::touch);
    connect(m_connection, &ConnectionBar::edited, m_project, &ProjectKeeper::touch);
    connect(m_project, &ProjectKeeper::stateChanged, this, &MainWindow::showTitle);
    connect(m_project, &ProjectKeeper::failed, m_messages, &MessageBar::say);
    connect(m_project, &ProjectKeeper::said, m_status, &StatusLine::say);
    connect(m_project, &ProjectKeeper::tagsChosen, this, &MainWindow::addTags);
    connect(new FileDrop(this), &FileDrop::dropped, m_project, &ProjectKeeper::openRecent);
}

void MainWindow::begin(const WindowOptions& options)
{
    if (!m_settings->isWritable())
        m_status->say(tr("The window's place and recent files are not kept: %1 cannot be written")
                          .arg(m_settings->fileName()));
    m_connection->setOptions(options.connection);
    m_project->settle(); // also when the file cannot be opened
    if (!options.file.isEmpty())
        m_project->open(options.file);
    if (!options.connects)
        return;
    m_connection->setOptions(options.connection); // goes before the project's
    for (Page* const page : m_pages)
        page->setStation(options.connection.station);
    m_machine->setValues(m_tags.values()); // simulated stations are those of the values
    m_connection->connectLine();
}

Page* MainWindow::page(const QString& key) const
{
    for (Page* const page : m_pages) {
        if (page->key() == key)
            return page;
    }
    return nullptr;
}

Page* MainWindow::currentPage() const
{
    return m_pages.value(m_tabs->currentIndex());
}

void MainWindow::showPage(Page* page)
{
    m_tabs->setCurrentIndex(static_cast<int>(m_pages.indexOf(page)));
    page->mainPart()->setFocus();
}

void MainWindow::collect(Project* project)
{
    project->connection = m_connection->options();
    project->tags.clear();
    for (const WatchedValue& value : m_tags.values())
        project->tags << ProjectTag{value.tag, m_unknown.value(value.number)};
    for (const Page* const page : m_pages)
        project->pages[page->key()] = page->layout();
}

void MainWindow::showProject(const Project& project)
{
    const QJsonObject line = connectionJson(project.connection, QJsonObject());
    if (line != connectionJson(m_connection->options(), QJsonObject()))
        m_connection->disconnectLine(); // else its values would be written to another machine
    m_connection->setOptions(project.connection);
    m_unknown.clear();
    m_tags.setValues({});
    QList<kx::Tag> tags;
    for (const ProjectTag& tag : project.tags)
        tags << tag.tag;
    QList<int> numbers = m_tags.insert(0, tags);
    for (const ProjectTag& tag : project.tags) {
        for (int value = kx::valuesIn(tag.tag.range, tag.tag.format); value > 0; --value)
            m_unknown[numbers.takeFirst()] = tag.extra;
    }
    if (m_watch)
        m_watch->undoStack()->clear();
    for (Page* const page : m_pages) {
        page->setStation(project.connection.station);
        page->setLayout(project.pages.value(page->key()));
    }
}

void MainWindow::addTags(const QString& path)
{
    if (!m_watch)
        return;
    showPage(m_watch);
    m_watch->openTags(path);
}

void MainWindow::showTitle()
{
    QString title = m_project->title();
    title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")); // stands for itself
    setWindowTitle(QStringLiteral("%1[*] - kxpanel").arg(title));
    setWindowModified(m_project->isChanged());
}

void MainWindow::showMissed(const Missed& missed)
{
    const auto timeOf = [](qint64 time) {
        return QDateTime::fromMSecsSinceEpoch(time).toString(QStringLiteral("HH:mm:ss"));
    };
    const QString still =
        missed.isRest
            ? tr("The computer or this program rested from %1 to %2. Nothing was read meanwhile.")
            : tr("The window stood still from %1 to %2. The trend lacks what was read meanwhile.");
    QString text = still.arg(timeOf(missed.from), timeOf(missed.to));
    if (missed.exchanges > 0)
        text +=
            QLatin1Char(' ')
            + tr("%n exchange(s) are missing in frames, line and health.", nullptr,
                 static_cast<int>(qMin<qint64>(missed.exchanges, std::numeric_limits<int>::max())));
    m_messages->say(text);
}

} // namespace kxpanel
