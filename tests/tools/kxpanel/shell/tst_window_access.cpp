// The whole window for keyboard and screen reader, in each of its languages.

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/translations/translations.h"
#include "tools/kxpanel/shell/all_pages.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QWidgetAction>

using namespace kxpanel;

class WindowAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void noLetterIsTwiceInAMenu_data() { languages(); }
    void noLetterIsTwiceInAMenu();
    void noLetterIsTwiceOnAPage_data() { languages(); }
    void noLetterIsTwiceOnAPage();
    void everyControlHasAName_data() { languages(); }
    void everyControlHasAName();
    void everyActionHasAKeyOrAMenu();
    void everyActionHasAText_data() { languages(); }
    void everyActionHasAText();
    void noLabelTakesMarkup();
    void everyLabelIsReadByItsText();
    void tabReachesEveryControl();
    void keysOfAPageWorkBesideIt_data();
    void keysOfAPageWorkBesideIt();

private:
    static void languages();
    void showPage(Page* page);
    QList<QWidget*> controls() const;

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<MainWindow> m_window;
};

namespace
{

/// "&File" has F; none: null.
QChar letterOf(const QString& text)
{
    const int at = static_cast<int>(QString(text).replace("&&", "  ").indexOf('&'));
    return at < 0 ? QChar() : text.at(at + 1).toUpper();
}

QStringList twiceIn(const QStringList& texts)
{
    QMap<QChar, QString> seen;
    QStringList twice;
    for (const QString& text : texts) {
        const QChar letter = letterOf(text);
        if (letter.isNull())
            continue;
        if (seen.contains(letter))
            twice << seen.value(letter) + " and " + text;
        seen[letter] = text;
    }
    return twice;
}

QStringList textsOf(const QList<QAction*>& actions)
{
    QStringList texts;
    for (const QAction* const action : actions)
        texts << action->text();
    return texts;
}

/// Of labels and buttons that are seen; tool buttons take their action's text without marks.
QStringList markedTexts(const QWidget* part)
{
    QStringList texts;
    for (const QLabel* const label : part->findChildren<QLabel*>()) {
        if (label->isVisible() && label->buddy())
            texts << label->text();
    }
    for (const QAbstractButton* const button : part->findChildren<QAbstractButton*>()) {
        if (button->isVisible())
            texts << button->text();
    }
    return texts;
}

QString nameOf(QWidget* control)
{
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(control);
    return access ? access->text(QAccessible::Name) : QString();
}

} // namespace

void WindowAccessTest::languages()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en_GB";
    QTest::newRow("German") << "de_DE";
}

void WindowAccessTest::init()
{
    if (QTest::currentDataTag() && QLatin1String(QTest::currentDataTag()) == "German")
        QVERIFY(takeLanguage(QLocale("de_DE")));
    m_settings = std::make_unique<QSettings>(m_folder.filePath("a.ini"), QSettings::IniFormat);
    m_machine = std::make_unique<Machine>();
    m_window = std::make_unique<MainWindow>(m_machine.get(), m_settings.get(), allPages());
    m_window->connectionBar()->scanAction()->setChecked(true);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void WindowAccessTest::cleanup()
{
    m_window.reset();
    m_machine.reset();
    for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>())
        delete translator;
}

void WindowAccessTest::showPage(Page* page)
{
    m_window->showPage(page);
    QCoreApplication::processEvents();
}

void WindowAccessTest::noLetterIsTwiceInAMenu()
{
    QFETCH(QString, locale);
    QCOMPARE(m_window->menuBar()->actions().first()->text(),
             locale == "de_DE" ? QString("&Datei") : QString("&File"));
    QCOMPARE(twiceIn(textsOf(m_window->menuBar()->actions())), QStringList());
    for (Page* const page : m_window->pages()) {
        showPage(page);
        for (const QMenu* const menu : m_window->findChildren<QMenu*>()) {
            const QStringList twice = twiceIn(textsOf(menu->actions()));
            QVERIFY2(twice.isEmpty(), qPrintable(twice.join(", ")));
        }
    }
}

void WindowAccessTest::noLetterIsTwiceOnAPage()
{
    for (Page* const page : m_window->pages()) {
        showPage(page);
        for (QFrame* const bar : page->findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly))
            bar->show(); // one that asks before it writes
        const QStringList twice =
            twiceIn(textsOf(m_window->menuBar()->actions()) + markedTexts(m_window->connectionBar())
                    + markedTexts(page));
        QVERIFY2(twice.isEmpty(), qPrintable(page->key() + ": " + twice.join(", ")));
    }
}

/// That are seen and take the keyboard.
QList<QWidget*> WindowAccessTest::controls() const
{
    QList<QWidget*> controls;
    for (QWidget* const widget : m_window->findChildren<QWidget*>()) {
        const bool isPart = widget->focusProxy() || widget->objectName().startsWith("qt_");
        if (widget->isVisible() && widget->isEnabled() && !isPart
            && (widget->focusPolicy() & Qt::TabFocus) && widget->window() == m_window.get())
            controls << widget;
    }
    return controls;
}

void WindowAccessTest::everyControlHasAName()
{
    QStringList nameless;
    for (Page* const page : m_window->pages()) {
        showPage(page);
        for (QWidget* const control : controls()) {
            if (!qobject_cast<QTabBar*>(control) && nameOf(control).isEmpty()) // tabs have names
                nameless << page->key() + ": " + control->metaObject()->className() + " of "
                                + control->parentWidget()->metaObject()->className();
        }
    }
    QCOMPARE(nameless.join(", "), QString());
}

void WindowAccessTest::everyActionHasAKeyOrAMenu()
{
    QStringList unreachable;
    for (Page* const page : m_window->pages()) {
        showPage(page);
        for (const QAction* const action :
             page->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
            const bool isText = !action->text().isEmpty() && !action->isSeparator();
            const bool isInternal =
                action->objectName().startsWith("_q_") || action->objectName().startsWith("qt_");
            const bool isReachable = !action->shortcut().isEmpty()
                                     || page->actions().contains(const_cast<QAction*>(action))
                                     || qobject_cast<QMenu*>(action->parent());
            if (isText && !isInternal && !isReachable)
                unreachable << page->key() + ": " + action->text();
        }
    }
    QCOMPARE(unreachable.join(", "), QString());
}

void WindowAccessTest::everyActionHasAText()
{
    QStringList textless;
    for (Page* const page : m_window->pages()) {
        showPage(page);
        QList<QAction*> actions = page->actions();
        for (const QMenu* const menu : m_window->menuBar()->findChildren<QMenu*>())
            actions += menu->actions();
        for (const QToolBar* const bar : page->findChildren<QToolBar*>())
            actions += bar->actions();
        for (QAction* const action : qAsConst(actions)) {
            const bool isText = !action->isSeparator() && !qobject_cast<QWidgetAction*>(action);
            if (isText && QString(action->text()).remove('&').trimmed().isEmpty())
                textless << page->key() + ": " + action->toolTip();
        }
    }
    QCOMPARE(textless.join(", "), QString());
}

// What names, files and ports are called would be drawn by its marks, or read pictures from disk.
void WindowAccessTest::noLabelTakesMarkup()
{
    QStringList obeying;
    for (const QLabel* const label : m_window->findChildren<QLabel*>()) {
        if (label->textFormat() != Qt::PlainText && !label->buddy())
            obeying << label->text() + " of " + label->parentWidget()->metaObject()->className();
    }
    QCOMPARE(obeying.join(", "), QString());
}

// What a label is called would be read in place of what it says.
void WindowAccessTest::everyLabelIsReadByItsText()
{
    QStringList hidden;
    for (QLabel* const label : m_window->findChildren<QLabel*>()) {
        label->setText(QStringLiteral("ready"));
        if (nameOf(label) != QLatin1String("ready"))
            hidden << nameOf(label);
    }
    QCOMPARE(hidden.join(", "), QString());
}

void WindowAccessTest::tabReachesEveryControl()
{
    for (Page* const page : m_window->pages()) {
        showPage(page);
        m_window->activateWindow();
        QSet<QWidget*> reached;
        for (int step = 0; step < 200; ++step) {
            QWidget* const focus = m_window->focusWidget();
            reached << focus;
            QTest::keyClick(focus ? focus : m_window.get(), Qt::Key_Tab);
        }
        QStringList missed;
        for (QWidget* const control : controls()) {
            bool isReached = reached.contains(control);
            for (QWidget* const part : control->findChildren<QWidget*>())
                isReached = isReached || reached.contains(part);
            if (!isReached)
                missed << control->metaObject()->className() + (" " + nameOf(control));
        }
        QVERIFY2(missed.isEmpty(), qPrintable(page->key() + ": " + missed.join(", ")));
    }
}

void WindowAccessTest::keysOfAPageWorkBesideIt_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("works");
    QTest::newRow("Ctrl+F, values")
        << "watch" << int(Qt::Key_F) << Qt::KeyboardModifiers(Qt::ControlModifier) << true;
    QTest::newRow("Ctrl+F, frames")
        << "frames" << int(Qt::Key_F) << Qt::KeyboardModifiers(Qt::ControlModifier) << true;
    QTest::newRow("Ins, which is typed")
        << "watch" << int(Qt::Key_Insert) << Qt::KeyboardModifiers() << false;
}

// Such as after a press on Connect.
void WindowAccessTest::keysOfAPageWorkBesideIt()
{
    QFETCH(QString, page);
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    Page* const shown = m_window->page(page);
    showPage(shown);
    auto* const button = m_window->connectionBar()->findChild<QToolButton*>();
    button->setFocus();
    QVERIFY(button->hasFocus());
    QTest::keyClick(button, static_cast<Qt::Key>(key), modifiers);
    QTEST(shown->isAncestorOf(m_window->focusWidget()), "works");
}

QTEST_MAIN(WindowAccessTest)
#include "tst_window_access.moc"
