#ifndef KX_KXPANEL_RECIPES_RECIPES_PAGE_H
#define KX_KXPANEL_RECIPES_RECIPES_PAGE_H

#include "kxpanel/project/seen_file.h"
#include "kxpanel/recipes/recipe_run.h"
#include "kxpanel/window/page.h"
#include "panel/recipe/recipe_file.h"

class QAction;
class QLabel;
class QTableView;
class QToolBar;

namespace kxpanel
{

class DownloadBar;
struct LineStatus;
class MessageLabel;
class RecipeModel;
class RecipeOrder;
class TransferBar;

/// A recipe file beside what the controllers have, and its way to them and back.
class RecipesPage : public Page
{
    Q_OBJECT

    /// What the controllers had.
    struct ReadBefore {
        QList<QList<qint64>> values; ///< one per row; none: not read
        bool isUnsaved = false;
    };

public:
    explicit RecipesPage(const PageContext& context, QWidget* parent = nullptr);

    QString key() const override { return QStringLiteral("recipes"); }
    QJsonObject layout() const override;
    void setLayout(const QJsonObject& layout) override;
    QByteArray place() const override;
    void setPlace(const QByteArray& place) override;

    /// Shows a file instead of the one that is open; what is wrong with it is said in the page, and
    /// the one that is open stays.
    void open(const QString& path);
    /// Of a file that is opened from now on.
    void setStation(int station) override { m_station = station; }

private:
    QToolBar* makeActions();
    QAction* makeAction(const QString& text, const QKeySequence& shortcut, const QString& tip,
                        void (RecipesPage::*slot)());
    void askWhatToOpen();
    /// @param path by value: it may be the one that is open, which is closed meanwhile
    /// @return false: it cannot be opened, which is said in the page
    bool take(QString path);
    void reload();
    void read();
    void askToDownload();
    void download();
    void askWhereToSave();
    void save(const QString& path);
    void start(kx::RecipeDirection direction);
    void onEnded(const RecipeOutcome& outcome);
    /// @param areNews they are those of no file
    void takeRead(const QList<QList<qint64>>& values, bool areNews);
    void takeBack();
    void complainOf(const RecipeOutcome& outcome, bool wasChecking);
    /// Ends one that runs: its file is shown no more.
    void leaveTransfer();
    void onLeftEnded(const RecipeOutcome& outcome);
    void onLineChanged(const LineStatus& status);
    QString countsText() const;
    /// @param fault one line; empty takes it away
    void complain(const QString& fault);
    void showFaultColour();
    void changeEvent(QEvent* event) override;
    void close();
    void refresh();

    PageContext m_context;
    RecipeModel* m_model;
    RecipeOrder* m_order;
    RecipeRun* m_run = nullptr; ///< null without a machine
    kx::RecipeFile m_file;
    SeenFile m_seen;
    QString m_path; ///< of the file, also of one that a project names and that could not be opened
    bool m_isOpen = false;
    int m_station = 1;
    bool m_isCheckingDownload = false; ///< what is read is compared with what was just sent
    bool m_isUnsaved = false;          ///< what was read is in no file
    ReadBefore m_before;               ///< the download that runs
    QString m_left;     ///< name of a file that is shown no more, while its transfer ends; or empty
    QString m_line;     ///< name of the one that was open last
    QString m_readFrom; ///< of the one that the values came over
    QAction* m_open = nullptr;
    QAction* m_reload = nullptr;
    QAction* m_read = nullptr;
    QAction* m_download = nullptr;
    QAction* m_differencesOnly = nullptr;
    QAction* m_save = nullptr;
    DownloadBar* m_question;
    TransferBar* m_progress;
    MessageLabel* m_fault;
    QTableView* m_table;
    QLabel* m_counts;
};

} // namespace kxpanel

#endif
