// Recipes and condition reads on a line with faults: what was sent is in the controllers'
// memories, and what was read is what they hold.

#include "panel/jobs/read_job.h"
#include "panel/jobs/recipe_job.h"
#include "registers/register_types.h"
#include "tools/faults/faulty_run.h"

#include <QtTest/QTest>

#include <random>

using namespace kx;

namespace
{

const int SHORT_RUN = 100; // recipes, or rounds of condition reads

/// Few lengths, so that many requests differ in their addresses only.
const char* const RANGES[] = {"D0:8@1",    "D20:8@1", "D40:8@1", "D100:20@1", "32CV200:6@1",
                              "SD252:8@1", "M0:20@1", "Y10:9@1", "D0:8@2",    "D20:8@2",
                              "D40:8@2",   "TV7:2@2", "M0:20@2", "S100:7@2"};

const int ALL_RANGES = static_cast<int>(sizeof RANGES / sizeof RANGES[0]);

FaultyRunSettings twoStations(double probability)
{
    FaultyRunSettings settings;
    settings.line.stations = {1, 2};
    settings.session.maxWords = 8;
    settings.session.retries = 60; // nothing is to fail
    QString error;
    if (!kxsim::addFault(QStringLiteral("all:%1").arg(probability), &settings.line.faults, &error))
        qFatal("%s", qPrintable(error));
    return settings;
}

quint32 anyValue(const RegisterType* type, std::mt19937* random)
{
    const quint32 bits = static_cast<quint32>((*random)());
    return type->registerClass == BIT_CLASS           ? bits & 1
           : type->registerClass == DOUBLE_WORD_CLASS ? bits
                                                      : bits & 0xFFFF;
}

QList<quint32> inMemory(const AddressRange& range, FaultyRun* run)
{
    QList<quint32> values;
    QString error;
    if (!run->line().stations().values(range, &values, &error))
        qFatal("%s", qPrintable(error));
    return values;
}

/// Other values in all ranges. From then on the memories stand still.
void fillMemory(FaultyRun* run, std::mt19937* random)
{
    run->line().onRequest = nullptr;
    for (const char* const text : RANGES) {
        Assignment preset = {rangeOf(QLatin1String(text)), {}};
        for (int i = 0; i < preset.range.values; ++i)
            preset.values << anyValue(preset.range.type, random);
        QString error;
        if (!run->line().stations().preset(preset, &error))
            qFatal("%s", qPrintable(error));
    }
}

/// A row for each address of the first so many ranges.
QList<RecipeRow> recipeRows(int ranges)
{
    QByteArray text = "name,station,register,address,type,value\n";
    for (int i = 0; i < ranges; ++i) {
        const AddressRange all = rangeOf(QLatin1String(RANGES[i]));
        const QByteArray type = all.type->name;
        const char* const kind = all.type->registerClass == BIT_CLASS           ? "bit"
                                 : all.type->registerClass == DOUBLE_WORD_CLASS ? "uint32"
                                                                                : "uint16";
        for (int value = 0; value < all.values; ++value) {
            const QByteArray address = addressText(all.type, all.address + value).toLatin1();
            text += QByteArrayList{address, QByteArray::number(all.station),
                                   type,    address.mid(type.size()),
                                   kind,    "0"}
                        .join(',')
                    + '\n';
        }
    }
    RecipeFile file;
    QString error;
    if (!RecipeFile::parse(text, 1, &file, &error))
        qFatal("%s", qPrintable(error));
    return file.rows();
}

/// Runs a transfer to its end; whether it came to one.
template <class Transfer>
bool runToTheEnd(Transfer* transfer, FaultyRun* run)
{
    bool isFinished = false;
    QObject::connect(transfer, &Transfer::finished, transfer, [&] { isFinished = true; });
    transfer->start();
    run->runUntil([&] { return isFinished; });
    return isFinished;
}

} // namespace

class TransfersUnderFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void downloadedRecipesAreInMemory_data();
    void downloadedRecipesAreInMemory();
    void uploadedRecipesAreAsInMemory_data() { addRows(); }
    void uploadedRecipesAreAsInMemory();
    void conditionReadsAreAsInMemory_data() { addRows(); }
    void conditionReadsAreAsInMemory();

private:
    static void addRows();
    static void checkAccounts(FaultyRun* run, double probability);
};

void TransfersUnderFaultsTest::addRows()
{
    QTest::addColumn<double>("probability");
    QTest::newRow("a sound line") << 0.0;
    QTest::newRow("every tenth request meets a fault") << 0.1;
    QTest::newRow("six of ten requests meet a fault") << 0.6;
}

void TransfersUnderFaultsTest::checkAccounts(FaultyRun* run, double probability)
{
    const Statistics& host = run->session().statistics();
    qInfo("%s", qPrintable(run->line().faults().summary()));
    QCOMPARE(host.failed, qint64(0));
    QCOMPARE(host.accepted + host.repeated, host.requests);
    QCOMPARE(host.bad.sum(), host.repeated);
    QCOMPARE(host.reopened, run->faults(kxsim::Fault::Close));
    const bool isSound = probability == 0.0;
    for (int kind = 1; kind < kxsim::FAULT_COUNT; ++kind)
        QCOMPARE(run->faults(static_cast<kxsim::Fault>(kind)) == 0, isSound);
}

void TransfersUnderFaultsTest::downloadedRecipesAreInMemory_data()
{
    QTest::addColumn<double>("probability");
    QTest::addColumn<int>("ranges");
    QTest::newRow("a sound line") << 0.0 << ALL_RANGES;
    QTest::newRow("every tenth request meets a fault") << 0.1 << ALL_RANGES;
    QTest::newRow("six of ten requests meet a fault") << 0.6 << ALL_RANGES;
    // The late confirmation of a block must not be taken for that of the next recipe's.
    QTest::newRow("short recipes follow each other closely") << 0.6 << 2;
}

void TransfersUnderFaultsTest::downloadedRecipesAreInMemory()
{
    QFETCH(double, probability);
    QFETCH(int, ranges);
    FaultyRun run(twoStations(probability));
    run.line().onRequest = nullptr;
    std::mt19937 random(5);
    QList<RecipeRow> rows = recipeRows(ranges);
    for (int left = runLength("KX_FAULT_TRANSFERS", SHORT_RUN); left > 0; --left) {
        for (RecipeRow& row : rows)
            row.value = {anyValue(row.range.type, &random)};
        RecipeLayout layout;
        QString error;
        QVERIFY2(layOutRecipe(rows, 8, &layout, &error), qPrintable(error));
        RecipeJob transfer(&run.session(), layout, RecipeDirection::Download);
        QVERIFY(runToTheEnd(&transfer, &run));
        QVERIFY2(transfer.isComplete(), qPrintable(transfer.failure().text));
        for (const RecipeRow& row : rows)
            QCOMPARE(inMemory(row.range, &run), QList<quint32>{quint32(row.value.first())});
    }
    checkAccounts(&run, probability);
}

void TransfersUnderFaultsTest::uploadedRecipesAreAsInMemory()
{
    QFETCH(double, probability);
    FaultyRun run(twoStations(probability));
    std::mt19937 random(6);
    const QList<RecipeRow> rows = recipeRows(ALL_RANGES);
    RecipeLayout layout;
    QString error;
    QVERIFY2(layOutRecipe(rows, 8, &layout, &error), qPrintable(error));
    for (int left = runLength("KX_FAULT_TRANSFERS", SHORT_RUN); left > 0; --left) {
        fillMemory(&run, &random);
        RecipeJob transfer(&run.session(), layout, RecipeDirection::Upload);
        QVERIFY(runToTheEnd(&transfer, &run));
        QVERIFY2(transfer.isComplete(), qPrintable(transfer.failure().text));
        QList<QList<qint64>> held;
        for (const RecipeRow& row : rows)
            held << QList<qint64>{inMemory(row.range, &run).first()};
        QCOMPARE(transfer.values(rows), held);
    }
    checkAccounts(&run, probability);
}

void TransfersUnderFaultsTest::conditionReadsAreAsInMemory()
{
    QFETCH(double, probability);
    FaultyRunSettings settings = twoStations(probability);
    // Cyclic reads go on between them.
    settings.watched << QStringLiteral("D20:8@1") << QStringLiteral("D40:8@2");
    FaultyRun run(settings);
    std::mt19937 random(7);
    QList<Tag> tags;
    for (const char* const text : RANGES)
        tags << Tag{QString(), rangeOf(QLatin1String(text)), QString(), -1, ValueFormat()};
    for (int left = runLength("KX_FAULT_TRANSFERS", SHORT_RUN); left > 0; --left) {
        fillMemory(&run, &random);
        ReadJob reads(&run.session(), tags);
        int ranges = 0;
        connect(&reads, &ReadJob::rangeFinished, this, [&](const ReadOutcome& outcome) {
            QCOMPARE(outcome.failure.text, QString());
            QList<quint32> values;
            for (const qint64 value : outcome.values)
                values << static_cast<quint32>(value);
            QCOMPARE(values, inMemory(outcome.tag.range, &run));
            ++ranges;
        });
        QVERIFY(runToTheEnd(&reads, &run));
        QCOMPARE(ranges, static_cast<int>(tags.size()));
    }
    checkAccounts(&run, probability);
}

QTEST_GUILESS_MAIN(TransfersUnderFaultsTest)
#include "tst_transfers_under_faults.moc"
