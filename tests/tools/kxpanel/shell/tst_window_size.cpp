// The whole window on the screen of a small panel PC, in each of its languages.

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/machine/machine.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/message_bar.h"
#include "kxpanel/translations/translations.h"
#include "tools/kxpanel/shell/all_pages.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

using namespace kxpanel;

namespace
{

const QSize SMALL(800, 480); // pixels

kx::ConnectionOptions lineOf(const QString& kind)
{
    kx::ConnectionOptions options;
    options.simulate = kind == "simulated";
    if (kind == "gateway")
        options.gateway.host = QStringLiteral("192.168.100.100");
    return options;
}

QRect placeIn(const QWidget* part, const QWidget* whole)
{
    return QRect(part->mapTo(const_cast<QWidget*>(whole), QPoint()), part->size());
}

QString describe(const QWidget* widget)
{
    return QString("%1 %2").arg(widget->metaObject()->className(), widget->accessibleName());
}

} // namespace

class WindowSizeTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fitsASmallScreen_data() { windows(); }
    void fitsASmallScreen();
    void showsAllOfTheConnection_data() { windows(); }
    void showsAllOfTheConnection();
    void longNamesMakeItNoWider();
    void squeezesNothing_data() { windows(); }
    void squeezesNothing();
    void tabShowsWhatHasTheKeyboard();
    void hasTheButtonsBesideTheFieldsWithRoom();

private:
    static void windows();
    void makeSmall(const QString& line, bool scans);

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<MainWindow> m_window;
};

void WindowSizeTest::windows()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("scans");
    for (const char* const language : {"English", "German"}) {
        for (const char* const line : {"serial", "gateway", "simulated"}) {
            for (const bool scans : {false, true})
                QTest::addRow("%s, %s%s", language, line, scans ? ", scan" : "")
                    << QString(line) << scans;
        }
    }
}

void WindowSizeTest::init()
{
    if (QByteArray(QTest::currentDataTag()).startsWith("German"))
        QVERIFY(takeLanguage(QLocale("de_DE")));
    m_settings = std::make_unique<QSettings>(m_folder.filePath("a.ini"), QSettings::IniFormat);
    m_settings->clear();
    m_machine = std::make_unique<Machine>();
    m_window = std::make_unique<MainWindow>(m_machine.get(), m_settings.get(), allPages());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void WindowSizeTest::cleanup()
{
    m_window.reset();
    m_machine.reset();
    for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>())
        delete translator;
}

void WindowSizeTest::makeSmall(const QString& line, bool scans)
{
    m_window->connectionBar()->setOptions(lineOf(line));
    m_window->connectionBar()->scanAction()->setChecked(scans);
    QCoreApplication::processEvents();
    m_window->resize(SMALL);
    QCoreApplication::processEvents();
}

void WindowSizeTest::fitsASmallScreen()
{
    QFETCH(QString, line);
    QFETCH(bool, scans);
    makeSmall(line, scans);
    for (Page* const page : m_window->pages()) {
        m_window->showPage(page);
        QCoreApplication::processEvents();
        QCOMPARE(m_window->size(), SMALL);
    }
}

void WindowSizeTest::showsAllOfTheConnection()
{
    QFETCH(QString, line);
    QFETCH(bool, scans);
    makeSmall(line, scans);
    const ConnectionBar* bar = m_window->connectionBar();
    QList<QWidget*> controls;
    for (QWidget* const control : bar->findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<QComboBox*>(control)
                               || qobject_cast<QToolButton*>(control)
                               || qobject_cast<QLineEdit*>(control);
        if (isControl && control->isVisible() && !qobject_cast<QComboBox*>(control->parent()))
            controls << control;
    }
    QVERIFY(controls.size() >= 5);
    for (const QWidget* const control : qAsConst(controls)) {
        const QRect place = placeIn(control, bar);
        QVERIFY2(bar->rect().contains(place), qPrintable(describe(control)));
        const int least = control->minimumWidth() > 0 ? control->minimumWidth()
                                                      : control->minimumSizeHint().width();
        QVERIFY2(control->width() >= least, qPrintable(describe(control)));
        for (const QWidget* const other : qAsConst(controls))
            QVERIFY2(other == control || !place.intersects(placeIn(other, bar)),
                     qPrintable(describe(control) + " on " + describe(other)));
    }
}

void WindowSizeTest::longNamesMakeItNoWider()
{
    makeSmall("serial", true);
    LineStatus status;
    status.state = LineState::Open;
    status.name =
        QString("/dev/serial/by-id/usb-Some_Maker_Of_Adapters_A50285BI-if00-port0").repeated(4);
    status.fault = QString("a very long reason ").repeated(30);
    emit m_machine->lineChanged(status);
    m_window->messages()->say(QString("word").repeated(300));
    QCoreApplication::processEvents();
    m_window->resize(SMALL);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->width(), SMALL.width());
}

void WindowSizeTest::squeezesNothing()
{
    QFETCH(QString, line);
    QFETCH(bool, scans);
    makeSmall(line, scans);
    for (Page* const page : m_window->pages()) {
        m_window->showPage(page);
        QCoreApplication::processEvents();
        const QSize least = page->minimumSizeHint();
        QVERIFY2(page->width() >= least.width() && page->height() >= least.height(),
                 qPrintable(page->key()));
    }
}

// What stands below the window's edge comes into view.
void WindowSizeTest::tabShowsWhatHasTheKeyboard()
{
    makeSmall("serial", true);
    for (Page* const page : m_window->pages()) {
        m_window->showPage(page);
        QCoreApplication::processEvents();
        for (int step = 0; step < 60; ++step) {
            QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
            const QWidget* const focus = m_window->focusWidget();
            QVERIFY2(!focus->visibleRegion().isEmpty(),
                     qPrintable(page->key() + ": " + describe(focus)));
        }
    }
}

void WindowSizeTest::hasTheButtonsBesideTheFieldsWithRoom()
{
    const ConnectionBar* bar = m_window->connectionBar();
    const auto button = [bar] { return placeIn(bar->findChild<QToolButton*>(), bar); };
    const auto field = [bar] { return placeIn(bar->findChild<QComboBox*>(), bar); };
    m_window->resize(1600, 900);
    QTRY_VERIFY(button().left() > field().right() && button().top() < field().bottom());
    const int oneRow = bar->minimumSizeHint().height();
    QTRY_COMPARE(bar->height(), oneRow);
    m_window->resize(bar->minimumSizeHint().width(), 900);
    QTRY_VERIFY(button().top() > field().bottom());
    QTRY_VERIFY(bar->height() > oneRow);
    m_window->resize(1600, 900);
    QTRY_COMPARE(bar->height(), oneRow);
}

QTEST_MAIN(WindowSizeTest)
#include "tst_window_size.moc"
