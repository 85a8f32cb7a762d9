// The register map of the documentation is the one that the driver works with.

#include "page.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

class RegisterMapTest : public QObject
{
    Q_OBJECT

private slots:
    void thePageHoldsWhatTheGeneratorPrints()
    {
        QProcess generator;
        generator.start(QStringLiteral(KX_REGISTER_MAP), QStringList());
        QVERIFY(generator.waitForFinished(10000));
        const QString printed = QString::fromUtf8(generator.readAllStandardOutput());
        const QString page = sourceText("docs/register-map.md");
        QCOMPARE(between(page, "<!-- table -->\n", "<!-- end of table -->"), printed);
    }

    // Worked out by hand, for the generator itself.
    void rowsOfThePage_data()
    {
        QTest::addColumn<QString>("row");
        QTest::newRow("octal, read only")
            << "| X | bit | X0 to X377 | 0 to 255 | coils 1200 to 1455 "
               "| 001201 to 001456 | 1 | never |";
        QTest::newRow("first range") << "| M | bit | M0 to M2047 | 0 to 2047 | coils 2000 to 4047 "
                                        "| 002001 to 004048 | 1 | 5, 15 |";
        QTest::newRow("second range")
            << "| M | bit | M2048 to M10239 | 2048 to 10239 | coils 12000 to 20191 "
               "| 012001 to 020192 | 1 | 5, 15 |";
        QTest::newRow("words") << "| D | 16-bit word | D0 to D7999 | 0 to 7999 | registers 0 to "
                                  "7999 | 400001 to 408000 | 3 | 6, 16 |";
        QTest::newRow("two registers each")
            << "| 32CV | 32-bit value | 32CV200 to 32CV255 | 200 to 255 | registers 9700 to 9811 "
               "| 409701 to 409812 | 3 | 6, 16 |";
        QTest::newRow("a split without a jump")
            << "| Z | 16-bit word | Z0 to Z15 | 0 to 15 | registers 8500 to 8515 "
               "| 408501 to 408516 | 3 | 6, 16 |";
    }

    void rowsOfThePage()
    {
        QFETCH(QString, row);
        QVERIFY(sourceText("docs/register-map.md").contains("\n" + row + "\n"));
    }
};

QTEST_APPLESS_MAIN(RegisterMapTest)
#include "tst_register_map.moc"
