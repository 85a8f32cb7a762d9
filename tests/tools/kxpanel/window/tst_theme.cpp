#include "kxpanel/window/theme.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <cmath>

using namespace kxpanel;

class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void namesAndBack_data();
    void namesAndBack();
    void anUnknownNameIsTheSystems();
    void textCanBeRead_data();
    void textCanBeRead();
    void theSystemsLookComesBack();
};

namespace
{

/// As the guidelines for accessible pages count it.
double luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
           + 0.0722 * part(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace

void ThemeTest::namesAndBack_data()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<QString>("name");
    QTest::newRow("as all other programs") << int(Theme::System) << "system";
    QTest::newRow("light") << int(Theme::Light) << "light";
    QTest::newRow("dark") << int(Theme::Dark) << "dark";
}

void ThemeTest::namesAndBack()
{
    QFETCH(int, theme);
    QTEST(themeName(static_cast<Theme>(theme)), "name");
    QFETCH(QString, name);
    QCOMPARE(int(themeOf(name)), theme);
}

void ThemeTest::anUnknownNameIsTheSystems()
{
    QCOMPARE(themeOf("sepia"), Theme::System);
    QCOMPARE(themeOf(QString()), Theme::System);
}

void ThemeTest::textCanBeRead_data()
{
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("ground");
    QTest::newRow("of windows") << int(QPalette::WindowText) << int(QPalette::Window);
    QTest::newRow("of lists") << int(QPalette::Text) << int(QPalette::Base);
    QTest::newRow("of every second row") << int(QPalette::Text) << int(QPalette::AlternateBase);
    QTest::newRow("of buttons") << int(QPalette::ButtonText) << int(QPalette::Button);
    QTest::newRow("selected") << int(QPalette::HighlightedText) << int(QPalette::Highlight);
    QTest::newRow("of tooltips") << int(QPalette::ToolTipText) << int(QPalette::ToolTipBase);
    QTest::newRow("of links") << int(QPalette::Link) << int(QPalette::Window);
    QTest::newRow("of empty fields") << int(QPalette::PlaceholderText) << int(QPalette::Base);
}

void ThemeTest::textCanBeRead()
{
    QFETCH(int, text);
    QFETCH(int, ground);
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const double found = contrast(palette.color(static_cast<QPalette::ColorRole>(text)),
                                      palette.color(static_cast<QPalette::ColorRole>(ground)));
        QVERIFY2(found >= 4.5, qPrintable(QString::number(found)));
    }
}

void ThemeTest::theSystemsLookComesBack()
{
    const QString style = QApplication::style()->objectName();
    const QColor window = QApplication::palette().color(QPalette::Window);
    setTheme(Theme::System); // the first call
    setTheme(Theme::Dark);
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0x22272e));
    QCOMPARE(QApplication::style()->objectName().toLower(), QString("fusion"));
    setTheme(Theme::Light);
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0xf3f4f6));
    setTheme(Theme::System);
    QCOMPARE(QApplication::style()->objectName(), style);
    QCOMPARE(QApplication::palette().color(QPalette::Window), window);
}

QTEST_MAIN(ThemeTest)
#include "tst_theme.moc"
