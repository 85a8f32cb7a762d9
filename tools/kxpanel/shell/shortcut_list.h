#ifndef KX_KXPANEL_SHELL_SHORTCUT_LIST_H
#define KX_KXPANEL_SHELL_SHORTCUT_LIST_H

#include <QtCore/QList>
#include <QtCore/QString>

class QWidget;

namespace kxpanel
{

struct ShortcutRow {
    QString place;  ///< the page's title; empty: everywhere in the window
    QString keys;   ///< "Ctrl+S, F12"
    QString action; ///< without marks
};

/// Of all actions of the window and its pages, the window's first, each action once.
QList<ShortcutRow> shortcutsOf(const QWidget* window);

/// Shows them, once at a time; returns at once.
void showShortcuts(QWidget* window);

} // namespace kxpanel

#endif
