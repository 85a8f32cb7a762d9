#include "kxpanel/shell/qt_options.h"

#include <QtTest/QTest>

using namespace kxpanel;

class QtOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void whatIsLeft_data();
    void whatIsLeft();
};

void QtOptionsTest::whatIsLeft_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("none") << QStringList() << QStringList();
    QTest::newRow("the program's own")
        << QStringList{"-p", "/dev/ttyS0", "--baud", "9600", "a.csv"}
        << QStringList{"-p", "/dev/ttyS0", "--baud", "9600", "a.csv"};
    QTest::newRow("a platform") << QStringList{"-platform", "offscreen", "a.csv"}
                                << QStringList{"a.csv"};
    QTest::newRow("with two dashes")
        << QStringList{"--simulate", "--style", "fusion"} << QStringList{"--simulate"};
    QTest::newRow("in one word") << QStringList{"-style=fusion", "a.csv"} << QStringList{"a.csv"};
    QTest::newRow("a place on the screen")
        << QStringList{"-geometry", "800x600+0+0", "-p", "a"} << QStringList{"-p", "a"};
    QTest::newRow("without a value")
        << QStringList{"-reverse", "a.kxpanel"} << QStringList{"a.kxpanel"};
    QTest::newRow("a value is missing")
        << QStringList{"a.csv", "-platform"} << QStringList{"a.csv"};
    QTest::newRow("a port glued to its letter")
        << QStringList{"-pttyUSB0"} << QStringList{"-pttyUSB0"};
    QTest::newRow("a file of such a name") << QStringList{"style"} << QStringList{"style"};
}

void QtOptionsTest::whatIsLeft()
{
    QFETCH(QStringList, arguments);
    QTEST(withoutQtOptions(arguments), "left");
}

QTEST_GUILESS_MAIN(QtOptionsTest)
#include "tst_qt_options.moc"
