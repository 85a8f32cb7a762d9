#include "panel/jobs/recipe_job.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_line.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

// Milliseconds. A loaded machine delivers the answers within it.
const int REPLY_TIMEOUT = 500;

// Blocks D0 and D9 of station 1, then coil M5 in a pass of its own.
const char ROWS[] = "name,station,register,address,type,value\n"
                    "a,1,D,0,uint16,5\nb,1,D,9,uint16,6\nc,1,M,5,bit,1\n";
// Station, function 6, register, value: a station confirms with the same bytes.
const char WRITE_D0[] = "01 06 00 00 00 05";
const char WRITE_D9[] = "01 06 00 09 00 06";
// Station, function 5, coil 2000 + 5, on.
const char WRITE_M5[] = "01 05 07 D5 FF 00";

} // namespace

class RecipeJobTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void passesFollowEachOther();
    void uploadedValuesComeFromBufferAndCache();
    void failureEndsTheTransfer();
    void refusalAfterSilenceLeavesTheBlockOpen();
    void answerAfterSilenceSettlesTheBlock();
    void abortLowersTheRequest();
    void lostLineEndsTheTransfer();
    void blocksAreNoLongerThanAWrite();

private:
    void begin(const QByteArray& rows, int maxWords);
    void make(RecipeDirection direction, int maxWords = 32);
    void confirm(const char* frame) { m_line->answer({{1, withCrc(frame)}}); }

    QList<RecipeRow> m_rows;
    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<RecipeJob> m_transfer;
};

void RecipeJobTest::init()
{
    begin(ROWS, 32);
}

void RecipeJobTest::begin(const QByteArray& rows, int maxWords)
{
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error),
             qPrintable(error));
    RecipeFile file;
    QVERIFY2(RecipeFile::parse(rows, 1, &file, &error), qPrintable(error));
    m_rows = file.rows();
    m_transfer.reset();
    m_session.reset();
    m_line = std::make_unique<ScriptedLine>();
    SessionSettings settings;
    settings.exchange = {REPLY_TIMEOUT, 20, 5};
    settings.retries = 2;
    settings.maxWords = maxWords;
    m_session = Session::create(entryPoints, m_line.get(), settings, &error);
    QVERIFY2(m_session, qPrintable(error));
    m_session->start();
}

void RecipeJobTest::make(RecipeDirection direction, int maxWords)
{
    RecipeLayout layout;
    QString error;
    QVERIFY2(layOutRecipe(m_rows, maxWords, &layout, &error), qPrintable(error));
    m_transfer = std::make_unique<RecipeJob>(m_session.get(), layout, direction);
}

void RecipeJobTest::passesFollowEachOther()
{
    make(RecipeDirection::Download);
    QCOMPARE(m_transfer->blocks(), 3);
    QSignalSpy blocks(m_transfer.get(), &RecipeJob::blockDone);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    for (const char* frame : {WRITE_M5, WRITE_D0, WRITE_D9})
        confirm(frame);
    m_transfer->start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(m_line->written,
             (QList<QByteArray>{withCrc(WRITE_M5), withCrc(WRITE_D0), withCrc(WRITE_D9)}));
    QVERIFY(m_transfer->isComplete());
    QCOMPARE(m_transfer->failure().text, QString());
    QCOMPARE(m_transfer->blocksDone(), (QStringList{"M5:1@1", "D0:1@1", "D9:1@1"}));
    QCOMPARE(m_transfer->blockMaybeDone(), QString());
    QCOMPARE(blocks.size(), 3);
}

void RecipeJobTest::uploadedValuesComeFromBufferAndCache()
{
    make(RecipeDirection::Upload);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    confirm("01 01 01 01");    // function 1, byte count 1, M5 on
    confirm("01 03 02 12 34"); // function 3, byte count 2, D0
    confirm("01 03 02 AB CD"); // D9
    m_transfer->start();
    QTRY_COMPARE(finished.size(), 1);
    // Station 1, coil 2005, 1 coil; registers 0 and 9, 1 register each.
    QCOMPARE(m_line->written,
             (QList<QByteArray>{withCrc("01 01 07 D5 00 01"), withCrc("01 03 00 00 00 01"),
                                withCrc("01 03 00 09 00 01")}));
    QVERIFY(m_transfer->isComplete());
    QCOMPARE(m_transfer->values(m_rows), (QList<QList<qint64>>{{0x1234}, {0xABCD}, {1}}));
    QCOMPARE(m_session->recipeWord(1), quint16(0x1234));

    // Rows of another recipe: as many, with coils and words that were not read; and more.
    QList<RecipeRow> others = m_rows;
    others.last().range.address = 6;
    others[1].range.values = 2;
    QCOMPARE(m_transfer->values(others), (QList<QList<qint64>>{{0x1234}, {0xABCD, 0}, {0}}));
    others << m_rows;
    QCOMPARE(m_transfer->values(others), QList<QList<qint64>>());
}

void RecipeJobTest::failureEndsTheTransfer()
{
    make(RecipeDirection::Download);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    confirm(WRITE_M5);
    confirm("01 86 02"); // function 6 refused: illegal address
    confirm("01 86 02"); // and once more, which is the retry limit
    m_transfer->start();
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(!m_transfer->isComplete());
    QCOMPARE(m_transfer->failure().text,
             QStringLiteral("D0:1@1: exception 2 (illegal data address)"));
    QCOMPARE(m_transfer->blocksDone(), (QStringList{"M5:1@1"}));
    QCOMPARE(m_transfer->blockMaybeDone(), QString());
    QTest::qWait(20);
    QCOMPARE(m_line->written.size(), 3); // D9 was not tried
}

void RecipeJobTest::refusalAfterSilenceLeavesTheBlockOpen()
{
    make(RecipeDirection::Download);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    confirm(WRITE_M5);
    m_line->answer({});  // D0 may have been stored, and the reply lost
    confirm("01 86 02"); // function 6 refused: illegal address
    m_transfer->start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(m_transfer->blockMaybeDone(), QStringLiteral("D0:1@1"));
}

void RecipeJobTest::answerAfterSilenceSettlesTheBlock()
{
    make(RecipeDirection::Download);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    confirm(WRITE_M5);
    m_line->answer({}); // D0, whose second try is confirmed
    confirm(WRITE_D0);
    confirm("01 86 02"); // D9, refused twice: function 6, illegal address
    confirm("01 86 02");
    m_transfer->start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(m_transfer->blocksDone(), (QStringList{"M5:1@1", "D0:1@1"}));
    QCOMPARE(m_transfer->blockMaybeDone(), QString());
}

void RecipeJobTest::abortLowersTheRequest()
{
    make(RecipeDirection::Download);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    confirm(WRITE_M5);
    m_transfer->start();
    QTRY_COMPARE(m_line->written.size(), 2);
    m_transfer->abort(QStringLiteral("interrupted"));
    QCOMPARE(finished.size(), 1);
    QVERIFY(!m_transfer->isComplete());
    QCOMPARE(m_transfer->failure().text, QStringLiteral("interrupted"));
    QCOMPARE(m_transfer->blockMaybeDone(), QStringLiteral("D0:1@1"));
    QCOMPARE(m_transfer->blocksDone(), (QStringList{"M5:1@1"}));
    QTest::qWait(2 * REPLY_TIMEOUT);
    QCOMPARE(m_line->written.size(), 2);
    m_transfer->abort(QStringLiteral("again"));
    QCOMPARE(finished.size(), 1);
}

void RecipeJobTest::lostLineEndsTheTransfer()
{
    make(RecipeDirection::Upload);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    m_transfer->start();
    QTRY_COMPARE(m_line->written.size(), 1);
    m_line->lose();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(m_transfer->failure().text, QStringLiteral("script: the port is lost: unplugged"));
    QCOMPARE(m_transfer->blockMaybeDone(), QStringLiteral("M5:1@1"));
}

void RecipeJobTest::blocksAreNoLongerThanAWrite()
{
    QByteArray rows = "name,address,value\n";
    for (int i = 0; i < 125; ++i)
        rows += "a,D" + QByteArray::number(i) + ",7\n";
    begin(rows, 125); // registers, the longest poll
    make(RecipeDirection::Download, 123);
    m_transfer->start();
    QTRY_VERIFY(!m_line->written.isEmpty());
    // Station, function 16, first register, 123 registers, 246 bytes.
    QCOMPARE(m_line->written.first().left(7).toHex(' '), QByteArray("01 10 00 00 00 7b f6"));
}

QTEST_GUILESS_MAIN(RecipeJobTest)
#include "tst_recipe_job.moc"
