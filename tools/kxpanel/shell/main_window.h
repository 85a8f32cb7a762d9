#ifndef KX_KXPANEL_SHELL_MAIN_WINDOW_H
#define KX_KXPANEL_SHELL_MAIN_WINDOW_H

#include "kxpanel/shell/page_table.h"
#include "kxpanel/shell/window_options.h"
#include "kxpanel/tags/tag_list.h"

#include <QtCore/QTimer>
#include <QtWidgets/QMainWindow>

class QSettings;
class QTabWidget;

namespace kxpanel
{

class ConnectionBar;
class MessageBar;
class ProjectKeeper;
class StatusLine;
class WatchPage;
class WindowMenus;
struct Project;

/// The window: the line above, pages in tabs, and the project that keeps both.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param machine stays the caller's, as do the settings; both must outlive the window
    /// @param pages from the left
    MainWindow(Machine* machine, QSettings* settings, const std::vector<PageMaker>& pages);
    ~MainWindow() override;

    /// Opens the file and connects, as far as the command line says so.
    void begin(const WindowOptions& options);

    /// Closes without a question; what is not saved is lost, and what is under way ends half-way.
    void closeUnasked();

    ConnectionBar* connectionBar() const { return m_connection; }
    ProjectKeeper* project() const { return m_project; }
    MessageBar* messages() const { return m_messages; }
    TagList* tags() { return &m_tags; }
    /// Null when there is none of that Page::key().
    Page* page(const QString& key) const;
    Page* currentPage() const;
    void showPage(Page* page);
    QList<Page*> pages() const { return m_pages; }

private:
    void makeContents();
    void makePages(const std::vector<PageMaker>& makers);
    void connectProject();
    void connectValues();
    void collect(Project* project);
    void showProject(const Project& project);
    void addTags(const QString& path);
    void showTitle();
    void restorePlace();
    void fitIntoScreen();
    void showMissed(const Missed& missed);
    void askToClose();
    void closeEvent(QCloseEvent* event) override;

    Machine* m_machine;
    QSettings* m_settings;
    TagList m_tags;
    QHash<int, QJsonObject> m_unknown; ///< what a newer program keeps of values, by number
    QTimer m_newValues;                ///< many edits at once are one list for the machine
    bool m_mayClose = false;           ///< nobody objects any more
    QList<Page*> m_pages;
    WatchPage* m_watch = nullptr;
    ConnectionBar* m_connection;
    QTabWidget* m_tabs;
    MessageBar* m_messages;
    StatusLine* m_status;
    ProjectKeeper* m_project;
    WindowMenus* m_menus;
};

} // namespace kxpanel

#endif
