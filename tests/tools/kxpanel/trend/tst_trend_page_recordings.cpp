// Recordings that a trend saves and shows.

#include "kxpanel/tags/tag_list.h"
#include "kxpanel/trend/plot/trend_picture.h"
#include "tools/kxpanel/trend/trend_page_fixture.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <memory>

using kxpanel::BLUE;
using kxpanel::TagList;
using kxpanel::TrendLegend;
using kxpanel::TrendPlot;
using kxpanel::TrendSide;
using kxpanel::Window;

namespace
{

/// D1 of station 1, over a second.
struct Recording {
    QTemporaryDir folder;
    QString path = folder.filePath("a.csv");

    Recording()
    {
        QFile file(path);
        const QByteArray rows =
            "time,D1@1,gaps\n2026-11-23T10:00:00.000Z,1,\n2026-11-23T10:00:01.000Z,2,\n";
        if (!file.open(QIODevice::WriteOnly) || file.write(rows) != rows.size())
            qFatal("the recording cannot be made");
    }
};

QByteArray svgOf(TrendPlot* plot, const TrendLegend& legend)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("plot.svg"));
    QString error;
    const bool isSaved =
        kxpanel::saveTrendPicture(file.fileName(), plot, legend, QString(), &error);
    return isSaved && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TrendPageRecordingsTest : public QObject
{
    Q_OBJECT

private slots:
    void aRecordingIsOpened();
    void aRecordingCountsUntilItsEnd();
    void aFileThatCannotBeReadLeavesTheOneBeingRead();
    void aRecordingGoesWithItsProject();
    void aFileBeingReadIsNotShownInAnotherProject();
};

void TrendPageRecordingsTest::aRecordingIsOpened()
{
    QTemporaryDir folder;
    Window window;
    window.drop({window.numbers.at(0)});
    window.read();
    window.waitUntilDrawn();
    window.page.files()->saveValues(folder.filePath("plot.csv"));
    QCOMPARE(window.said.last().at(0).toString(),
             QString("Saving %1 \u2026").arg(folder.filePath("plot.csv")));
    window.page.files()->saveValues(folder.filePath("other.csv"));
    QCOMPARE(window.said.last().at(0).toString(),
             folder.filePath("plot.csv") + " is still being saved");
    QTRY_COMPARE(window.said.last().at(0).toString(), folder.filePath("plot.csv") + " is saved");
    QVERIFY(!QFile::exists(folder.filePath("other.csv")));

    Window other;
    QVERIFY(!other.action("showRecording")->isEnabled());
    other.page.files()->open(folder.filePath("plot.csv"));
    QTRY_COMPARE(other.legend->rowCount(), 1);
    other.waitUntilDrawn();
    QCOMPARE(other.text(0, TrendLegend::Name), QString("Pressure (recorded)"));
    QVERIFY(!other.action("live")->isChecked());
    QCOMPARE(other.from(), window.firstRead);
    QVERIFY(other.pixelsOf(BLUE) > 100);
    QVERIFY(other.said.last().at(0).toString().startsWith(folder.filePath("plot.csv")));
    other.key(Qt::Key_Home); // and back
    other.waitUntilDrawn();
    QVERIFY(other.from() != window.firstRead);
    other.key(Qt::Key_R);
    other.waitUntilDrawn();
    QCOMPARE(other.from(), window.firstRead);
    other.page.files()->open(folder.filePath("none.csv"));
    QVERIFY(other.said.last().at(0).toString().startsWith(folder.filePath("none.csv") + ": "));
    QCOMPARE(other.legend->rowCount(), 1);
}

void TrendPageRecordingsTest::aRecordingCountsUntilItsEnd()
{
    kxpanel::TrendChannel channel;
    channel.number = -1;
    channel.name = QStringLiteral("Level (recorded)");
    channel.endsAt = 20000;
    channel.store = std::make_shared<kxpanel::TrendStore>();
    channel.store->append(10000, 700);
    kxpanel::TrendChannel lane = channel;
    lane.number = -2;
    lane.name = QStringLiteral("Tank");
    lane.wanted = kxpanel::TrendAxis::Lane;
    TagList tags;
    kxpanel::TrendChannels channels(&tags);
    channels.setRecorded({channel, lane});
    kxpanel::TrendView view;
    TrendPlot plot(&channels, &view);
    const TrendLegend legend(&channels, &view);
    plot.resize(600, 400);
    view.show(20000, 60000);
    plot.refresh();
    QVERIFY(plot.shownValues(TrendSide::Left).high > 700);
    QVERIFY(svgOf(&plot, legend).contains(">Tank  700 ")); // the lane's lowest and highest
    view.show(20001, 60000);
    plot.refresh();
    QVERIFY(plot.shownValues(TrendSide::Left).high < 700);
    const QByteArray behind = svgOf(&plot, legend);
    QCOMPARE(behind.count(">Tank"), 2); // one of them the legend's
    QVERIFY(!behind.contains(">Tank  700 "));
}

void TrendPageRecordingsTest::aFileThatCannotBeReadLeavesTheOneBeingRead()
{
    const Recording recording;
    Window window;
    window.page.files()->open(recording.path);
    window.page.files()->open(recording.folder.filePath("none.csv"));
    QTRY_COMPARE(window.legend->rowCount(), 1);
    QVERIFY2(window.said.last().at(0).toString().startsWith(recording.path),
             qPrintable(window.said.last().at(0).toString()));
}

void TrendPageRecordingsTest::aRecordingGoesWithItsProject()
{
    const Recording recording;
    Window window;
    window.drop({window.numbers.at(0)});
    const QJsonObject project = window.page.layout();
    window.page.files()->open(recording.path);
    QTRY_COMPARE(window.legend->rowCount(), 2);
    QVERIFY(window.action("showRecording")->isEnabled());
    window.page.setLayout(project);
    QCOMPARE(window.legend->rowCount(), 1);
    QCOMPARE(window.text(0, TrendLegend::Name), QString("Pressure"));
    QVERIFY(!window.action("showRecording")->isEnabled());
    window.key(Qt::Key_R);
    QVERIFY(window.action("live")->isChecked());
    window.page.files()->open(recording.path); // which may come back
    QTRY_COMPARE(window.legend->rowCount(), 2);
    QVERIFY(window.action("showRecording")->isEnabled());
}

void TrendPageRecordingsTest::aFileBeingReadIsNotShownInAnotherProject()
{
    const Recording recording;
    Window window;
    window.page.files()->open(recording.path);
    window.page.setLayout({});
    window.waitUntilDrawn();
    QCOMPARE(window.legend->rowCount(), 0);
    QVERIFY(window.action("live")->isChecked());
    QCOMPARE(window.said.last().at(0).toString(), recording.path + " is no longer read");
}

QTEST_MAIN(TrendPageRecordingsTest)
#include "tst_trend_page_recordings.moc"
