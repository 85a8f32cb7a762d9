// A controller changes all of its registers at once, from one request to the next: a value of
// several registers that are not equal is of two replies, and was never in the controller.

#include "panel/jobs/read_job.h"
#include "panel/jobs/write_job.h"
#include "panel/watch/watch.h"
#include "tools/panel/plan/range_texts.h"
#include "tools/panel/watch/numbering_line.h"

#include <QtTest/QTest>

#include <random>

using namespace kx;

class WholeValuesWatchedTest : public QObject
{
    Q_OBJECT

private slots:
    void noValueIsTorn_data();
    void noValueIsTorn();
    void randomListsAreNotTorn();
    void aValueIsToldOnceForAllItsRegisters();
    void aReadOfAPartIsNotTaken();
    void whatPartsBroughtIsTakenWithTheWhole();
    void aWriteIsShownAtOnceAndAsAWhole();
    void aWriteIsOneRequest_data();
    void aWriteIsOneRequest();
    void aListReplacedKeepsValuesOfTheSameWidth();
    void aValueThatNoRequestCanReadFails();
    void valuesReadOnceAreNotTorn_data();
    void valuesReadOnceAreNotTorn();
    void whatLiesInAValueThatFailsIsRead();
};

namespace
{

const int CYCLES = 40;

DriverEntryPoints loadedDriver()
{
    DriverEntryPoints entryPoints;
    QString error;
    if (!loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error))
        qFatal("%s", qPrintable(error));
    return entryPoints;
}

/// "D0:3x2" or "D0x2/500": read every 500 ms.
Tag tagOf(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('/'));
    Tag tag;
    tag.range = rangeOfText(parts.first() + QLatin1String("@1"));
    tag.interval = parts.value(1).toInt();
    if (tag.range.width > 1) {
        tag.format.kind = ValueKind::Ascii; // which has any width
        tag.format.words = tag.range.width;
    }
    return tag;
}

QList<Tag> tagsOf(const QString& texts)
{
    QList<Tag> tags;
    for (const QString& text : texts.split(QLatin1Char(' ')))
        tags << tagOf(text);
    return tags;
}

/// 70 values of two registers, each of which shares one with the next.
QString overlapping()
{
    QStringList texts;
    for (int address = 0; address < 140; ++address)
        texts << QStringLiteral("D%1x2").arg(address);
    return texts.join(QLatin1Char(' '));
}

bool isTorn(const QList<qint64>& raw)
{
    return !raw.isEmpty()
           && raw != QList<qint64>(QVector<qint64>(raw.size(), raw.first()).toList());
}

/// A session on such a controller, and its watch.
class Run
{
public:
    explicit Run(const SessionSettings& settings) : line(&clock)
    {
        line.changesAtOnce = true;
        QString error;
        session = Session::create(loadedDriver(), &line, settings, &error, &clock);
        if (!session)
            qFatal("%s", qPrintable(error));
        watch = std::make_unique<Watch>(session.get());
        QObject::connect(watch.get(), &Watch::entriesChanged, watch.get(),
                         [this](const QList<int>& indexes) { onChanged(indexes); });
        QObject::connect(session.get(), &Session::exchanged, session.get(),
                         [this](const ExchangeRecord& record) {
                             log << QStringLiteral("%1%2:%3")
                                        .arg(record.job.regType)
                                        .arg(record.job.address)
                                        .arg(record.job.count);
                         });
    }

    bool cycles(qint64 count)
    {
        const qint64 end = watch->summary().cycles + count;
        while (watch->summary().cycles < end) {
            if (!clock.step())
                return false;
            lookAtAll();
        }
        return true;
    }

    const WatchEntry& entry(int index) const { return watch->list().entries().at(index); }

    VirtualClock clock;
    NumberingLine line;
    std::unique_ptr<Session> session;
    std::unique_ptr<Watch> watch;
    QStringList torn; ///< values, in the order in which they were seen
    int told = 0;     ///< entries
    QStringList log;

private:
    void onChanged(const QList<int>& indexes)
    {
        told += static_cast<int>(indexes.size());
        lookAtAll();
    }

    void lookAtAll()
    {
        for (const WatchEntry& seen : watch->list().entries()) {
            if (isTorn(seen.raw()))
                torn << addressText(seen.type, seen.address);
        }
    }
};

SessionSettings settingsOf(int maxWords, bool choosesLengths)
{
    SessionSettings settings;
    settings.retries = 1;
    settings.maxWords = maxWords;
    settings.choosesLengths = choosesLengths;
    return settings;
}

} // namespace

void WholeValuesWatchedTest::noValueIsTorn_data()
{
    QTest::addColumn<QString>("tags");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<int>("mostRegisters"); // of the controller
    QTest::newRow("a limit that would cut each second value") << "D0:8x2" << 3 << 125;
    QTest::newRow("a limit below the width") << "D0:3x4 D12:2" << 1 << 125;
    QTest::newRow("text beyond the limit") << "D0x100 D50x4 D99x2" << 32 << 125;
    QTest::newRow("widths that overlap") << "D0:6x2 D1:3x3 D4 D5x4 D11x2" << 5 << 125;
    QTest::newRow("values of which each shares a register with the next")
        << overlapping() << 125 << 125;
    QTest::newRow("a part read more often than the whole")
        << "D1 D0x2/20 D4:2/10 D3x4/30" << 125 << 125;
    QTest::newRow("a controller that refuses long requests") << "D0:60x2" << 125 << 17;
    QTest::newRow("and gaps between") << "D0:9x4 D40:9x4 D90x2" << 125 << 20;
    QTest::newRow("on both sides of a split") << "SD250:3x2 SD256:3x2" << 125 << 125;
}

void WholeValuesWatchedTest::noValueIsTorn()
{
    QFETCH(QString, tags);
    QFETCH(int, maxWords);
    QFETCH(int, mostRegisters);
    for (const bool choosesLengths : {true, false}) {
        if (!choosesLengths && mostRegisters < maxWords)
            continue; // then nothing is learned of the controller
        Run run(settingsOf(maxWords, choosesLengths));
        run.line.controller.mostRegisters = mostRegisters;
        run.watch->setTags(tagsOf(tags));
        run.session->start();
        QVERIFY(run.cycles(10)); // what the controller refuses is learned
        const int toldBefore = run.told;
        QVERIFY(run.cycles(CYCLES));
        QCOMPARE(run.torn, QStringList());
        QVERIFY(run.watch->list().allAnswered());
        QVERIFY(run.told - toldBefore >= CYCLES);
        for (const WatchEntry& entry : run.watch->list().entries())
            QVERIFY2(entry.changedAt > 0, qPrintable(addressText(entry.type, entry.address)));
    }
}

void WholeValuesWatchedTest::randomListsAreNotTorn()
{
    std::mt19937 source(3);
    for (int round = 0; round < 150; ++round) {
        QStringList tags;
        for (auto i = 1 + source() % 12; i > 0; --i) {
            tags << QStringLiteral("D%1:%2x%3/%4")
                        .arg(source() % 60)
                        .arg(1 + source() % 4)
                        .arg(1 + source() % 6)
                        .arg(source() % 2 * (source() % 3) * 100);
        }
        Run run(settingsOf(1 + static_cast<int>(source() % 20), round % 2 == 0));
        run.watch->setTags(tagsOf(tags.join(QLatin1Char(' '))));
        run.session->start();
        QVERIFY(run.cycles(12));
        QVERIFY2(run.torn.isEmpty(), qPrintable(tags.join(QLatin1Char(' '))));
    }
}

void WholeValuesWatchedTest::aValueIsToldOnceForAllItsRegisters()
{
    Run run(settingsOf(125, true));
    run.watch->setTags(tagsOf(QStringLiteral("D0x4 D10")));
    run.session->start();
    QVERIFY(run.cycles(2));
    run.told = 0;
    QVERIFY(run.cycles(10));
    QCOMPARE(run.told, 20); // of two entries, in each of ten cycles
}

// D1 alone, of the value on D0 and D1: the rest of it is older.
void WholeValuesWatchedTest::aReadOfAPartIsNotTaken()
{
    Run run(settingsOf(125, true));
    run.watch->setTags(tagsOf(QStringLiteral("D0x2/5000")));
    run.session->start();
    QVERIFY(run.cycles(1));
    const QList<qint64> before = run.entry(0).raw();
    QCOMPARE(before.size(), 2);
    ReadJob job(run.session.get(), {tagOf(QStringLiteral("D1"))});
    job.start();
    while (!job.hasEnded())
        QVERIFY(run.clock.step());
    QCOMPARE(run.entry(0).raw(), before);
    QVERIFY(run.session->values(run.entry(0).range()) != before);
    QVERIFY(run.cycles(1));
    QVERIFY(run.entry(0).raw() != before);
    QCOMPARE(run.torn, QStringList());
}

// The driver has reported both registers by then, and reports nothing at the poll.
void WholeValuesWatchedTest::whatPartsBroughtIsTakenWithTheWhole()
{
    Run run(settingsOf(125, true));
    run.line.changesAtOnce = false;
    run.line.controller.held = 5;
    run.watch->setTags(tagsOf(QStringLiteral("D0x2/5000")));
    run.session->start();
    QVERIFY(run.cycles(1));
    run.line.controller.held = 6;
    for (const char* const part : {"D0", "D1"}) {
        ReadJob job(run.session.get(), {tagOf(QLatin1String(part))});
        job.start();
        while (!job.hasEnded())
            QVERIFY(run.clock.step());
    }
    QCOMPARE(run.entry(0).raw(), (QList<qint64>{5, 5}));
    QVERIFY(run.cycles(1));
    QCOMPARE(run.entry(0).raw(), (QList<qint64>{6, 6}));
}

void WholeValuesWatchedTest::aWriteIsShownAtOnceAndAsAWhole()
{
    Run run(settingsOf(125, true));
    run.watch->setTags(tagsOf(QStringLiteral("D0x2/5000")));
    run.session->start();
    QVERIFY(run.cycles(1));
    const QList<qint64> before = run.entry(0).raw();
    run.session->write({rangeOfText(QStringLiteral("D1@1")), {7}});
    QCOMPARE(run.entry(0).raw(), before);
    run.session->write({rangeOfText(QStringLiteral("D0x2@1")), {8000, 8000}});
    while (run.entry(0).raw() == before)
        QVERIFY(run.clock.step());
    QCOMPARE(run.entry(0).raw(), (QList<qint64>{8000, 8000}));
    QCOMPARE(run.torn, QStringList());
}

void WholeValuesWatchedTest::aWriteIsOneRequest_data()
{
    QTest::addColumn<QString>("range");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("written");
    QTest::newRow("a limit below the width") << "D0x4" << 1 << "D0:4";
    QTest::newRow("a limit that would cut the second value") << "D0:2x2" << 3 << "D0:2 D2:2";
    QTest::newRow("the longest that a request carries") << "D0x123" << 32 << "D0:123";
    QTest::newRow("one register more") << "D0x124" << 125 << "";
}

void WholeValuesWatchedTest::aWriteIsOneRequest()
{
    QFETCH(QString, range);
    QFETCH(int, maxWords);
    Run run(settingsOf(maxWords, true));
    run.session->start();
    const AddressRange wanted = rangeOfText(range + QLatin1String("@1"));
    WriteJob job(run.session.get(), {{wanted, QVector<qint64>(wanted.values, 5).toList()}});
    job.start();
    QTRY_VERIFY(!run.clock.step() || job.hasEnded()); // a refusal comes from the event loop
    QTRY_VERIFY(job.hasEnded());
    QTEST(run.log.join(QLatin1Char(' ')), "written");
    QCOMPARE(job.failure().kind, run.log.isEmpty() ? FailureKind::TooLong : FailureKind::None);
}

void WholeValuesWatchedTest::aListReplacedKeepsValuesOfTheSameWidth()
{
    Run run(settingsOf(125, true));
    run.watch->setTags(tagsOf(QStringLiteral("D0x2 D1 D10x4")));
    run.session->start();
    QVERIFY(run.cycles(2));
    const QList<qint64> pair = run.entry(0).raw();
    run.watch->setTags(tagsOf(QStringLiteral("D10x2 D0x2 D0x4 D1")));
    QCOMPARE(run.entry(0).raw(), QList<qint64>());
    QCOMPARE(run.entry(1).raw(), pair);
    QCOMPARE(run.entry(2).raw(), QList<qint64>());
    QCOMPARE(run.entry(3).raw(), pair.mid(1));
}

void WholeValuesWatchedTest::aValueThatNoRequestCanReadFails()
{
    Run run(settingsOf(125, true));
    run.line.controller.mostRegisters = 16;
    run.watch->setTags(tagsOf(QStringLiteral("D0x20 D100:16x2")));
    run.session->start();
    QVERIFY(run.cycles(10));
    QCOMPARE(run.entry(0).state, WatchState::Refused);
    for (int index = 1; index <= 16; ++index)
        QCOMPARE(run.entry(index).state, WatchState::Ok);
    run.log.clear();
    QVERIFY(run.cycles(1));
    QCOMPARE(run.log.join(QLatin1Char(' ')), QStringLiteral("D0:20 D100:16 D116:16"));
}

void WholeValuesWatchedTest::valuesReadOnceAreNotTorn_data()
{
    QTest::addColumn<QString>("tags");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<int>("mostRegisters");
    QTest::newRow("a limit that would cut each second value") << "D0:8x2" << 3 << 125;
    QTest::newRow("a limit below the width") << "D0:3x4 D1 D6x2" << 1 << 125;
    QTest::newRow("values that share registers") << overlapping() << 125 << 125;
    QTest::newRow("in another order") << "D124x2 D0x2 D123x2 D1:124" << 125 << 125;
    QTest::newRow("refused, and asked for in halves") << "D0:31x4" << 125 << 18;
    QTest::newRow("halves of values that share registers") << "D0:9x2 D1:9x4 D3x3" << 125 << 18;
}

void WholeValuesWatchedTest::valuesReadOnceAreNotTorn()
{
    QFETCH(QString, tags);
    QFETCH(int, maxWords);
    QFETCH(int, mostRegisters);
    Run run(settingsOf(maxWords, true));
    run.line.controller.mostRegisters = mostRegisters;
    run.session->start();
    const QList<Tag> wanted = tagsOf(tags);
    ReadJob job(run.session.get(), wanted);
    int read = 0;
    connect(&job, &ReadJob::rangeFinished, this, [&](const ReadOutcome& outcome) {
        const AddressRange& range = outcome.tag.range;
        QVERIFY2(outcome.failure.isNone(), qPrintable(outcome.failure.text));
        for (int i = 0; i < range.values; i += range.width)
            QVERIFY2(!isTorn(outcome.values.mid(i, range.width)),
                     qPrintable(addressText(range.type, range.address + i)));
        ++read;
    });
    job.start();
    while (!job.hasEnded())
        QVERIFY(run.clock.step());
    QCOMPARE(read, static_cast<int>(wanted.size()));
}

// Register 5 is missing: of the values that hold it, none can be read; all others can.
void WholeValuesWatchedTest::whatLiesInAValueThatFailsIsRead()
{
    Run run(settingsOf(125, true));
    run.line.controller.missing = 5;
    run.session->start();
    ReadJob job(run.session.get(), tagsOf(QStringLiteral("D0x10 D1x2 D4x2 D6 D5 D8x4")));
    QStringList failed;
    connect(&job, &ReadJob::rangeFinished, this, [&](const ReadOutcome& outcome) {
        if (!outcome.failure.isNone())
            failed << addressText(outcome.tag.range.type, outcome.tag.range.address);
    });
    job.start();
    while (!job.hasEnded())
        QVERIFY(run.clock.step());
    QCOMPARE(failed, (QStringList{"D0", "D4", "D5"}));
}

QTEST_GUILESS_MAIN(WholeValuesWatchedTest)
#include "tst_whole_values_watched.moc"
