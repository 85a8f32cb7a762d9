#include "kxpanel/grid/edit/add_line.h"

#include "kxpanel/tags/tag_text.h"

#include <QtTest/QSignalSpy>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace kxpanel;

class AddLineTest : public QObject
{
    Q_OBJECT

private slots:
    void completes_data();
    void completes();
    void saysWhatIsMeantWhileSomebodyTypes();
    void addsARightAddress();
    void keepsAWrongOne();
    void theStationIsThatOfAddressesWithoutOne();
};

void AddLineTest::completes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("completions");
    QTest::newRow("types by their first letters") << "S" << QStringList{"SM", "SD"};
    QTest::newRow("a counter") << "32" << QStringList{"32CV"};
    QTest::newRow("no type has a digit in front") << "D1" << QStringList{};
    QTest::newRow("formats") << "D100/s" << QStringList{"D100/s16", "D100/s32", "D100/s64"};
    QTest::newRow("a text, whose length follows") << "D100@2/a" << QStringList{"D100@2/ascii:"};
    QTest::newRow("a whole format") << "D100/float" << QStringList{};
}

void AddLineTest::completes()
{
    QFETCH(QString, typed);
    QTEST(addressCompletions(typed), "completions");
}

void AddLineTest::saysWhatIsMeantWhileSomebodyTypes()
{
    AddLine line;
    QSignalSpy explained(&line, &AddLine::explained);
    const auto said = [&explained]() { return explained.last().first().toString(); };
    const auto isFault = [&explained]() { return explained.last().last().toBool(); };
    line.edit()->setText(QStringLiteral("X8"));
    QVERIFY2(said().startsWith(QLatin1String("X8: ")), qPrintable(said()));
    QVERIFY(isFault());
    QVERIFY(!line.findChild<QPushButton*>()->isEnabled());
    line.edit()->setText(QStringLiteral("X17"));
    QCOMPARE(said(), QStringLiteral("coil 1215 at station 1"));
    QVERIFY(!isFault());
    QVERIFY(line.findChild<QPushButton*>()->isEnabled());
    line.edit()->setText(QStringLiteral("D100:4/float"));
    QCOMPARE(said(), QStringLiteral("registers 100 to 107 at station 1, 4 values"));
    line.edit()->clear();
    QCOMPARE(said(), QString());
}

void AddLineTest::addsARightAddress()
{
    AddLine line;
    kx::Tag tag;
    connect(&line, &AddLine::added, this, [&tag](const kx::Tag& added) { tag = added; });
    QTest::keyClicks(line.edit(), QStringLiteral("D100/s16*0.1"));
    QTest::keyClick(line.edit(), Qt::Key_Return);
    QCOMPARE(typedText(tag), QStringLiteral("D100@1/s16*0.1"));
    QCOMPARE(line.edit()->text(), QString());
}

void AddLineTest::keepsAWrongOne()
{
    AddLine line;
    int count = 0;
    connect(&line, &AddLine::added, this, [&count]() { ++count; });
    QTest::keyClicks(line.edit(), QStringLiteral("D9999"));
    QTest::keyClick(line.edit(), Qt::Key_Return);
    QCOMPARE(count, 0);
    QCOMPARE(line.edit()->text(), QStringLiteral("D9999"));
}

void AddLineTest::theStationIsThatOfAddressesWithoutOne()
{
    AddLine line;
    QSignalSpy changed(&line, &AddLine::stationChanged);
    line.setStation(7);
    QCOMPARE(changed.size(), 1);
    QStringList added;
    connect(&line, &AddLine::added, this,
            [&added](const kx::Tag& tag) { added << typedText(tag); });
    for (const char* const typed : {"D0", "D0@2"}) {
        line.edit()->setText(QString::fromLatin1(typed));
        QTest::keyClick(line.edit(), Qt::Key_Return);
    }
    QCOMPARE(added, (QStringList{"D0@7", "D0@2"}));
    line.setStation(248);
    QCOMPARE(line.station(), 247);
}

QTEST_MAIN(AddLineTest)
#include "tst_add_line.moc"
