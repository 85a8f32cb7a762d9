// The window's place of the last run, on other screens.

#include "kxpanel/machine/machine.h"
#include "kxpanel/shell/main_window.h"

#include <QtCore/QDataStream>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QScreen>
#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

/// As QWidget::saveGeometry() writes it, of a window without a frame.
QByteArray savedPlace(const QRect& place, int screen, int screenWidth, bool isMaximized)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream << quint32(0x1D9D0CB) << quint16(3) << quint16(0); // magic, version
    stream << place << place << qint32(screen);               // frame, not maximized
    stream << quint8(isMaximized) << quint8(0) << qint32(screenWidth) << place;
    return bytes;
}

QString textOf(const QRect& place)
{
    return QStringLiteral("%1x%2 at %3, %4")
        .arg(place.width())
        .arg(place.height())
        .arg(place.x())
        .arg(place.y());
}

} // namespace

class MainWindowPlaceTest : public QObject
{
    Q_OBJECT

private slots:
    /// So that the window may be smaller than the screen of the tests.
    void initTestCase()
    {
        QFont small = QApplication::font();
        small.setPixelSize(7);
        QApplication::setFont(small);
    }
    void allOfTheWindowCanBeReached_data();
    void allOfTheWindowCanBeReached();
    void aPlaceThatFitsIsTaken();

private:
    /// Within the frame.
    QRect placeOf(const QByteArray& saved);
};

QRect MainWindowPlaceTest::placeOf(const QByteArray& saved)
{
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    settings.setValue("window/geometry", saved);
    Machine machine;
    MainWindow window(&machine, &settings, pageMakers());
    window.show();
    const bool isShown = QTest::qWaitForWindowExposed(&window);
    return isShown ? window.geometry() : QRect();
}

void MainWindowPlaceTest::allOfTheWindowCanBeReached_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("screenWidth");
    QTest::addColumn<bool>("isMaximized");
    const int width = QGuiApplication::primaryScreen()->geometry().width();
    QTest::newRow("of a larger screen") << QRect(1000, 700, 1500, 1000) << 0 << 2560 << false;
    QTest::newRow("of one little larger") << QRect(100, 50, 900, 950) << 0 << width + 100 << false;
    QTest::newRow("of a screen that is gone") << QRect(2100, 100, 700, 600) << 1 << width << false;
    QTest::newRow("of one to the left") << QRect(-1200, 100, 700, 600) << 1 << width << false;
    QTest::newRow("above the screen") << QRect(50, -500, 700, 600) << 0 << width << false;
    QTest::newRow("below the screen") << QRect(50, 3000, 700, 600) << 0 << width << false;
    QTest::newRow("at half the scale") << QRect(700, 900, 1400, 1200) << 0 << 2 * width << false;
    QTest::newRow("at twice the scale") << QRect(0, 0, 350, 300) << 0 << width / 2 << false;
    QTest::newRow("maximized on one that is gone")
        << QRect(2000, 0, 1920, 1040) << 1 << 1920 << true;
}

void MainWindowPlaceTest::allOfTheWindowCanBeReached()
{
    QFETCH(QRect, place);
    QFETCH(int, screen);
    QFETCH(int, screenWidth);
    QFETCH(bool, isMaximized);
    const QRect shown = placeOf(savedPlace(place, screen, screenWidth, isMaximized));
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    const int frame = 2; // pixels, of the platform of the tests, which puts that onto the screen
    QVERIFY2(room.adjusted(0, 0, frame, frame).contains(shown), qPrintable(textOf(shown)));
}

void MainWindowPlaceTest::aPlaceThatFitsIsTaken()
{
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    Machine machine;
    MainWindow window(&machine, &settings, pageMakers());
    window.setGeometry(90, 40, 650, 510);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QByteArray saved = window.saveGeometry();
    QCOMPARE(textOf(placeOf(saved)), textOf(window.geometry()));
    QCOMPARE(window.geometry(), QRect(90, 40, 650, 510));
}

QTEST_MAIN(MainWindowPlaceTest)
#include "tst_main_window_place.moc"
