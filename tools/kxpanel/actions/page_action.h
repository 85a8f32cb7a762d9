#ifndef KX_KXPANEL_ACTIONS_PAGE_ACTION_H
#define KX_KXPANEL_ACTIONS_PAGE_ACTION_H

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtGui/QKeySequence>

class QWidget;

namespace kxpanel
{

/// An action of a page: its shortcut works while the page or what it holds has the keyboard (in the
/// main window while the page is shown, where nothing else wants the keys), and stands in the
/// tooltip. The page owns it.
/// @param tip what it does, a sentence without a dot at its end
QAction* pageAction(QWidget* page, const QString& text, const QKeySequence& shortcut,
                    const QString& tip);

} // namespace kxpanel

#endif
