// Recipes one after the other, on a session that polls.

#include "tools/panel/jobs/polling_run.h"
#include "tools/panel/recipe/recipe_rows.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::RecipeDirection)

class RecipeTurnsTest : public QObject
{
    Q_OBJECT

private slots:
    void theNextOneBeginsAtItsFirstBlock_data();
    void theNextOneBeginsAtItsFirstBlock();
    void aBlockGivenUpIsNotTheNextOnes();
    void twoUploadsKeepTheirValues();
    void theNextOneWaitsUntilTheEndIsTold();
    void onlyACompleteUploadHasValues();
};

void RecipeTurnsTest::theNextOneBeginsAtItsFirstBlock_data()
{
    QTest::addColumn<int>("blocks");
    QTest::addColumn<bool>("isOnItsWay");
    QTest::addColumn<RecipeDirection>("direction");
    for (const auto direction : {RecipeDirection::Download, RecipeDirection::Upload}) {
        const char* const name = direction == RecipeDirection::Download ? "download" : "upload";
        QTest::addRow("%s, behind the first block", name) << 1 << false << direction;
        QTest::addRow("%s, behind the second", name) << 2 << false << direction;
        QTest::addRow("%s, with the first on its way", name) << 0 << true << direction;
        QTest::addRow("%s, with the second on its way", name) << 1 << true << direction;
        QTest::addRow("%s, with the last on its way", name) << 2 << true << direction;
    }
}

void RecipeTurnsTest::theNextOneBeginsAtItsFirstBlock()
{
    QFETCH(int, blocks);
    QFETCH(bool, isOnItsWay);
    QFETCH(RecipeDirection, direction);
    const RecipeLayout layout =
        layoutOf("a,1,D,100,uint16,5\nb,1,D,200,uint16,6\nc,1,D,300,uint16,7\n");
    // Function 6 with its value, or 3 and one register; registers 100, 200 and 300.
    const QStringList frames =
        direction == RecipeDirection::Download
            ? QStringList{"01 06 00 64 00 05", "01 06 00 C8 00 06", "01 06 01 2C 00 07"}
            : QStringList{"01 03 00 64 00 01", "01 03 00 C8 00 01", "01 03 01 2C 00 01"};
    PollingRun polling;
    RecipeJob first(&polling.session(), layout, direction);
    RecipeJob second(&polling.session(), layout, direction);
    first.start();
    second.start();
    QVERIFY(isOnItsWay ? polling.untilOnTheWay(frames.at(blocks))
                       : polling.until([&] { return first.blocksDone().size() == blocks; }));
    first.abort(QStringLiteral("interrupted"));
    QCOMPARE(static_cast<int>(first.blocksDone().size()), blocks);
    QCOMPARE(first.blockMaybeDone().isEmpty(), !isOnItsWay);
    QVERIFY(polling.untilEnded(second));
    QVERIFY(second.isComplete());
    QCOMPARE(second.blocksDone(), (QStringList{"D100:1@1", "D200:1@1", "D300:1@1"}));
    QCOMPARE(polling.asked(), QStringList(frames.mid(0, blocks) + frames));
    QVERIFY(polling.pollsGoOn());
}

// It is still on its way when the next recipe is given up, too.
void RecipeTurnsTest::aBlockGivenUpIsNotTheNextOnes()
{
    PollingRun polling;
    RecipeJob first(&polling.session(), layoutOf("a,1,D,100,uint16,5\n"),
                    RecipeDirection::Download);
    RecipeJob second(&polling.session(), layoutOf("a,1,D,200,uint16,6\n"),
                     RecipeDirection::Download);
    first.start();
    second.start();
    QVERIFY(polling.untilOnTheWay(QStringLiteral("01 06 00 64 00 05")));
    first.abort(QStringLiteral("interrupted"));
    second.abort(QStringLiteral("interrupted"));
    QCOMPARE(first.blockMaybeDone(), QStringLiteral("D100:1@1"));
    QCOMPARE(second.blockMaybeDone(), QString());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
}

// The second one fills the same buffer.
void RecipeTurnsTest::twoUploadsKeepTheirValues()
{
    PollingRun polling;
    QString error;
    for (const char* const preset : {"D100@1=7", "M5@1=1", "D200@1=8", "M6@1=0"})
        QVERIFY(polling.run().line().stations().preset(assignmentOf(preset), &error));
    const QList<RecipeRow> rows = rowsOf("a,1,D,100,uint16,\nb,1,M,5,bit,");
    const QList<RecipeRow> otherRows = rowsOf("a,1,D,200,uint16,\nb,1,M,6,bit,");
    RecipeJob first(&polling.session(), layoutOf("a,1,D,100,uint16,\nb,1,M,5,bit,\n"),
                    RecipeDirection::Upload);
    RecipeJob second(&polling.session(), layoutOf("a,1,D,200,uint16,\nb,1,M,6,bit,\n"),
                     RecipeDirection::Upload);
    first.start();
    second.start();
    QVERIFY(polling.untilEnded(second));
    QCOMPARE(first.values(rows), (QList<QList<qint64>>{{7}, {1}}));
    QCOMPARE(second.values(otherRows), (QList<QList<qint64>>{{8}, {0}}));
}

// The next one puts its words into the buffer that the upload has filled.
void RecipeTurnsTest::theNextOneWaitsUntilTheEndIsTold()
{
    PollingRun polling;
    QString error;
    QVERIFY(polling.run().line().stations().preset(assignmentOf("D100@1=7"), &error));
    RecipeJob upload(&polling.session(), layoutOf("a,1,D,100,uint16,\n"), RecipeDirection::Upload);
    RecipeJob download(&polling.session(), layoutOf("a,1,D,200,uint16,9\n"),
                       RecipeDirection::Download);
    connect(&upload, &RecipeJob::blockDone, this,
            [&] { polling.session().read(tagOf("D300@1").range); });
    upload.start();
    download.start();
    QVERIFY(polling.untilEnded(download));
    QCOMPARE(upload.values(rowsOf("a,1,D,100,uint16,")), (QList<QList<qint64>>{{7}}));
    QCOMPARE(polling.memory("D200@1"), QList<quint32>{9});
}

void RecipeTurnsTest::onlyACompleteUploadHasValues()
{
    PollingRun polling;
    const QList<RecipeRow> rows = rowsOf("a,1,D,100,uint16,1\nb,9,M,5,bit,1");
    for (const auto direction : {RecipeDirection::Download, RecipeDirection::Upload}) {
        RecipeJob job(&polling.session(), layoutOf("a,1,D,100,uint16,1\nb,9,M,5,bit,1\n"),
                      direction);
        job.start();
        QVERIFY(polling.untilEnded(job));
        QCOMPARE(job.failure().text, QStringLiteral("M5:1@9: no reply"));
        QCOMPARE(job.values(rows), QList<QList<qint64>>());
    }
    RecipeJob download(&polling.session(), layoutOf("a,1,D,100,uint16,1\n"),
                       RecipeDirection::Download);
    download.start();
    QVERIFY(polling.untilEnded(download));
    QVERIFY(download.isComplete());
    QCOMPARE(download.values(rowsOf("a,1,D,100,uint16,1")), QList<QList<qint64>>());
}

QTEST_GUILESS_MAIN(RecipeTurnsTest)
#include "tst_recipe_turns.moc"
