#ifndef KX_KXPANEL_GRID_WATCH_PAGE_H
#define KX_KXPANEL_GRID_WATCH_PAGE_H

#include "kxpanel/grid/model/value_writer.h"
#include "kxpanel/machine/line_clock.h"
#include "kxpanel/machine/session_times.h"
#include "kxpanel/window/page.h"
#include "panel/files/tags_file.h"

#include <QUndoStack> // in another module since Qt 6
#include <QtCore/QTimer>

class QLabel;
class QPlainTextEdit;
class QToolBar;

namespace kxpanel
{

class AddLine;
class FilterLine;
class WatchFilter;
class WatchModel;
class WatchTable;
class WriteBar;

/// The values as a table in which people type addresses, look, and write.
class WatchPage : public Page
{
    Q_OBJECT

public:
    explicit WatchPage(const PageContext& context, QWidget* parent = nullptr);
    ~WatchPage() override;

    QString key() const override { return QStringLiteral("watch"); }
    QJsonObject layout() const override;
    void setLayout(const QJsonObject& layout) override;

    /// Edits of the list of values; whoever replaces the list as a whole clears it.
    QUndoStack* undoStack() { return &m_undo; }
    /// Of addresses that name none, 1 to 247.
    void setStation(int station) override;
    /// Adds the tags of a tags file, or shows what is wrong with it, each with its line.
    bool openTags(const QString& path);
    /// Writes all values as a tags file, which kxhost takes, or says why not.
    bool saveTags(const QString& path);
    /// Actions for the window's menu of edits.
    QList<QAction*> editActions() const { return m_editActions; }

private:
    void makeWidgets();
    void makeLayout();
    void makeEditActions();
    void makeWriteActions();
    void connectAll();
    void makeMoveActions();
    QAction* makeAction(const QString& text, const QKeySequence& shortcut, const QString& tip,
                        void (WatchPage::*slot)());
    QAction* makeTableAction(const QString& text, const QKeySequence& shortcut, const QString& tip,
                             void (WatchPage::*slot)());

    void addTags(const QList<kx::Tag>& tags, int row);
    void beginTyping();
    void askForTags();
    void askWhereToSaveTags();
    void removeSelected();
    void copySelected();
    void copyShown();
    void cutSelected();
    void paste();
    bool pasteValues(const QString& text);
    bool askToPaste(const QString& text, QString* fault);
    QList<int> rowsForValues(int values) const;
    void moveUp();
    void moveDown();
    void moveSelected(int step);
    void editCurrent();
    void writeSelected();
    void switchSelected();
    void switchClicked(const QModelIndex& index);
    void switchBit(const QModelIndex& index);
    void sortAgain();
    void listOrder();
    void findText();
    void showAll();

    qint64 now() const { return m_clock.now(systemTimes().steady); }
    void followClock();
    void onValuesRead(const QVector<Reading>& readings);
    void onReadings();
    void onTick();
    void onLineChanged(const LineStatus& status);
    void onWriteEnded(const ValueWrite& write);
    void onWritesEnded(int written, const QList<ValueWrite>& failed);
    void onValuesChanged();
    void explain(const QString& text, bool isFault);
    void say(const QString& text, bool isFault);
    void showFaults(const QStringList& faults);

    PageContext m_context;
    LineClock m_clock; ///< readings and ends of writes are compared by it
    QUndoStack m_undo;
    ValueWriter m_writer;
    WatchModel* m_model;
    WatchFilter* m_filter;
    QToolBar* m_toolBar = nullptr;
    AddLine* m_addLine = nullptr;
    FilterLine* m_filterLine = nullptr;
    WatchTable* m_table = nullptr;
    WriteBar* m_writeBar = nullptr;
    QLabel* m_message = nullptr;
    QPlainTextEdit* m_faults = nullptr;
    QList<QAction*> m_editActions;
    bool m_isExplained = false; ///< the message is about what is being typed
    QTimer m_frame;             ///< paints what was read, 20 times a second at most
    QTimer m_tick;              ///< ages and states that pass by themselves
};

} // namespace kxpanel

#endif
