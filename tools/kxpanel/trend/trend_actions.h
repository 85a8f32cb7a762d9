#ifndef KX_KXPANEL_TREND_TREND_ACTIONS_H
#define KX_KXPANEL_TREND_TREND_ACTIONS_H

#include <QtCore/QObject>
#include <QtGui/QKeySequence>

class QAction;
class QToolBar;
class QWidget;

namespace kxpanel
{

/// What can be done with a trend, each with its key and a tooltip that names it. The keys work
/// while the plot or what is in it has the focus.
struct TrendActions {
    QAction* live;  ///< checkable: the window follows, or stands still
    QAction* toNow; ///< live again, with all values
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* earlier;
    QAction* later;
    QAction* fitValues;
    QAction* firstCursor;
    QAction* secondCursor;
    QAction* cursorLeft;
    QAction* cursorRight;
    QAction* clearCursors;
    QAction* remove; ///< the channels selected in the legend
    QAction* open;
    QAction* showRecording;
    QAction* exportPicture;
    QAction* exportValues;
};

/// @param page owns them
/// @param plot has the focus when their keys are meant
TrendActions makeTrendActions(QWidget* page, QWidget* plot);

/// The bar above a plot, which becomes the layout's that takes it.
/// @param spans how much time is shown; the bar's from now on
QToolBar* makeTrendBar(const QString& title, const TrendActions& actions, QWidget* spans);

} // namespace kxpanel

#endif
