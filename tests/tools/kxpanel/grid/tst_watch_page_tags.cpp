#include "tools/kxpanel/grid/watch_page_fixture.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QPlainTextEdit>

using namespace kxpanel;

class WatchPageTagsTest : public WatchPageFixture
{
    Q_OBJECT

private slots:
    void init() { makePage(); }
    void cleanup() { m_page.reset(); }
    void savesTags();
    void whatCannotBeSavedIsSaid();
    void opensTags();
    void savedTagsAreOpenedAsTheyWere();
    void showsAllFaultsOfATagsFile();
};

void WatchPageTagsTest::savesTags()
{
    kx::Tag odd = tagOf("D7@2/float,unit=bar", "Flow, \"main\"");
    odd.comment = QStringLiteral("one\ntwo");
    odd.interval = 500;
    m_tags->insert(4, {odd, tagOf("D0@2")});
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QVERIFY(m_page->saveTags(path));
    QCOMPARE(message(), QStringLiteral("6 values saved in ") + path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray("name,station,address,count,every,format,order,scale,offset,unit,"
                        "decimals,min,max,comment\n"
                        "Pressure,1,D100,,,s16,,0.1,,bar,,0,16,\n"
                        "Ready,2,X17,,,,,,,,,,,\n"
                        "Pump,1,Y10,,,,,,,,,,,\n"
                        "D0,1,D0,,,,,,,,,,,\n"
                        "\"Flow, \"\"main\"\"\",2,D7,,500ms,float,,,,bar,,,,one two\n"
                        "D0@2,2,D0,,,,,,,,,,,\n"));
    QVERIFY(m_page->openTags(path)); // as kxhost reads it
    QCOMPARE(m_tags->size(), 12);
}

void WatchPageTagsTest::whatCannotBeSavedIsSaid()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("none/line3.csv"));
    QVERIFY(!m_page->saveTags(path));
    QVERIFY2(message().mid(2).startsWith(path), qPrintable(message()));
}

void WatchPageTagsTest::opensTags()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,station,address,count\nFlow,,D110,2\nPump,7,Y11,\n");
    file.close();
    m_page->setStation(3);
    QVERIFY(m_page->openTags(path));
    QCOMPARE(m_tags->size(), 7);
    QCOMPARE(m_tags->values().at(4).tag.name, QStringLiteral("Flow 1"));
    QCOMPARE(m_tags->values().at(4).tag.range.station, 3);
    QCOMPARE(m_tags->values().at(6).tag.name, QStringLiteral("Pump 2"));
    QCOMPARE(m_tags->values().at(6).tag.range.station, 7);
}

void WatchPageTagsTest::savedTagsAreOpenedAsTheyWere()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QVERIFY(m_page->saveTags(path));
    m_tags->setValues({});
    QVERIFY(m_page->openTags(path));
    QCOMPARE(m_tags->values().at(0).tag.name, QStringLiteral("Pressure"));
    QCOMPARE(m_tags->values().at(3).tag.name, QString()); // not its address, which may be edited
}

void WatchPageTagsTest::showsAllFaultsOfATagsFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line3.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,address,count\nFlow,D9999,2\nPump,Y11,0\n");
    file.close();
    QVERIFY(!m_page->openTags(path));
    QCOMPARE(m_tags->size(), 4);
    auto* const faults = m_page->findChild<QPlainTextEdit*>();
    QVERIFY(faults->isVisible());
    const QStringList lines = faults->toPlainText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.at(0).startsWith(path + QLatin1String(":2: address D9999: ")),
             qPrintable(lines.at(0)));
    QCOMPARE(lines.at(1), path + QLatin1String(":3: count 0: must be 1 or more"));
    QVERIFY2(message().contains(QLatin1String("has 2 faults; nothing was added")),
             qPrintable(message()));
    QTest::keyClick(m_table, Qt::Key_Escape);
    QVERIFY(!faults->isVisible());
}

QTEST_MAIN(WatchPageTagsTest)
#include "tst_watch_page_tags.moc"
