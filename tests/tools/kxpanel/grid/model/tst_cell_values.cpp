#include "kxpanel/grid/model/cell_values.h"

#include "tools/kxpanel/tag_samples.h"

#include <QtCore/QLocale>
#include <QtTest/QTest>

using namespace kxpanel;

class CellValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void columns_data();
    void columns();
    void decimalSigns_data();
    void decimalSigns();
    void numbers();
};

void CellValuesTest::columns_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cells"); // between |
    QTest::addColumn<QString>("fault");
    QTest::newRow("one") << "12.5\n"
                         << "12.5"
                         << "";
    QTest::newRow("several, of Windows") << "1\r\n 2 \r\n3\r\n"
                                         << "1|2|3"
                                         << "";
    QTest::newRow("empty cells at the end") << "1\n2\n\n\n"
                                            << "1|2"
                                            << "";
    QTest::newRow("an empty cell between") << "1\n\n3\n"
                                           << ""
                                           << "row 2 is empty";
    QTest::newRow("nothing") << ""
                             << ""
                             << "row 1 is empty";
    QTest::newRow("two columns") << "1\t2\n"
                                 << ""
                                 << "one column of values is needed";
}

void CellValuesTest::columns()
{
    QFETCH(QString, text);
    QFETCH(QString, cells);
    QStringList read;
    QString fault;
    const bool isRight = parseColumn(text, &read, &fault);
    QTEST(fault, "fault");
    QCOMPARE(isRight, fault.isEmpty());
    QVERIFY(!isRight || read.join(QLatin1Char('|')) == cells);
}

void CellValuesTest::decimalSigns_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("german");
    QTest::addColumn<QString>("english");
    const auto row = [](const char* name, const char* address, const char* cell, const char* german,
                        const char* english) {
        QTest::newRow(name) << QString::fromLatin1(address) << QString::fromLatin1(cell)
                            << QString::fromLatin1(german) << QString::fromLatin1(english);
    };
    row("a decimal comma", "D0/float", "-12,5", "-12.5", "-12,5");
    row("a decimal point", "D0/float", "12.5", "12.5", "12.5");
    row("groups of thousands", "D0/float", "1.234,5", "1.234,5", "1.234,5");
    row("two values", "D0", "1,2,3", "1,2,3", "1,2,3");
    row("a text", "D0/ascii:4", "1,5", "1,5", "1,5");
}

void CellValuesTest::decimalSigns()
{
    QFETCH(QString, address);
    QFETCH(QString, cell);
    const kx::Tag tag = tagOf(qPrintable(address));
    QTEST(typedValue(tag, cell, QLocale(QLocale::German)), "german");
    QTEST(typedValue(tag, cell, QLocale(QLocale::English)), "english");
}

void CellValuesTest::numbers()
{
    QVERIFY(looksLikeNumber(QStringLiteral("12.5")));
    QVERIFY(looksLikeNumber(QStringLiteral("-0x1F")));
    QVERIFY(!looksLikeNumber(QStringLiteral("D5")));
    QVERIFY(!looksLikeNumber(QStringLiteral("-")));
}

QTEST_GUILESS_MAIN(CellValuesTest)
#include "tst_cell_values.moc"
