#include "kxpanel/trend/trend_actions.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAction>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QWidget>

namespace kxpanel
{

namespace
{

class Maker
{
    Q_DECLARE_TR_FUNCTIONS(TrendActions)

public:
    Maker(QWidget* page, QWidget* plot) : m_page(page), m_plot(plot) {}

    /// @param name of the object, for tests and style sheets
    QAction* make(const char* name, const QString& text, const QString& tip,
                  const QList<QKeySequence>& keys) const
    {
        QAction* action = new QAction(text, m_page);
        action->setObjectName(QLatin1String(name));
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        action->setToolTip(keys.isEmpty() ? tip
                                          : tr("%1 (%2)").arg(tip, keys.first().toString(
                                                                       QKeySequence::NativeText)));
        m_plot->addAction(action);
        return action;
    }

    void makeMoves(TrendActions* actions) const
    {
        actions->live = make("live", tr("Live"), tr("Follow the newest values, or stand still"),
                             {Qt::Key_Space, QKeySequence(QStringLiteral("Ctrl+P"))});
        actions->live->setCheckable(true);
        actions->live->setChecked(true);
        actions->toNow = make("toNow", tr("Now"), tr("Follow the newest values, all of them shown"),
                              {Qt::Key_Home});
        actions->zoomIn = make("zoomIn", tr("Zoom in"), tr("Show half of the time"),
                               {Qt::Key_Plus, Qt::Key_Equal});
        actions->zoomOut =
            make("zoomOut", tr("Zoom out"), tr("Show twice the time"), {Qt::Key_Minus});
        actions->earlier = make("earlier", tr("Earlier"), tr("Go back by a quarter of the window"),
                                {Qt::Key_Left});
        actions->later =
            make("later", tr("Later"), tr("Go on by a quarter of the window"), {Qt::Key_Right});
        actions->fitValues = make("fitValues", tr("Fit values"),
                                  tr("Show all values that there are in the window"), {Qt::Key_A});
    }

    /// What the bar shows instead of the longer text, which screen readers say.
    static void shorten(TrendActions* actions)
    {
        actions->zoomIn->setIconText(QStringLiteral("+"));
        actions->zoomOut->setIconText(QString(QChar(0x2212)));
        actions->earlier->setIconText(QString(QChar(0x25C0)));
        actions->later->setIconText(QString(QChar(0x25B6)));
        actions->fitValues->setIconText(tr("Fit"));
        actions->open->setIconText(tr("Open…"));
        actions->exportPicture->setIconText(tr("Picture…"));
        actions->exportValues->setIconText(tr("Values…"));
    }

    void makeCursors(TrendActions* actions) const
    {
        actions->firstCursor =
            make("firstCursor", tr("Cursor 1"), tr("Set it where the mouse is, else in the middle"),
                 {Qt::Key_1});
        actions->secondCursor =
            make("secondCursor", tr("Cursor 2"),
                 tr("Set it where the mouse is, else in the middle"), {Qt::Key_2});
        actions->cursorLeft = make("cursorLeft", tr("Cursor back"),
                                   tr("Move the cursor that was set last by a pixel"),
                                   {QKeySequence(QStringLiteral("Shift+Left"))});
        actions->cursorRight =
            make("cursorRight", tr("Cursor on"), tr("Move the cursor that was set last by a pixel"),
                 {QKeySequence(QStringLiteral("Shift+Right"))});
        actions->clearCursors =
            make("clearCursors", tr("No cursors"), tr("Take the cursors away"), {Qt::Key_Escape});
    }

    void makeFiles(TrendActions* actions) const
    {
        actions->remove =
            make("remove", tr("Remove"), tr("Take the values selected below out of the plot"),
                 {Qt::Key_Delete});
        actions->open = make("open", tr("Open recording…"),
                             tr("Show a file that was recorded, *.csv or *.sqlite"),
                             {QKeySequence(QStringLiteral("Ctrl+Shift+O"))});
        actions->showRecording =
            make("showRecording", tr("Recording"),
                 tr("Show the whole time of the recording that is opened"), {Qt::Key_R});
        actions->showRecording->setEnabled(false);
        actions->exportPicture =
            make("exportPicture", tr("Save picture…"), tr("Save the plot as *.png or *.svg"),
                 {QKeySequence(QStringLiteral("Ctrl+Shift+E"))});
        actions->exportValues =
            make("exportValues", tr("Save values…"),
                 tr("Save what is shown as a recording, *.csv or *.sqlite, in UTC"),
                 {QKeySequence(QStringLiteral("Ctrl+E"))});
    }

private:
    QWidget* m_page;
    QWidget* m_plot;
};

} // namespace

TrendActions makeTrendActions(QWidget* page, QWidget* plot)
{
    TrendActions actions{};
    const Maker maker(page, plot);
    maker.makeMoves(&actions);
    maker.makeCursors(&actions);
    maker.makeFiles(&actions);
    Maker::shorten(&actions);
    return actions;
}

QToolBar* makeTrendBar(const QString& title, const TrendActions& actions, QWidget* spans)
{
    QToolBar* bar = new QToolBar(title);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addAction(actions.live);
    bar->addAction(actions.toNow);
    bar->addWidget(spans);
    bar->addSeparator();
    for (QAction* action :
         {actions.zoomIn, actions.zoomOut, actions.earlier, actions.later, actions.fitValues})
        bar->addAction(action);
    bar->addSeparator();
    for (QAction* action : {actions.firstCursor, actions.secondCursor, actions.clearCursors})
        bar->addAction(action);
    bar->addSeparator();
    for (QAction* action :
         {actions.open, actions.showRecording, actions.exportPicture, actions.exportValues})
        bar->addAction(action);
    return bar;
}

} // namespace kxpanel
