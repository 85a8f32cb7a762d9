#include "kxpanel/shell/shortcut_list.h"

#include "kxpanel/window/page.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtCore/QCoreApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace kxpanel
{

namespace
{

QString translated(const char* text)
{
    return QCoreApplication::translate("ShortcutList", text);
}

QString placeOf(const QObject* object)
{
    for (; object; object = object->parent()) {
        if (const auto* const page = qobject_cast<const Page*>(object))
            return page->windowTitle();
    }
    return QString();
}

QString plainText(const QAction* action)
{
    return action->text().remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

QTreeWidget* makeTable(const QList<ShortcutRow>& rows, QWidget* parent)
{
    auto* const table = new QTreeWidget(parent);
    table->setAccessibleName(translated(QT_TRANSLATE_NOOP("ShortcutList", "Shortcuts")));
    table->setHeaderLabels({translated(QT_TRANSLATE_NOOP("ShortcutList", "Keys")),
                            translated(QT_TRANSLATE_NOOP("ShortcutList", "What they do")),
                            translated(QT_TRANSLATE_NOOP("ShortcutList", "Page"))});
    table->setRootIsDecorated(false);
    table->setAlternatingRowColors(true);
    for (const ShortcutRow& row : rows)
        new QTreeWidgetItem(table, {row.keys, row.action, row.place});
    for (int column = 0; column < table->columnCount(); ++column)
        table->resizeColumnToContents(column);
    return table;
}

} // namespace

QList<ShortcutRow> shortcutsOf(const QWidget* window)
{
    QList<ShortcutRow> rows;
    for (const QAction* const action : window->findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty())
            rows << ShortcutRow{
                placeOf(action),
                QKeySequence::listToString(action->shortcuts(), QKeySequence::NativeText),
                plainText(action)};
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const ShortcutRow& one, const ShortcutRow& other) {
                         return one.place.isEmpty() && !other.place.isEmpty();
                     });
    return rows;
}

void showShortcuts(QWidget* window)
{
    const QString name = QStringLiteral("shortcuts");
    auto* const shown = window->findChild<QDialog*>(name);
    if (shown && shown->isVisible()) { // behind the window, perhaps
        shown->raise();
        shown->activateWindow();
        return;
    }
    auto* const dialog = new QDialog(window);
    dialog->setObjectName(name);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(translated(QT_TRANSLATE_NOOP("ShortcutList", "Shortcuts")));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* const column = new QVBoxLayout(dialog);
    column->addWidget(makeTable(shortcutsOf(window), dialog));
    column->addWidget(buttons);
    const QSize lines(60, 24); // characters and rows
    dialog->resize(lines.width() * window->fontMetrics().horizontalAdvance(QLatin1Char('0')),
                   lines.height() * window->fontMetrics().lineSpacing());
    dialog->show();
}

} // namespace kxpanel
