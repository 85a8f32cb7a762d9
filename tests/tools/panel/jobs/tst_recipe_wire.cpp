// What a recipe puts on the wire, frame by frame: nothing travels twice.

#include "panel/jobs/recipe_job.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_line.h"
#include "tools/panel/recipe/recipe_rows.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

typedef QList<QList<qint64>> Values;

/// The requests (part 0) or replies (part 1) of "REQUEST > REPLY; REQUEST > REPLY".
QList<QByteArray> framesOf(const QString& exchanges, int part)
{
    QList<QByteArray> frames;
    for (const QString& exchange : exchanges.split(QLatin1Char(';')))
        frames << withCrc(qPrintable(exchange.section(QLatin1Char('>'), part, part).trimmed()));
    return frames;
}

} // namespace

class RecipeWireTest : public QObject
{
    Q_OBJECT

private slots:
    void downloadSendsEveryValueOnce_data();
    void downloadSendsEveryValueOnce();
    void uploadAsksForEveryValueOnce_data();
    void uploadAsksForEveryValueOnce();

private:
    void run(RecipeDirection direction, const QString& exchanges);

    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<RecipeJob> m_transfer;
    QList<RecipeRow> m_rows;
};

void RecipeWireTest::run(RecipeDirection direction, const QString& exchanges)
{
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error),
             qPrintable(error));
    m_transfer.reset();
    m_session.reset();
    m_line = std::make_unique<ScriptedLine>();
    for (const QByteArray& reply : framesOf(exchanges, 1))
        m_line->answer({{1, reply}});
    SessionSettings settings;
    settings.exchange.idleInterval = 1; // milliseconds
    settings.retries = 1;
    m_session = Session::create(entryPoints, m_line.get(), settings, &error);
    QVERIFY2(m_session, qPrintable(error));
    m_session->start();
    RecipeLayout layout;
    QVERIFY2(layOutRecipe(m_rows, 32, &layout, &error), qPrintable(error));
    m_transfer = std::make_unique<RecipeJob>(m_session.get(), layout, direction);
    QSignalSpy finished(m_transfer.get(), &RecipeJob::finished);
    m_transfer->start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(m_line->written, framesOf(exchanges, 0));
    QCOMPARE(m_transfer->failure().text, QString());
    QCOMPARE(m_transfer->blocks(), static_cast<int>(m_line->written.size()));
    QCOMPARE(m_transfer->blocksDone().size(), m_line->written.size());
}

/// Requests and replies without their CRC: station, function, first coil or register;
/// then function 5 and 6: value, repeated by the reply; function 15: coils, bytes, bits
/// from the lowest; function 16: registers, bytes, values from the high byte.
void RecipeWireTest::downloadSendsEveryValueOnce_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("exchanges");

    QTest::newRow("one register") << "a,1,D,100,uint16,5"
                                  << "01 06 00 64 00 05 > 01 06 00 64 00 05";
    QTest::newRow("two registers that touch")
        << "a,1,D,100,uint16,5\nb,1,D,101,uint16,6"
        << "01 10 00 64 00 02 04 00 05 00 06 > 01 10 00 64 00 02";
    QTest::newRow("one 32-bit value in registers, low word first")
        << "a,1,D,100,uint32,100000" // 0x000186A0
        << "01 10 00 64 00 02 04 86 A0 00 01 > 01 10 00 64 00 02";
    QTest::newRow("one register at each of two stations")
        << "a,1,D,0,uint16,5\nb,2,D,0,uint16,6"
        << "01 06 00 00 00 05 > 01 06 00 00 00 05; 02 06 00 00 00 06 > 02 06 00 00 00 06";
    QTest::newRow("one 32CV, register 9700") << "a,1,32CV,200,uint32,100000"
                                             << "01 10 25 E4 00 02 04 00 01 86 A0 > "
                                                "01 10 25 E4 00 02";
    QTest::newRow("32CV across a gap, registers 9700 and 9704")
        << "a,1,32CV,200,uint32,1\nb,1,32CV,202,uint32,2"
        << "01 10 25 E4 00 02 04 00 00 00 01 > 01 10 25 E4 00 02; "
           "01 10 25 E8 00 02 04 00 00 00 02 > 01 10 25 E8 00 02";
    QTest::newRow("one coil, 2005") << "a,1,M,5,bit,1"
                                    << "01 05 07 D5 FF 00 > 01 05 07 D5 FF 00";
    QTest::newRow("three coils, of which the second is off")
        << "a,1,M,0,bit,1\nb,1,M,1,bit,0\nc,1,M,2,bit,1"
        << "01 0F 07 D0 00 03 01 05 > 01 0F 07 D0 00 03";
    QTest::newRow("eight coils, the first alone")
        << "a,1,M,0,bit,1\nb,1,M,1,bit,0\nc,1,M,2,bit,1\nd,1,M,3,bit,1\n"
           "e,1,M,4,bit,0\nf,1,M,5,bit,0\ng,1,M,6,bit,1\nh,1,M,7,bit,1"
        << "01 05 07 D0 FF 00 > 01 05 07 D0 FF 00; "
           "01 0F 07 D1 00 07 01 66 > 01 0F 07 D1 00 07"; // 1100110
    QTest::newRow("SM across the jump of its coils, 4655 and 30000")
        << "a,1,SM,255,bit,1\nb,1,SM,256,bit,0"
        << "01 05 12 2F FF 00 > 01 05 12 2F FF 00; 01 05 75 30 00 00 > 01 05 75 30 00 00";
    QTest::newRow("SD across the jump of its registers, 8255 and 12000")
        << "a,1,SD,255,uint16,5\nb,1,SD,256,uint16,6"
        << "01 06 20 3F 00 05 > 01 06 20 3F 00 05; 01 06 2E E0 00 06 > 01 06 2E E0 00 06";
    QTest::newRow("one register given twice") << "a,1,D,100,uint16,5\nb,1,D,100,int16,5"
                                              << "01 06 00 64 00 05 > 01 06 00 64 00 05";
}

void RecipeWireTest::downloadSendsEveryValueOnce()
{
    QFETCH(QString, rows);
    QFETCH(QString, exchanges);
    m_rows = rowsOf(rows);
    run(RecipeDirection::Download, exchanges);
}

/// Requests: station, function, first coil or register, how many. Replies: station,
/// function, bytes, then bits from the lowest or values from the high byte.
void RecipeWireTest::uploadAsksForEveryValueOnce_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("exchanges");
    QTest::addColumn<QList<QList<qint64>>>("values"); ///< of each row

    QTest::newRow("one register") << "a,1,D,100,uint16,"
                                  << "01 03 00 64 00 01 > 01 03 02 12 34" << Values{{0x1234}};
    QTest::newRow("two registers that touch")
        << "a,1,D,100,uint16,\nb,1,D,101,uint16,"
        << "01 03 00 64 00 02 > 01 03 04 12 34 AB CD" << Values{{0x1234}, {0xABCD}};
    QTest::newRow("one 32-bit value in registers, low word first")
        << "a,1,D,100,uint32,"
        << "01 03 00 64 00 02 > 01 03 04 86 A0 00 01" << Values{{0x86A0, 1}};
    QTest::newRow("one register at each of two stations")
        << "a,1,D,0,uint16,\nb,2,D,0,uint16,"
        << "01 03 00 00 00 01 > 01 03 02 00 05; 02 03 00 00 00 01 > 02 03 02 00 06"
        << Values{{5}, {6}};
    QTest::newRow("one 32CV, register 9700")
        << "a,1,32CV,200,uint32,"
        << "01 03 25 E4 00 02 > 01 03 04 00 01 86 A0" << Values{{100000}};
    QTest::newRow("two 32CV that touch")
        << "a,1,32CV,200,uint32,\nb,1,32CV,201,uint32,"
        << "01 03 25 E4 00 04 > 01 03 08 00 01 86 A0 00 00 00 07" << Values{{100000}, {7}};
    QTest::newRow("32CV across a gap, registers 9700 and 9704")
        << "a,1,32CV,200,uint32,\nb,1,32CV,202,uint32,"
        << "01 03 25 E4 00 02 > 01 03 04 00 00 00 01; "
           "01 03 25 E8 00 02 > 01 03 04 00 00 00 02"
        << Values{{1}, {2}};
    QTest::newRow("one coil, 2005") << "a,1,M,5,bit,"
                                    << "01 01 07 D5 00 01 > 01 01 01 01" << Values{{1}};
    QTest::newRow("eight coils, the first alone")
        << "a,1,M,0,bit,\nb,1,M,1,bit,\nc,1,M,2,bit,\nd,1,M,3,bit,\n"
           "e,1,M,4,bit,\nf,1,M,5,bit,\ng,1,M,6,bit,\nh,1,M,7,bit,"
        << "01 01 07 D0 00 01 > 01 01 01 01; 01 01 07 D1 00 07 > 01 01 01 66" // 1100110
        << Values{{1}, {0}, {1}, {1}, {0}, {0}, {1}, {1}};
    QTest::newRow("SM across the jump of its coils, 4655 and 30000")
        << "a,1,SM,255,bit,\nb,1,SM,256,bit,"
        << "01 01 12 2F 00 01 > 01 01 01 01; 01 01 75 30 00 01 > 01 01 01 00" << Values{{1}, {0}};
    QTest::newRow("SD across the jump of its registers, 8255 and 12000")
        << "a,1,SD,255,uint16,\nb,1,SD,256,uint16,"
        << "01 03 20 3F 00 01 > 01 03 02 00 05; 01 03 2E E0 00 01 > 01 03 02 00 06"
        << Values{{5}, {6}};
}

void RecipeWireTest::uploadAsksForEveryValueOnce()
{
    QFETCH(QString, rows);
    QFETCH(QString, exchanges);
    m_rows = rowsOf(rows);
    run(RecipeDirection::Upload, exchanges);
    if (!QTest::currentTestFailed())
        QTEST(m_transfer->values(m_rows), "values");
}

QTEST_GUILESS_MAIN(RecipeWireTest)
#include "tst_recipe_wire.moc"
