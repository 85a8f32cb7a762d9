#ifndef KX_KXPANEL_SHELL_PROJECT_KEEPER_H
#define KX_KXPANEL_SHELL_PROJECT_KEEPER_H

#include "kxpanel/project/project_file.h"
#include "kxpanel/project/recent_files.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <functional>

class QFileDialog;
class QMessageBox;
class QSettings;
class QWidget;

namespace kxpanel
{

/// Which project the window shows, whether it is saved, and what a person does with its file.
/// Nothing blocks: questions are asked beside the window's events, and what follows comes later.
class ProjectKeeper : public QObject
{
    Q_OBJECT

public:
    /// What the window shows now, into a project that may hold more; and the way back.
    struct Window {
        std::function<void(Project*)> collect;
        std::function<void(const Project&)> show;
    };

    /// @param parent of the questions, which owns the keeper
    /// @param settings keep the recent files; stay the caller's and must outlive the keeper
    ProjectKeeper(const Window& window, QSettings* settings, QWidget* parent);

    /// The file's name without its folder; of a project without a file a word for that.
    QString title() const;
    const QString& path() const { return m_file.path(); }
    /// What the window shows is not what the file holds.
    bool isChanged();
    QStringList recentFiles() const;

    /// What a project keeps may have changed: it is looked at soon.
    void touch() { m_looking.start(); }

    /// What is shown is what was read or begun, whatever the window made of it.
    void settle();

    void beginNew();
    void chooseFile();
    void openRecent(const QString& path);
    /// Without a question; what is wrong comes as failed(), and the window stays as it is.
    void open(const QString& path);
    void save();
    void saveAs();
    /// Asks when something is not saved, and does `next` unless the person stays. While it is being
    /// asked nothing more happens.
    void leave(const std::function<void()>& next);

signals:
    /// title(), path(), isChanged() or recentFiles() is another.
    void stateChanged();
    /// A table of tags is to be added to the list of values.
    void tagsChosen(const QString& path);
    void failed(const QString& reason);
    /// For the status bar.
    void said(const QString& text);

private:
    RecentFiles recent() const;
    Project shown();
    void look() { m_file.note(shown()); }
    void show(const Project& project);
    void saveTo(const QString& path, const std::function<void()>& next);
    void chooseNameAndSave(const std::function<void()>& next);
    void saveAnd(const std::function<void()>& next);
    QFileDialog* makeDialog(const QString& title);

    Window m_window;
    QSettings* m_settings;
    QWidget* m_parent;
    QPointer<QMessageBox> m_question; ///< of leave()
    ProjectFile m_file;
    Project m_project; ///< as last read or begun, with what the window does not know
    QTimer m_looking;  ///< many changes at once are looked at once
};

} // namespace kxpanel

#endif
