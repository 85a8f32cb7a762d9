#include "kxpanel/shell/window_menus.h"

#include "kxpanel/machine/machine.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/project_keeper.h"
#include "kxpanel/shell/version_text.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>

using namespace kxpanel;

namespace
{

/// Has two actions, "Start" and "Stop", or none.
struct PlainPage : Page {
    PlainPage(const QString& name, const QStringList& actions, QWidget* parent)
        : Page(parent), m_name(name)
    {
        setWindowTitle(name);
        for (const QString& text : actions)
            addAction(new QAction(text, this));
    }
    QString key() const override { return m_name; }

private:
    QString m_name;
};

std::vector<PageMaker> plainPages()
{
    return {[](const PageContext&, QWidget* parent) {
                return new PlainPage("Pump", {"&Start", "&Stop"}, parent);
            },
            [](const PageContext&, QWidget* parent) { return new PlainPage("Belt", {}, parent); }};
}

QStringList textsOf(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* const action : menu->actions()) {
        const QString keys = action->shortcut().toString(QKeySequence::PortableText);
        if (!action->isSeparator())
            texts << (keys.isEmpty() ? action->text() : action->text() + "|" + keys);
    }
    return texts;
}

} // namespace

class WindowMenusTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void menusFromTheLeft();
    void whatIsInThem_data();
    void whatIsInThem();
    void editIsOfThePageShown();
    void recentFilesCanBeOpened();
    void recentFilesOfOneNameAreToldApart();
    void aFileThatIsGoneLeavesTheMenu();
    void aboutTellsAllVersions();

private:
    QMenu* menu(const char* title) const;
    QString project(const char* name) const;

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<MainWindow> m_window;
};

void WindowMenusTest::init()
{
    m_settings = std::make_unique<QSettings>(m_folder.filePath("a.ini"), QSettings::IniFormat);
    m_settings->clear();
    m_machine = std::make_unique<Machine>();
    m_window = std::make_unique<MainWindow>(m_machine.get(), m_settings.get(), plainPages());
    m_window->show();
}

void WindowMenusTest::cleanup()
{
    m_window.reset();
    m_machine.reset();
}

QMenu* WindowMenusTest::menu(const char* title) const
{
    for (QMenu* const found : m_window->findChildren<QMenu*>()) {
        if (found->title() == QLatin1String(title))
            return found;
    }
    qFatal("no menu %s", title);
}

/// The path of an empty one.
QString WindowMenusTest::project(const char* name) const
{
    QFile file(m_folder.filePath(QString::fromUtf8(name)));
    if (!file.open(QIODevice::WriteOnly)
        || file.write("{\"format\": \"kxpanel project\", \"version\": 1}") < 0)
        qFatal("%s", name);
    return file.fileName();
}

void WindowMenusTest::menusFromTheLeft()
{
    QStringList titles;
    for (const QAction* const action : m_window->menuBar()->actions())
        titles << action->text();
    QCOMPARE(titles, (QStringList{"&File", "&Edit", "&Line", "&View", "&Help"}));
}

void WindowMenusTest::whatIsInThem_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("projects") << QByteArray(
        "&File") << QStringList{"&New|Ctrl+N",  "&Open...|Ctrl+O",          "Open &recent",
                                "&Save|Ctrl+S", "Save &as...|Ctrl+Shift+S", "&Quit|Ctrl+Q"};
    QTest::newRow("the line") << QByteArray("&Line")
                              << QStringList{"&Connect|Ctrl+K", "&Find stations|Ctrl+Shift+K"};
    QTest::newRow("pages") << QByteArray("&View")
                           << QStringList{"Pump|Alt+1", "Belt|Alt+2", "&Theme"};
    QTest::newRow("colours") << QByteArray("&Theme") << QStringList{"&System's", "&Light", "&Dark"};
    QTest::newRow("help") << QByteArray("&Help") << QStringList{"&Shortcuts|F1", "&About"};
}

void WindowMenusTest::whatIsInThem()
{
    QFETCH(QByteArray, title);
    QTEST(textsOf(menu(title.constData())), "texts");
}

void WindowMenusTest::editIsOfThePageShown()
{
    QMenu* const edit = menu("&Edit");
    QCOMPARE(textsOf(edit), (QStringList{"&Start", "S&top"}));
    m_window->showPage(m_window->page("Belt"));
    QCOMPARE(textsOf(edit), QStringList());
    QVERIFY(!edit->menuAction()->isEnabled());
    m_window->showPage(m_window->page("Pump"));
    QCOMPARE(textsOf(edit), (QStringList{"&Start", "S&top"}));
    QVERIFY(edit->menuAction()->isEnabled());
}

void WindowMenusTest::recentFilesCanBeOpened()
{
    const QMenu* const recent = menu("Open &recent");
    QVERIFY(!recent->isEnabled());
    const QString one = project("one.kxpanel");
    m_window->project()->open(one);
    m_window->project()->open(project("R&D.kxpanel"));
    QCOMPARE(textsOf(recent), (QStringList{"R&&D.kxpanel", "one.kxpanel"}));
    QVERIFY(recent->isEnabled());
    recent->actions().last()->trigger();
    QCOMPARE(m_window->project()->path(), one);
    QCOMPARE(textsOf(recent), (QStringList{"one.kxpanel", "R&&D.kxpanel"}));
}

void WindowMenusTest::recentFilesOfOneNameAreToldApart()
{
    QVERIFY(QDir(m_folder.path()).mkpath("line & 2"));
    const QString one = project("filling.kxpanel");
    const QString other = project("line & 2/filling.kxpanel");
    for (const QString& path : {one, other, project("third.kxpanel")})
        m_window->project()->open(path);
    QCOMPARE(textsOf(menu("Open &recent")),
             (QStringList{"third.kxpanel", QString(other).replace("&", "&&"), one}));
}

void WindowMenusTest::aFileThatIsGoneLeavesTheMenu()
{
    const QString one = project("one.kxpanel");
    m_window->project()->open(one);
    m_window->project()->open(project("other.kxpanel"));
    QVERIFY(QFile::remove(one));
    QMenu* const recent = menu("Open &recent");
    recent->actions().last()->trigger();
    emit menu("&File")->aboutToShow();
    QCOMPARE(textsOf(recent), QStringList{"other.kxpanel"});
    QCOMPARE(m_window->project()->title(), QString("other.kxpanel"));
}

void WindowMenusTest::aboutTellsAllVersions()
{
    menu("&Help")->actions().last()->trigger();
    const auto* const box = m_window->findChild<QMessageBox*>();
    QVERIFY(box && box->isVisible());
    const QStringList rows = box->informativeText().split('\n');
    QCOMPARE(rows.mid(0, 3), versionRows());
    QVERIFY2(rows.last().contains("Qwt"), qPrintable(rows.last())); // as its licence asks for
}

QTEST_MAIN(WindowMenusTest)
#include "tst_window_menus.moc"
