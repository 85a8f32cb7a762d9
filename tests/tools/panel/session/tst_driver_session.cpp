#include "panel/session/driver_session.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_line.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

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

_RCP_VAR_PRO recipeWord(int address, int offset)
{
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.rcpId = 1;
    variable.station = 1;
    variable.regType = QString::fromLatin1("D");
    variable.address = address;
    variable.count = 1;
    variable.bufOffset = offset;
    return variable;
}

} // namespace

class DriverSessionTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void watchedValueIsReportedOnceStored();
    void retryLimitAndRequestLengthReachTheDriver();
    void conditionReadEndsWithItsValues();
    void failedConditionReadEndsWithMinusOne();
    void writtenValuesGoOut_data();
    void writtenValuesGoOut();
    void writeFromInsideASignal();
    void recipeIsSentAndItsRequestCleared();
    void recipeOfANegativeCountFailsAndIsNotSent();
    void recipeReadFillsTheBuffer();
    void recipeCanBeWithdrawn();
    void onlyTheNewestSessionHearsTheDriver();

private:
    void makeSession();

    DriverEntryPoints m_entryPoints;
    SessionSettings m_settings;
    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<DriverSession> m_session;
};

void DriverSessionTest::init()
{
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &m_entryPoints, &error),
             qPrintable(error));
    m_session.reset();
    m_line = std::make_unique<ScriptedLine>();
    m_settings = SessionSettings();
    m_settings.exchange = {50, 20, 5};
    m_settings.retries = 1;
    makeSession();
}

void DriverSessionTest::makeSession()
{
    m_session.reset();
    m_session = std::make_unique<DriverSession>(m_entryPoints, m_line.get(), m_settings);
}

void DriverSessionTest::watchedValueIsReportedOnceStored()
{
    QList<qint64> seen;
    QStringList order;
    connect(m_session.get(), &DriverSession::exchanged, this,
            [&] { order << QString::fromLatin1("exchanged"); });
    connect(
        m_session.get(), &DriverSession::valueChanged, this,
        [&](int link, int station, const QString& name, int address) {
            order
                << QString::fromLatin1("%1 %2 %3 %4").arg(link).arg(station).arg(name).arg(address);
            seen = m_session->values(range("D100:2"));
        });
    // Station 1, function 3, byte count 4, D100 = 0, D101 = 65535.
    m_line->answer({{1, withCrc("01 03 04 00 00 FF FF")}});
    QCOMPARE(m_session->watch({range("D100:2")}), 1);
    m_session->start();
    QTRY_COMPARE(order,
                 QStringList({QString::fromLatin1("exchanged"), QString::fromLatin1("1 1 D 101")}));
    QCOMPARE(seen, QList<qint64>({0, 65535}));
    QCOMPARE(m_line->written.first(), withCrc("01 03 00 64 00 02"));
}

void DriverSessionTest::retryLimitAndRequestLengthReachTheDriver()
{
    m_settings.retries = 2;
    m_settings.maxWords = 4;
    makeSession();
    QCOMPARE(m_session->watch({range("D0:4"), range("D4:4")}), 2);
    QSignalSpy failures(m_session.get(), &DriverSession::deviceFailed);
    m_session->start();
    QTRY_COMPARE(failures.size(), 1);
    QCOMPARE(m_session->statistics().requests, qint64(2));
    QCOMPARE(m_session->statistics().repeated, qint64(1));
    QCOMPARE(failures.first().first().toString(), QString::fromLatin1("0,1,0,D"));
}

void DriverSessionTest::conditionReadEndsWithItsValues()
{
    // 32CV200 = 100000, high word first.
    m_line->answer({{1, withCrc("01 03 04 00 01 86 A0")}});
    QSignalSpy ends(m_session.get(), &DriverSession::conditionReadFinished);
    m_session->start();
    m_session->conditionRead(range("32CV200"));
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().first().toInt(), 0);
    QCOMPARE(m_session->values(range("32CV200")), QList<qint64>({100000}));
    // Register 9700, two registers.
    QCOMPARE(m_line->written.first(), withCrc("01 03 25 E4 00 02"));
}

void DriverSessionTest::failedConditionReadEndsWithMinusOne()
{
    QSignalSpy ends(m_session.get(), &DriverSession::conditionReadFinished);
    m_session->start();
    m_session->conditionRead(range("D100"));
    QTRY_COMPARE(ends.size(), 1);
    QCOMPARE(ends.first().first().toInt(), -1);
}

void DriverSessionTest::writtenValuesGoOut_data()
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

void DriverSessionTest::writtenValuesGoOut()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, request);
    m_session->start();
    m_session->write(assignment(text.constData()));
    QTRY_COMPARE(m_line->written.size(), 1);
    QCOMPARE(m_line->written.first(), request);
}

void DriverSessionTest::writeFromInsideASignal()
{
    connect(m_session.get(), &DriverSession::valueChanged, this,
            [this](int, int, const QString&, int address) {
                if (address == 100)
                    m_session->write(assignment("D101=7"));
            });
    m_line->answer({{1, withCrc("01 03 02 00 05")}});
    m_session->watch({range("D100")});
    m_session->start();
    QTRY_VERIFY(m_line->written.size() >= 2);
    QCOMPARE(m_line->written.at(1), withCrc("01 06 00 65 00 07"));
}

void DriverSessionTest::recipeIsSentAndItsRequestCleared()
{
    m_session->recipeBuffer()[10] = 1;
    m_session->recipeBuffer()[11] = 2;
    QCOMPARE(m_session->setRecipe({recipeWord(100, 10), recipeWord(101, 11)}), 2);
    m_line->answer({{1, withCrc("01 10 00 64 00 02")}});
    m_session->start();
    m_session->requestRecipeWrite();
    QVERIFY(m_session->isRecipePending());
    QTRY_VERIFY(!m_session->isRecipePending());
    QCOMPARE(m_line->written, QList<QByteArray>({withCrc("01 10 00 64 00 02 04 00 01 00 02")}));
}

void DriverSessionTest::recipeOfANegativeCountFailsAndIsNotSent()
{
    _RCP_VAR_PRO variable = recipeWord(100, 10);
    variable.count = -100; // 2 * -100 + 9 bytes to send
    QCOMPARE(m_session->setRecipe({variable}), 1);
    QSignalSpy failed(m_session.get(), &DriverSession::deviceFailed);
    m_session->start();
    m_session->requestRecipeWrite();
    QTRY_VERIFY(!m_session->isRecipePending());
    QVERIFY(m_line->written.isEmpty());
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.first().first().toString(), QString::fromLatin1("0,1,100,D"));
    QCOMPARE(m_session->statistics().notSent, qint64(1));
}

void DriverSessionTest::recipeReadFillsTheBuffer()
{
    QCOMPARE(m_session->setRecipe({recipeWord(100, 10), recipeWord(101, 11)}), 2);
    QList<int> offsets;
    connect(m_session.get(), &DriverSession::recipeWordRead, this,
            [&](int offset) { offsets << offset; });
    m_line->answer({{1, withCrc("01 03 04 00 05 00 06")}});
    m_session->start();
    m_session->requestRecipeRead();
    QTRY_VERIFY(!m_session->isRecipePending());
    QCOMPARE(offsets, QList<int>({10, 11}));
    QCOMPARE(m_session->recipeBuffer()[10], static_cast<unsigned short>(5));
    QCOMPARE(m_session->recipeBuffer()[11], static_cast<unsigned short>(6));
}

void DriverSessionTest::recipeCanBeWithdrawn()
{
    m_session->requestRecipeWrite();
    m_session->requestRecipeRead();
    m_session->cancelRecipe();
    QVERIFY(!m_session->isRecipePending());
}

void DriverSessionTest::onlyTheNewestSessionHearsTheDriver()
{
    ScriptedLine otherLine;
    QSignalSpy older(m_session.get(), &DriverSession::valueChanged);
    DriverSession newest(m_entryPoints, &otherLine, m_settings);
    QSignalSpy newer(&newest, &DriverSession::valueChanged);
    newest.watch({range("D100")});
    newest.write(assignment("D100=1"));
    QCOMPARE(newer.size(), 1);
    QCOMPARE(older.size(), 0);
    // The older one leaves the newest at work when it goes.
    m_session.reset();
    newest.write(assignment("D100=2"));
    QCOMPARE(newer.size(), 2);
}

QTEST_GUILESS_MAIN(DriverSessionTest)
#include "tst_driver_session.moc"
