#include "kxpanel/actions/page_action.h"

#include <QtWidgets/QWidget>

namespace kxpanel
{

QAction* pageAction(QWidget* page, const QString& text, const QKeySequence& shortcut,
                    const QString& tip)
{
    auto* action = new QAction(text, page);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(tip, shortcut.toString(QKeySequence::NativeText)));
    page->addAction(action);
    return action;
}

} // namespace kxpanel
