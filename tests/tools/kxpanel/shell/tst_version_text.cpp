#include "kxpanel/shell/version_text.h"

#include <QtTest/QTest>

using namespace kxpanel;

class VersionTextTest : public QObject
{
    Q_OBJECT

private slots:
    void aRowForEachPart();
};

void VersionTextTest::aRowForEachPart()
{
    const QStringList rows = versionRows();
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0), QStringLiteral("kxpanel " KX_VERSION));
    QCOMPARE(rows.at(1), QStringLiteral("Qt ") + QString::fromLatin1(qVersion()));
    const QString driver = rows.at(2).section(": ", 1);
    QVERIFY2(rows.at(2).startsWith("driver library: "), qPrintable(rows.at(2)));
    QVERIFY2(driver.contains("libtarvelan_kx_series.so.1"), qPrintable(driver)); // or why it is not
}

QTEST_GUILESS_MAIN(VersionTextTest)
#include "tst_version_text.moc"
