#include "kxpanel/recipes/transfer_texts.h"

#include "tools/kxpanel/recipes/recipe_samples.h"

#include <QtTest/QTest>

using namespace kxpanel;

class TransferTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void saysWhatHappenedBeforeItFailed_data();
    void saysWhatHappenedBeforeItFailed();
    void saysHowFileAndControllerGoTogether();
};

void TransferTextsTest::saysWhatHappenedBeforeItFailed_data()
{
    QTest::addColumn<bool>("isUpload");
    QTest::addColumn<int>("blocks");
    QTest::addColumn<QStringList>("done");
    QTest::addColumn<QString>("maybe");
    QTest::addColumn<QString>("text");
    const QStringList none;
    QTest::newRow("a read that was not begun") << true << 0 << none << ""
                                               << "Nothing was read: no reply";
    QTest::newRow("a download that was not begun") << false << 0 << none << ""
                                                   << "Nothing was sent: no reply";
    QTest::newRow("a read in its middle") << true << 3 << QStringList{"D0:2@1"} << ""
                                          << "Reading stopped after 1 of 3 request(s): no reply";
    QTest::newRow("a download at its begin")
        << false << 2 << none << "D0:2@1"
        << "Download stopped after 0 of 2 request(s): no reply; perhaps stored: D0:2@1";
    QTest::newRow("a download in its middle")
        << false << 4 << QStringList{"D0:2@1", "M5:1@1"} << ""
        << "Download stopped after 2 of 4 request(s): no reply; sent: D0:2@1, M5:1@1";
}

void TransferTextsTest::saysWhatHappenedBeforeItFailed()
{
    QFETCH(bool, isUpload);
    QFETCH(int, blocks);
    QFETCH(QStringList, done);
    QFETCH(QString, maybe);
    RecipeOutcome outcome;
    outcome.direction = isUpload ? kx::RecipeDirection::Upload : kx::RecipeDirection::Download;
    outcome.fault = QStringLiteral("no reply");
    outcome.blocks = blocks;
    outcome.blocksDone = done;
    outcome.blockMaybeDone = maybe;
    QTEST(failureWords(outcome), "text");
}

void TransferTextsTest::saysHowFileAndControllerGoTogether()
{
    RecipeModel model;
    QCOMPARE(comparisonWords(model), QString());
    model.setRows(recipeRows());
    QCOMPARE(comparisonWords(model),
             QString("5 value(s), not read from the controller, 1 not in the file"));
    model.setValues(simulatedValues());
    QCOMPARE(comparisonWords(model),
             QString("5 value(s), 1 differ(s), 1 not in the file, 3 the same"));
}

QTEST_MAIN(TransferTextsTest)

#include "tst_transfer_texts.moc"
