// Where one looks for the test of a source of the library there is one.

#include "page.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

namespace
{

const QString SOURCES = QStringLiteral(KX_SOURCES);
const char* const FOLDERS[] = {"driver", "registers", "modbus", "data", "planning"};

/// Sources without a test of their own name.
const QStringList EXCEPTIONS = {
    "driver/value_change.cpp", // a single call, which every test of a report sees
};

bool hasTest(const QString& source)
{
    return QFile::exists(
        QString("%1/tests/%2/tst_%3.cpp")
            .arg(SOURCES, source.section('/', 0, -2), QFileInfo(source).completeBaseName()));
}

} // namespace

class NamesTestTest : public QObject
{
    Q_OBJECT

private slots:
    void eachSourceOfTheLibraryHasATestOfItsName()
    {
        QStringList without;
        int sources = 0;
        for (const char* const folder : FOLDERS) {
            for (const QString& name : QDir(SOURCES + '/' + folder).entryList({"*.cpp"})) {
                ++sources;
                const QString source = QString(folder) + '/' + name;
                if (!hasTest(source))
                    without << source;
            }
        }
        QCOMPARE(without, EXCEPTIONS);
        QVERIFY(sources >= 25);
    }
};

QTEST_APPLESS_MAIN(NamesTestTest)
#include "tst_test_names.moc"
