#include "kxpanel/shell/shortcut_list.h"

#include "kxpanel/window/page.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtTest/QTest>
#include <QtWidgets/QDialog>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

using namespace kxpanel;

namespace
{

struct PumpPage : Page {
    explicit PumpPage(QWidget* parent) : Page(parent) { setWindowTitle("Pump"); }
    QString key() const override { return QStringLiteral("pump"); }
};

QAction* addAction(QWidget* owner, const char* text, const QList<QKeySequence>& keys)
{
    auto* const action = new QAction(QString::fromUtf8(text), owner);
    action->setShortcuts(keys);
    return action;
}

QString rowText(const ShortcutRow& row)
{
    return QStringLiteral("%1|%2|%3").arg(row.place, row.keys, row.action);
}

} // namespace

class ShortcutListTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theWindowsComeFirst();
    void allAreShown();
    void theyAreShownOnce();
    void escapeClosesThem();

private:
    QList<QDialog*> dialogs() const { return m_window->findChildren<QDialog*>(); }

    std::unique_ptr<QWidget> m_window;
};

void ShortcutListTest::init()
{
    m_window = std::make_unique<QWidget>();
    auto* const page = new PumpPage(m_window.get());
    addAction(page, "&Reload...", {QKeySequence("F5")});
    addAction(m_window.get(), "&Save", {QKeySequence("Ctrl+S"), QKeySequence("F12")});
    addAction(m_window.get(), "&About", {}); // none
    auto* const part = new QWidget(page);
    addAction(part, "Stop", {QKeySequence("Ctrl+.")});
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void ShortcutListTest::cleanup()
{
    m_window.reset();
}

void ShortcutListTest::theWindowsComeFirst()
{
    QStringList rows;
    for (const ShortcutRow& row : shortcutsOf(m_window.get()))
        rows << rowText(row);
    QCOMPARE(rows, (QStringList{"|Ctrl+S; F12|Save", "Pump|F5|Reload", "Pump|Ctrl+.|Stop"}));
}

void ShortcutListTest::allAreShown()
{
    showShortcuts(m_window.get());
    const auto* const table = m_window->findChild<QTreeWidget*>();
    QVERIFY(table && table->isVisible());
    QCOMPARE(table->topLevelItemCount(), 3);
    const QTreeWidgetItem* const second = table->topLevelItem(1);
    QCOMPARE(second->text(0), QString("F5"));
    QCOMPARE(second->text(1), QString("Reload"));
    QCOMPARE(second->text(2), QString("Pump"));
}

// F1 in the window behind it.
void ShortcutListTest::theyAreShownOnce()
{
    showShortcuts(m_window.get());
    showShortcuts(m_window.get());
    QCOMPARE(dialogs().size(), 1);
    QVERIFY(dialogs().first()->isVisible());
}

void ShortcutListTest::escapeClosesThem()
{
    showShortcuts(m_window.get());
    QTest::keyClick(dialogs().first(), Qt::Key_Escape);
    QTRY_COMPARE(dialogs().size(), 0);
    showShortcuts(m_window.get());
    QCOMPARE(dialogs().size(), 1);
}

QTEST_MAIN(ShortcutListTest)
#include "tst_shortcut_list.moc"
