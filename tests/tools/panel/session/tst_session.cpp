#include "panel/session/session.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_line.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

// Milliseconds. A loaded machine delivers the answers within it.
const int REPLY_TIMEOUT = 500;

AddressRange range(const char* address)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(QString::fromLatin1(address), &range, &error))
        qFatal("%s", qPrintable(error));
    range.station = 1;
    return range;
}

Assignment assignment(const char* text)
{
    Assignment assignment;
    QString error;
    if (!parseAssignment(QString::fromLatin1(text), &assignment, &error))
        qFatal("%s", qPrintable(error));
    assignment.range.station = 1;
    return assignment;
}

_RCP_VAR_PRO recipeVariable(int address, int offset)
{
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.station = 1;
    variable.regType = QString::fromLatin1("D");
    variable.address = address;
    variable.count = 1;
    variable.bufOffset = offset;
    return variable;
}

} // namespace

class SessionTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void watchedValueIsToldOnceStored();
    void watchedRangesAreCut();
    void retryLimitAndRequestLengthReachTheDriver();
    void readEndsWithItsValues();
    void failedReadSaysWhy();
    void readsAreDoneInTheirOrder();
    void aFailedReadTakesNoOtherWithIt();
    void writtenValuesGoOut_data();
    void writtenValuesGoOut();
    void writeFromInsideASignal();
    void writesToTheCacheOnlyEndAtOnce();
    void refusedRequestsEndFromTheEventLoop_data();
    void refusedRequestsEndFromTheEventLoop();
    void nothingIsTakenWhileTheSessionDoesNotRun();
    void whatWaitsCanBeCancelled_data();
    void whatWaitsCanBeCancelled();
    void roomOfACancelledWriteIsUsedAtOnce();
    void replyToAnEndedWriteEndsNoOther_data();
    void replyToAnEndedWriteEndsNoOther();
    void theDriversOwnIsNotSentOnceCancelled_data();
    void theDriversOwnIsNotSentOnceCancelled();
    void recipeIsSent();
    void recipeReadFillsTheBuffer();
    void recipesAreDoneInTheirOrder();
    void wordsPastTheBufferAreRefused();
    void manyReadsNeedNoIdleInterval();
    void aSecondSessionIsRefused();
    void aLineLostWhileASlotAsksForMore();
    void aSlotMayStopTheSessionFromInsideWrite();
    void nothingOfWhatHasEndedIsSentLater();

private:
    void makeSession();
    QList<QByteArray> written() const { return m_line->written; }

    DriverEntryPoints m_entryPoints;
    SessionSettings m_settings;
    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<Session> m_session;
};

void SessionTest::init()
{
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &m_entryPoints, &error),
             qPrintable(error));
    m_session.reset();
    m_line = std::make_unique<ScriptedLine>();
    m_settings = SessionSettings();
    m_settings.exchange = {REPLY_TIMEOUT, 20, 5};
    m_settings.retries = 1;
    makeSession();
}

void SessionTest::makeSession()
{
    QString error;
    m_session.reset();
    m_session = Session::create(m_entryPoints, m_line.get(), m_settings, &error);
    QVERIFY2(m_session, qPrintable(error));
}

void SessionTest::watchedValueIsToldOnceStored()
{
    QList<qint64> seen;
    QStringList order;
    connect(m_session.get(), &Session::exchanged, this,
            [&] { order << QString::fromLatin1("exchanged"); });
    connect(m_session.get(), &Session::valueChanged, this, [&](const ValueChange& change) {
        order << QString::fromLatin1("%1 %2 %3 %4 %5")
                     .arg(change.link)
                     .arg(change.range.station)
                     .arg(addressText(change.range.type, change.range.address))
                     .arg(change.range.values)
                     .arg(change.value);
        seen = m_session->values(range("D100:2"));
    });
    // Station 1, function 3, byte count 4, D100 = 0, D101 = 65535.
    m_line->answer({{1, withCrc("01 03 04 00 00 FF FF")}});
    QCOMPARE(m_session->watch({range("D100:2")}), 1);
    m_session->start();
    QTRY_COMPARE(order, QStringList({QString::fromLatin1("exchanged"),
                                     QString::fromLatin1("1 1 D101 1 65535")}));
    QCOMPARE(seen, QList<qint64>({0, 65535}));
    QCOMPARE(m_line->written.first(), withCrc("01 03 00 64 00 02"));
}

void SessionTest::watchedRangesAreCut()
{
    m_settings.maxWords = 32;
    makeSession();
    // 32 + 32 + 32 + 4 registers; one bit, 2000 + 48 up to the split of M, and one past it.
    QCOMPARE(m_session->watch({range("D0:100")}), 4);
    QCOMPARE(m_session->watch({range("X0"), range("M0:2049")}), 4);
    // SM255 is coil 4655 and SM256 coil 30000: no request reads both.
    QCOMPARE(m_session->watch({range("SM250:12")}), 2);
    QCOMPARE(m_session->watch({range("SM255"), range("SM256")}), 2);
}

void SessionTest::retryLimitAndRequestLengthReachTheDriver()
{
    m_settings.retries = 2;
    m_settings.maxWords = 4;
    makeSession();
    QCOMPARE(m_session->watch({range("D0:4"), range("D4:4")}), 2);
    QSignalSpy failures(m_session.get(), &Session::failed);
    m_session->start();
    QTRY_COMPARE(failures.size(), 1);
    QCOMPARE(m_session->statistics().requests, qint64(2));
    QCOMPARE(m_session->statistics().repeated, qint64(1));
    const auto failure = failures.first().first().value<Failure>();
    QCOMPARE(failure.kind, FailureKind::NoReply);
    QCOMPARE(failure.station, 1);
    QCOMPARE(addressText(failure.range.type, failure.range.address), QString::fromLatin1("D0"));
    QCOMPARE(failure.range.values, 4);
}

void SessionTest::readEndsWithItsValues()
{
    // 32CV200 = 100000, high word first.
    m_line->answer({{1, withCrc("01 03 04 00 01 86 A0")}});
    QSignalSpy ends(m_session.get(), &Session::readFinished);
    m_session->start();
    const int handle = m_session->read(range("32CV200"));
    QVERIFY(handle > 0);
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().first().toInt(), handle);
    const auto end = ends.first().last().value<ReadEnd>();
    QVERIFY(end.failure.isNone());
    QCOMPARE(end.values, QList<qint64>({100000}));
    // Register 9700, two registers.
    QCOMPARE(end.exchange.request, withCrc("01 03 25 E4 00 02"));
    QCOMPARE(written(), QList<QByteArray>({withCrc("01 03 25 E4 00 02")}));
}

void SessionTest::failedReadSaysWhy()
{
    m_line->answer({{1, withCrc("01 83 02")}}); // function 3 refused: illegal address
    QSignalSpy ends(m_session.get(), &Session::readFinished);
    QSignalSpy failures(m_session.get(), &Session::failed);
    m_session->start();
    m_session->read(range("D100"));
    QTRY_COMPARE(ends.size(), 1);
    const auto end = ends.first().last().value<ReadEnd>();
    QCOMPARE(end.failure.kind, FailureKind::Exception);
    QCOMPARE(end.failure.exceptionCode, 2);
    QCOMPARE(end.failure.text, QString::fromLatin1("exception 2 (illegal data address)"));
    QCOMPARE(end.failure.station, 1);
    QCOMPARE(end.values, QList<qint64>());
    QCOMPARE(failures.size(), 0); // which is of polled requests
}

void SessionTest::readsAreDoneInTheirOrder()
{
    m_line->answer({{1, withCrc("01 03 02 00 07")}}); // byte count 2, D100 = 7
    m_line->answer({{1, withCrc("01 03 02 00 08")}});
    m_line->answer({{1, withCrc("01 03 02 00 09")}});
    QStringList ends;
    connect(m_session.get(), &Session::readFinished, this, [&](int handle, const ReadEnd& end) {
        ends << QString::fromLatin1("%1: %2").arg(handle).arg(end.values.value(0));
    });
    m_session->start();
    // The driver would do reads of one range once, and tell the end of the last one.
    const int first = m_session->read(range("D100"));
    QCOMPARE(m_session->read(range("D101")), first + 1);
    QCOMPARE(m_session->read(range("D100")), first + 2);
    QTRY_COMPARE(ends, (QStringList{QString::fromLatin1("%1: 7").arg(first),
                                    QString::fromLatin1("%1: 8").arg(first + 1),
                                    QString::fromLatin1("%1: 9").arg(first + 2)}));
    QCOMPARE(written(),
             (QList<QByteArray>{withCrc("01 03 00 64 00 01"), withCrc("01 03 00 65 00 01"),
                                withCrc("01 03 00 64 00 01")}));
}

void SessionTest::aFailedReadTakesNoOtherWithIt()
{
    m_line->answer({{1, withCrc("01 83 02")}});
    m_line->answer({{1, withCrc("01 03 02 00 08")}});
    QSignalSpy ends(m_session.get(), &Session::readFinished);
    m_session->start();
    m_session->read(range("D100"));
    m_session->read(range("D101"));
    QTRY_COMPARE(ends.size(), 2);
    QCOMPARE(ends.at(0).last().value<ReadEnd>().failure.kind, FailureKind::Exception);
    QCOMPARE(ends.at(1).last().value<ReadEnd>().values, QList<qint64>({8}));
}

void SessionTest::writtenValuesGoOut_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("a word") << QByteArray("D100=1234") << withCrc("01 06 00 64 04 D2");
    QTest::newRow("a negative word") << QByteArray("D100=-2") << withCrc("01 06 00 64 FF FE");
    QTest::newRow("words") << QByteArray("D100=1,2") << withCrc("01 10 00 64 00 02 04 00 01 00 02");
    // Y10 is octal: coil 8.
    QTest::newRow("a bit") << QByteArray("Y10=1") << withCrc("01 05 00 08 FF 00");
    QTest::newRow("bits") << QByteArray("M0=1,0,1") << withCrc("01 0F 07 D0 00 03 01 05");
    // Registers 9700 and 9701, high word first.
    QTest::newRow("a counter") << QByteArray("32CV200=100000")
                               << withCrc("01 10 25 E4 00 02 04 00 01 86 A0");
}

void SessionTest::writtenValuesGoOut()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, request);
    m_session->start();
    const int handle = m_session->write(assignment(text.constData()));
    QCOMPARE(m_session->values(assignment(text.constData()).range).size(),
             assignment(text.constData()).values.size());
    QSignalSpy ends(m_session.get(), &Session::writeFinished);
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(written(), QList<QByteArray>({request}));
    QCOMPARE(ends.first().first().toInt(), handle);
    QCOMPARE(ends.first().last().value<WriteEnd>().failure.kind, FailureKind::NoReply);
}

void SessionTest::writeFromInsideASignal()
{
    connect(m_session.get(), &Session::valueChanged, this, [this](const ValueChange& change) {
        if (change.range.address == 100)
            m_session->write(assignment("D101=7"));
    });
    m_line->answer({{1, withCrc("01 03 02 00 05")}});
    m_session->watch({range("D100")});
    m_session->start();
    QTRY_VERIFY(m_line->written.size() >= 2);
    QCOMPARE(m_line->written.at(1), withCrc("01 06 00 65 00 07"));
}

void SessionTest::writesToTheCacheOnlyEndAtOnce()
{
    m_settings.writeLocalOnly = true;
    makeSession();
    QSignalSpy ends(m_session.get(), &Session::writeFinished);
    m_session->start();
    const int handle = m_session->write(assignment("D100=7"));
    QCOMPARE(ends.size(), 0);
    QCOMPARE(m_session->values(range("D100")), QList<qint64>({7}));
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().first().toInt(), handle);
    QVERIFY(ends.first().last().value<WriteEnd>().failure.isNone());
    QCOMPARE(written(), QList<QByteArray>());
}

void SessionTest::refusedRequestsEndFromTheEventLoop_data()
{
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QByteArray>("write");
    QTest::addColumn<FailureKind>("kind");
    QTest::newRow("more registers than a request takes")
        << QByteArray("D0:33") << QByteArray() << FailureKind::TooLong;
    QTest::newRow("M on both sides of M2048")
        << QByteArray("M2047:2") << QByteArray() << FailureKind::TooLong;
    QTest::newRow("eight coils, of which the driver would switch all off")
        << QByteArray() << QByteArray("M0=1,1,1,1,1,1,1,1") << FailureKind::TooLong;
    QTest::newRow("an input") << QByteArray() << QByteArray("X0=1") << FailureKind::NotWritable;
}

void SessionTest::refusedRequestsEndFromTheEventLoop()
{
    QFETCH(QByteArray, read);
    QFETCH(QByteArray, write);
    QFETCH(FailureKind, kind);
    QSignalSpy reads(m_session.get(), &Session::readFinished);
    QSignalSpy writes(m_session.get(), &Session::writeFinished);
    m_session->start();
    const int handle = read.isEmpty() ? m_session->write(assignment(write.constData()))
                                      : m_session->read(range(read.constData()));
    QCOMPARE(reads.size() + writes.size(), 0);
    QTRY_COMPARE(reads.size() + writes.size(), 1);
    QCOMPARE(read.isEmpty() ? writes.size() : reads.size(), 1);
    const QList<QVariant> end = read.isEmpty() ? writes.first() : reads.first();
    QCOMPARE(end.first().toInt(), handle);
    QCOMPARE(read.isEmpty() ? end.last().value<WriteEnd>().failure.kind
                            : end.last().value<ReadEnd>().failure.kind,
             kind);
    QCOMPARE(written(), QList<QByteArray>());
}

void SessionTest::nothingIsTakenWhileTheSessionDoesNotRun()
{
    QSignalSpy reads(m_session.get(), &Session::readFinished);
    QSignalSpy writes(m_session.get(), &Session::writeFinished);
    QSignalSpy recipes(m_session.get(), &Session::recipeFinished);
    m_session->read(range("D100"));
    m_session->write(assignment("D100=7"));
    m_session->transferRecipe(RecipeDirection::Upload, {{{recipeVariable(100, 0)}, 1}});
    QTRY_COMPARE(recipes.size(), 1);
    QCOMPARE(reads.first().last().value<ReadEnd>().failure.kind, FailureKind::SessionEnded);
    QCOMPARE(writes.first().last().value<WriteEnd>().failure.kind, FailureKind::SessionEnded);
    QCOMPARE(recipes.first().last().value<RecipeEnd>().failure.kind, FailureKind::SessionEnded);
    QCOMPARE(m_session->values(range("D100")), QList<qint64>({0}));
    m_session->start();
    QTest::qWait(50);
    QCOMPARE(written(), QList<QByteArray>());
}

void SessionTest::whatWaitsCanBeCancelled_data()
{
    QTest::addColumn<bool>("isRead");
    QTest::addColumn<int>("cancelled");
    QTest::addColumn<int>("sentOfCancelled");
    QTest::newRow("the write on its way") << false << 0 << 1;
    QTest::newRow("the next write") << false << 1 << 0;
    QTest::newRow("the last write") << false << 2 << 0;
    QTest::newRow("the read on its way") << true << 0 << 1;
    QTest::newRow("the next read") << true << 1 << 0;
    QTest::newRow("the last read") << true << 2 << 0;
}

void SessionTest::whatWaitsCanBeCancelled()
{
    QFETCH(bool, isRead);
    QFETCH(int, cancelled);
    QFETCH(int, sentOfCancelled);
    const QList<QByteArray> requests =
        isRead ? QList<QByteArray>{withCrc("01 03 00 64 00 01"), withCrc("01 03 00 65 00 01"),
                                   withCrc("01 03 00 66 00 01")}
               : QList<QByteArray>{withCrc("01 06 00 64 00 01"), withCrc("01 06 00 65 00 02"),
                                   withCrc("01 06 00 66 00 03")};
    m_settings.retries = 2;
    makeSession();
    QList<int> aborted;
    QList<int> tried;
    const auto note = [&](int handle, const Failure& failure) {
        (failure.kind == FailureKind::Aborted ? aborted : tried) << handle;
    };
    connect(m_session.get(), &Session::writeFinished, this,
            [&](int handle, const WriteEnd& end) { note(handle, end.failure); });
    connect(m_session.get(), &Session::readFinished, this,
            [&](int handle, const ReadEnd& end) { note(handle, end.failure); });
    m_session->start();
    QList<int> handles;
    for (const char* text : {"D100=1", "D101=2", "D102=3"})
        handles << (isRead ? m_session->read(assignment(text).range)
                           : m_session->write(assignment(text)));
    QTRY_COMPARE(m_line->written.size(), 1); // the first one, unanswered
    QVERIFY(m_session->cancel(handles.at(cancelled), QString::fromLatin1("changed my mind")));
    QCOMPARE(aborted, QList<int>{handles.at(cancelled)});
    QVERIFY(!m_session->cancel(handles.at(cancelled), QString::fromLatin1("again")));
    QTRY_COMPARE(tried.size(), 2);
    QCOMPARE(aborted.size(), 1);
    handles.removeAt(cancelled);
    QCOMPARE(tried, handles);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(int(m_line->written.count(requests.at(i))), i == cancelled ? sentOfCancelled : 2);
}

// The driver has nothing else to send, which would lead to the next request.
void SessionTest::roomOfACancelledWriteIsUsedAtOnce()
{
    m_settings.exchange.idleInterval = 60000; // milliseconds
    makeSession();
    m_session->start();
    m_session->read(range("D0"));
    QTRY_COMPARE(m_line->written.size(), 1); // it is on its way
    const int unwanted = m_session->write(assignment("D100=1"));
    m_session->cancel(unwanted, QString());
    m_session->write(assignment("D101=2"));
    QTRY_COMPARE(m_line->written.size(), 2);
    QCOMPARE(m_line->written.last(), withCrc("01 06 00 65 00 02"));
}

void SessionTest::replyToAnEndedWriteEndsNoOther_data()
{
    QTest::addColumn<bool>("isInitialised");
    QTest::newRow("cancelled") << false;
    QTest::newRow("ended by an initialisation") << true;
}

// The same values are written again, before the confirmation of the first write comes.
void SessionTest::replyToAnEndedWriteEndsNoOther()
{
    QFETCH(bool, isInitialised);
    m_line->answer({{20, withCrc("01 06 00 64 00 01")}});
    m_line->answer({{1, withCrc("01 06 00 64 00 01")}});
    QList<int> ended;
    QList<int> sentBefore;
    connect(m_session.get(), &Session::writeFinished, this, [&](int handle, const WriteEnd& end) {
        ended << handle;
        sentBefore << static_cast<int>(m_line->written.size());
        QCOMPARE(end.failure.isNone(), ended.size() == 2);
    });
    m_session->start();
    const int first = m_session->write(assignment("D100=1"));
    QTRY_COMPARE(m_line->written.size(), 1);
    if (isInitialised)
        m_session->initialise();
    else
        m_session->cancel(first, QString());
    const int second = m_session->write(assignment("D100=1"));
    QTRY_COMPARE(ended, (QList<int>{first, second}));
    QCOMPARE(sentBefore, (QList<int>{1, 2}));
}

void SessionTest::theDriversOwnIsNotSentOnceCancelled_data()
{
    QTest::addColumn<bool>("isRead");
    QTest::newRow("a write") << false;
    QTest::newRow("a read") << true;
}

// It is in the driver already, behind a polled read that is on its way.
void SessionTest::theDriversOwnIsNotSentOnceCancelled()
{
    QFETCH(bool, isRead);
    m_session->watch({range("D0")});
    m_session->start();
    QTRY_COMPARE(m_line->written.size(), 1);
    QSignalSpy writes(m_session.get(), &Session::writeFinished);
    QSignalSpy reads(m_session.get(), &Session::readFinished);
    const auto ask = [&](const char* text) {
        return isRead ? m_session->read(assignment(text).range)
                      : m_session->write(assignment(text));
    };
    const int handle = ask("D100=1");
    QVERIFY(m_session->cancel(handle, QString()));
    QCOMPARE(writes.size() + reads.size(), 1);
    ask("D101=2"); // which a failed read before it would take along
    QTRY_COMPARE(writes.size() + reads.size(), 2);
    const QByteArray unwanted = withCrc(isRead ? "01 03 00 64 00 01" : "01 06 00 64 00 01");
    const QByteArray wanted = withCrc(isRead ? "01 03 00 65 00 01" : "01 06 00 65 00 02");
    QCOMPARE(int(m_line->written.count(unwanted)), 0);
    QCOMPARE(int(m_line->written.count(wanted)), 1);
    QCOMPARE(m_session->values(range("D100")), QList<qint64>({0}));
}

void SessionTest::recipeIsSent()
{
    QVERIFY(m_session->loadRecipe({0, 0, 1, 2}));
    m_line->answer({{1, withCrc("01 10 00 64 00 02")}});
    QSignalSpy blocks(m_session.get(), &Session::recipeBlockDone);
    QSignalSpy ends(m_session.get(), &Session::recipeFinished);
    m_session->start();
    const int handle = m_session->transferRecipe(
        RecipeDirection::Download, {{{recipeVariable(100, 2), recipeVariable(101, 3)}, 1}});
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().first().toInt(), handle);
    QVERIFY(ends.first().last().value<RecipeEnd>().failure.isNone());
    QCOMPARE(blocks.size(), 1);
    QCOMPARE(blocks.first().last().value<AddressRange>().values, 2);
    // Station 1, function 16, register 100, 2 registers, 4 bytes, 1, 2.
    QCOMPARE(written(), QList<QByteArray>({withCrc("01 10 00 64 00 02 04 00 01 00 02")}));
}

void SessionTest::recipeReadFillsTheBuffer()
{
    QSignalSpy ends(m_session.get(), &Session::recipeFinished);
    m_line->answer({{1, withCrc("01 03 04 00 05 00 06")}});
    m_session->start();
    m_session->transferRecipe(RecipeDirection::Upload,
                              {{{recipeVariable(100, 10), recipeVariable(101, 11)}, 1}});
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(m_session->recipeWord(10), quint16(5));
    QCOMPARE(m_session->recipeWord(11), quint16(6));
    QCOMPARE(m_session->recipeWord(12), quint16(0));
    QCOMPARE(m_session->recipeWord(-1), quint16(0));
    QCOMPARE(m_session->recipeWord(65536), quint16(0));
}

void SessionTest::recipesAreDoneInTheirOrder()
{
    m_line->answer({{1, withCrc("01 06 00 64 00 05")}});
    m_line->answer({{1, withCrc("01 06 00 C8 00 06")}});
    QSignalSpy ends(m_session.get(), &Session::recipeFinished);
    m_session->start();
    m_session->loadRecipe({5});
    m_session->transferRecipe(RecipeDirection::Download,
                              {{{recipeVariable(100, 0), recipeVariable(100, 0)}, 1}});
    m_session->loadRecipe({6}); // the first one keeps its words
    m_session->transferRecipe(RecipeDirection::Download,
                              {{{recipeVariable(200, 0), recipeVariable(200, 0)}, 1}});
    QTRY_COMPARE(ends.size(), 2);
    QCOMPARE(written(),
             (QList<QByteArray>{withCrc("01 06 00 64 00 05"), withCrc("01 06 00 C8 00 06")}));
}

void SessionTest::wordsPastTheBufferAreRefused()
{
    QVERIFY(m_session->loadRecipe(std::vector<quint16>(65536)));
    QVERIFY(!m_session->loadRecipe(std::vector<quint16>(65537)));
}

// After three in a row the driver says once that it has nothing to send.
void SessionTest::manyReadsNeedNoIdleInterval()
{
    m_settings.exchange.idleInterval = 60000; // milliseconds
    makeSession();
    QSignalSpy ends(m_session.get(), &Session::readFinished);
    m_session->start();
    for (int i = 0; i < 10; ++i) {
        m_line->answer({{0, withCrc("01 03 02 00 07")}});
        m_session->read(range("D100"));
    }
    QTRY_COMPARE(ends.size(), 10);
    QCOMPARE(ends.last().last().value<ReadEnd>().values, QList<qint64>({7}));
}

void SessionTest::aSecondSessionIsRefused()
{
    ScriptedLine otherLine;
    QString error;
    const std::unique_ptr<Session> second =
        Session::create(m_entryPoints, &otherLine, m_settings, &error);
    QVERIFY(!second);
    QCOMPARE(error, QString::fromLatin1("the driver is in use in this process; end its session "
                                        "first"));
    // The first one keeps the driver.
    m_line->answer({{1, withCrc("01 03 02 00 07")}});
    QSignalSpy ends(m_session.get(), &Session::readFinished);
    m_session->start();
    m_session->read(range("D100"));
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().last().value<ReadEnd>().values, QList<qint64>({7}));
    m_session.reset();
    QVERIFY(Session::create(m_entryPoints, &otherLine, m_settings, &error));
}

void SessionTest::aLineLostWhileASlotAsksForMore()
{
    QStringList ends;
    connect(m_session.get(), &Session::readFinished, this, [&](int, const ReadEnd& end) {
        ends << end.failure.text;
        if (ends.size() < 3)
            m_session->read(range("D102"));
    });
    QSignalSpy lost(m_session.get(), &Session::lineFailed);
    m_session->start();
    m_session->read(range("D100"));
    QTRY_COMPARE(m_line->written.size(), 1);
    m_line->lose();
    QCOMPARE(lost.size(), 1);
    QCOMPARE(lost.first().first().value<Failure>().kind, FailureKind::LineLost);
    QVERIFY(!m_session->isRunning());
    QTRY_COMPARE(ends, (QStringList{"script: the port is lost: unplugged",
                                    "the session does not run", "the session does not run"}));
}

void SessionTest::aSlotMayStopTheSessionFromInsideWrite()
{
    m_session->watch({range("D100")});
    connect(m_session.get(), &Session::valueChanged, m_session.get(), &Session::stop);
    QSignalSpy ends(m_session.get(), &Session::writeFinished);
    m_session->start();
    const int handle = m_session->write(assignment("D100=7")); // a change, told at once
    QVERIFY(!m_session->isRunning());
    QCOMPARE(ends.size(), 0); // before its handle is known
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().first().toInt(), handle);
    QCOMPARE(ends.first().last().value<WriteEnd>().failure.kind, FailureKind::SessionEnded);
}

// A write that was told to have ended must not switch a machine on minutes later.
void SessionTest::nothingOfWhatHasEndedIsSentLater()
{
    QSignalSpy writes(m_session.get(), &Session::writeFinished);
    QSignalSpy reads(m_session.get(), &Session::readFinished);
    QSignalSpy recipes(m_session.get(), &Session::recipeFinished);
    m_session->watch({range("D0")});
    m_session->start();
    QTRY_COMPARE(m_line->written.size(), 1); // a polled read is on its way
    for (const char* text : {"D100=1", "D100=2", "M0=1"})
        m_session->write(assignment(text));
    m_session->read(range("D200"));
    m_session->transferRecipe(RecipeDirection::Download, {{{recipeVariable(300, 0)}, 1}});
    m_session->stop();
    QCOMPARE(writes.size(), 3);
    QCOMPARE(reads.size(), 1);
    QCOMPARE(recipes.size(), 1);
    QCOMPARE(m_session->values(range("D100")), QList<qint64>({0}));
    m_session->start();
    QTRY_VERIFY(m_line->written.size() >= 4);
    for (const QByteArray& request : m_line->written)
        QCOMPARE(request, withCrc("01 03 00 00 00 01"));
    QCOMPARE(writes.size() + reads.size() + recipes.size(), 5);
}

QTEST_GUILESS_MAIN(SessionTest)
#include "tst_session.moc"
