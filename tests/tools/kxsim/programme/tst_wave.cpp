// Values as functions of time, and how they are written.

#include "kxsim/programme/wave.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::Moment;
using kxsim::parseWave;
using kxsim::valueAt;
using kxsim::Wave;
using kxsim::WaveShape;
using std::chrono::microseconds;

class WaveTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAtATime_data();
    void valuesAtATime();
    void theTextIsRead();
    void shapesAreChosenByTheType_data();
    void shapesAreChosenByTheType();
    void aWrongTextIsRefused_data();
    void aWrongTextIsRefused();
};

void WaveTest::valuesAtATime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("now"); // microseconds
    QTest::addColumn<qint64>("expected");
    const struct {
        const char* situation;
        const char* text;
        qint64 now;
        qint64 expected;
    } rows[] = {
        // 4096 values in 20000 ms: the second begins at 4.88 ms
        {"a ramp begins", "D10=0..4095/20s", 0, 0},
        {"just before its second value", "D10=0..4095/20s", 4999, 0},
        {"its second value", "D10=0..4095/20s", 5000, 1},
        {"half way", "D10=0..4095/20s", 10000000, 2048},
        {"its last value begins", "D10=0..4095/20s", 19996000, 4095},
        {"its last millisecond", "D10=0..4095/20s", 19999999, 4095},
        {"it begins again", "D10=0..4095/20s", 20000000, 0},
        {"days later", "D10=0..4095/20s", qint64(86400) * 1000000 * 30 + 10000000, 2048},
        {"a ramp down begins", "D10=10..0/11s", 0, 10},
        {"a ramp down goes on", "D10=10..0/11s", 1000000, 9},
        {"a ramp down ends", "D10=10..0/11s", 10999000, 0},
        {"a ramp through zero", "D10=-2..2/5s", 2500000, 0},
        {"32 bits half way", "32CV200=0..4294967295/24h", qint64(43200) * 1000000, 2147483648},
        // 4294967296 - 4294967296 / 86400000 = 4294967246.3
        {"32 bits, the last millisecond", "32CV200=0..4294967295/24h", qint64(86399999) * 1000,
         4294967246},
        {"a triangle begins", "D10=triangle:0..100/2s", 0, 0},
        {"half a step is rounded", "D10=triangle:0..100/2s", 5000, 1},
        {"downwards, too", "D10=triangle:0..-100/2s", 5000, -1},
        {"a triangle rises", "D10=triangle:0..100/2s", 500000, 50},
        {"a triangle's top", "D10=triangle:0..100/2s", 1000000, 100},
        {"a triangle falls", "D10=triangle:0..100/2s", 1990000, 1},
        {"32 bits on the way", "32CV200=triangle:-2147483648..2147483647/24h",
         qint64(21600) * 1000000, 0}, // -2147483648 + 4294967295 / 2, rounded
        {"a sine begins in its middle", "D10=sine:0..4095/20s", 0, 2048},
        {"a sine rises", "D10=sine:0..4095/20s", 2500000, 3495}, // 2047.5 + 2047.5 x 0.7071
        {"a sine's top", "D10=sine:0..4095/20s", 5000000, 4095},
        {"a sine's bottom", "D10=sine:0..4095/20s", 15000000, 0},
        {"a sine that first falls", "D10=sine:100..-100/1min", 15000000, -100},
        {"a square begins", "M0=0..1/2s", 0, 0},
        {"the end of its first half", "M0=0..1/2s", 999999, 0},
        {"its second half", "M0=0..1/2s", 1000000, 1},
        {"the end of its second half", "M0=0..1/2s", 1999999, 1},
        {"it begins again", "M0=0..1/2s", 2000000, 0},
        {"an odd period has the longer half first", "M0=0..1/3ms", 1000, 0},
        {"and the shorter half then", "M0=0..1/3ms", 2000, 1},
        {"a bit that is on first", "M0=1..0/2s", 0, 1},
        {"a word's square", "D10=square:7..9/2s", 1000000, 9},
        {"a value that stays", "D10=5..5/1s", 500000, 5},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << row.text << row.now << row.expected;
}

void WaveTest::valuesAtATime()
{
    QFETCH(QString, text);
    QFETCH(qint64, now);
    Wave wave;
    QString error;
    QVERIFY2(parseWave(text, &wave, &error), qPrintable(error));
    QTEST(valueAt(wave, microseconds(now)), "expected");
}

void WaveTest::theTextIsRead()
{
    Wave wave;
    QString error;
    QVERIFY2(parseWave("X17:3@2=square:1..0/1.5s", &wave, &error), qPrintable(error));
    QCOMPARE(wave.range.type, findRegisterType("X"));
    QCOMPARE(wave.range.address, 15);
    QCOMPARE(wave.range.values, 3);
    QCOMPARE(wave.range.station, 2);
    QVERIFY(wave.shape == WaveShape::Square);
    QCOMPARE(wave.first, qint64(1));
    QCOMPARE(wave.last, qint64(0));
    QCOMPARE(qint64(wave.period.count()), qint64(1500));
    QVERIFY2(parseWave("D1=0x10..-1/24h", &wave, &error), qPrintable(error));
    QCOMPARE(wave.range.station, -1);
    QCOMPARE(wave.first, qint64(16));
    QCOMPARE(wave.last, qint64(-1));
    QCOMPARE(qint64(wave.period.count()), qint64(86400000));
}

void WaveTest::shapesAreChosenByTheType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("a bit") << "Y7=0..1/1s" << int(WaveShape::Square);
    QTest::newRow("a bit that says so") << "Y7=square:0..1/1s" << int(WaveShape::Square);
    QTest::newRow("a word") << "TV7=0..1/1s" << int(WaveShape::Ramp);
    QTest::newRow("a word that says so") << "TV7=ramp:0..1/1s" << int(WaveShape::Ramp);
    QTest::newRow("32 bits") << "32CV255=0..1/1s" << int(WaveShape::Ramp);
    QTest::newRow("triangle") << "D0=triangle:0..1/1s" << int(WaveShape::Triangle);
    QTest::newRow("sine") << "D0=sine:0..1/1s" << int(WaveShape::Sine);
}

void WaveTest::shapesAreChosenByTheType()
{
    QFETCH(QString, text);
    Wave wave;
    QString error;
    QVERIFY2(parseWave(text, &wave, &error), qPrintable(error));
    QTEST(int(wave.shape), "expected");
}

void WaveTest::aWrongTextIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault"); // behind "--wave TEXT: "
    const QString form =
        QStringLiteral("write ADDRESS=FIRST..LAST/PERIOD, such as D10=0..4095/20s, "
                       "D11=sine:0..4095/20s or M0=0..1/2s");
    const QString period = QStringLiteral("'%1' is no period; write 1ms to 24h in whole "
                                          "milliseconds, such as 20s");
    QTest::newRow("empty") << "" << form;
    QTest::newRow("an address alone") << "D10" << form;
    QTest::newRow("an assignment") << "D10=5" << form;
    QTest::newRow("no period") << "D10=0..5" << form;
    QTest::newRow("one value") << "D10=5/20s" << form;
    QTest::newRow("no last value") << "D10=0../20s" << form;
    QTest::newRow("two values for one") << "D10=0,1..5/20s" << form;
    QTest::newRow("two periods") << "D10=0..5/20s/20s" << form;
    QTest::newRow("unknown type")
        << "Q1=0..5/20s"
        << "unknown register type 'Q'; the types are X, Y, M, SM, S, T, C, D, "
           "SD, CV, 32CV, TV, Z";
    QTest::newRow("past the addresses") << "D8000=0..5/20s"
                                        << "out of range; the addresses are D0 to D7999 (decimal)";
    QTest::newRow("unknown shape") << "D10=saw:0..5/20s"
                                   << "'saw' is none of ramp, triangle, sine, square";
    QTest::newRow("a bit as a sine") << "M0=sine:0..1/2s"
                                     << "a bit can only be a square";
    QTest::newRow("a bit of two") << "M0=0..2/2s"
                                  << "M0=2: 2 does not fit; M takes 0 to 1";
    QTest::newRow("beyond a word") << "D10=0..65536/2s"
                                   << "D10=65536: 65536 does not fit; D takes -32768 to 65535";
    QTest::newRow("not a number") << "D10=a..5/2s"
                                  << "D10=a: 'a' is not a decimal or 0x hexadecimal number";
    QTest::newRow("signed and unsigned at once") << "D10=40000..-1/2s"
                                                 << "with negative values the highest is 32767";
    QTest::newRow("a period without unit") << "D10=0..5/20" << period.arg("20");
    QTest::newRow("a period of nothing") << "D10=0..5/0s" << period.arg("0s");
    QTest::newRow("a period below a millisecond") << "D10=0..5/800us" << period.arg("800us");
    QTest::newRow("a fraction of a millisecond") << "D10=0..5/1.5ms" << period.arg("1.5ms");
    QTest::newRow("a period of days") << "D10=0..5/25h" << period.arg("25h");
}

void WaveTest::aWrongTextIsRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, fault);
    Wave wave;
    QString error;
    QVERIFY(!parseWave(text, &wave, &error));
    QCOMPARE(error, QStringLiteral("--wave %1: %2").arg(text, fault));
    QVERIFY(!wave.range.type);
}

QTEST_APPLESS_MAIN(WaveTest)

#include "tst_wave.moc"
