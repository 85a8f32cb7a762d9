#include "panel/dump/dump_file.h"

#include "dump_ranges.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

// Of the lines without the remark, each with its "\n"; by sha256sum(1).
const char TEXT[] = "kx-dump 1\n"
                    "# Values of controllers; X and Y are octal. Any change of a value is found.\n"
                    "read 2026-11-22T20:31:34.123Z to 2026-11-22T20:31:36.456Z\n"
                    "station 1\n"
                    "X7 0\n"
                    "X10 1\n"
                    "M2047 1\n"
                    "M2048 0\n"
                    "D0 1234\n"
                    "D2 65535\n"
                    "32CV200 4294967295\n"
                    "station 247\n"
                    "Z15 7\n"
                    "end 8 dc336e7655e5492352d025ead04771152d6b58ba74c48ec0e59b8b1fa7e3fc1a\n";

const QStringList RUNS = {"X7@1=0,1",   "M2047@1=1,0",          "D0@1=1234",
                          "D2@1=65535", "32CV200@1=4294967295", "Z15@247=7"};

const char HEAD[] = "kx-dump 1\nread 2026-11-22T20:31:34.123Z to 2026-11-22T20:31:36.456Z\n";

QString faultOf(const QByteArray& text)
{
    Dump dump;
    QString error;
    return parseDump(text, QStringLiteral("a.kxd"), &dump, &error) ? QStringLiteral("taken")
                                                                   : error;
}

} // namespace

class DumpFileTest : public QObject
{
    Q_OBJECT

private slots:
    void text();
    void textIsReadAgain();
    void sameValuesInAnotherDress_data();
    void sameValuesInAnotherDress();
    void refusals_data();
    void refusals();
    void eachCutIsRefused();
    void eachOtherByteOfAValueIsRefused();
    void aFileThatIsNotThereIsNamed();
    void theLargestDumpFitsIntoAFile();
};

void DumpFileTest::text()
{
    Dump dump;
    dump.begun = QDateTime::fromString("2026-11-22T21:31:34.123+01:00", Qt::ISODateWithMs);
    dump.ended = QDateTime::fromString("2026-11-22T20:31:36.456Z", Qt::ISODateWithMs);
    dump.runs = assignmentsOf(RUNS);
    QCOMPARE(dumpText(dump), QByteArray(TEXT));
}

void DumpFileTest::textIsReadAgain()
{
    Dump dump;
    QString error;
    QVERIFY2(parseDump(TEXT, QStringLiteral("a.kxd"), &dump, &error), qPrintable(error));
    QCOMPARE(textsOf(dump.runs), RUNS);
    QCOMPARE(dump.begun, QDateTime(QDate(2026, 11, 22), QTime(20, 31, 34, 123), Qt::UTC));
    QCOMPARE(dump.ended, QDateTime(QDate(2026, 11, 22), QTime(20, 31, 36, 456), Qt::UTC));
    QCOMPARE(dumpText(dump), QByteArray(TEXT));
}

void DumpFileTest::sameValuesInAnotherDress_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("lines of another system") << QByteArray(TEXT).replace("\n", "\r\n");
    QTest::newRow("a byte-order mark") << "\xEF\xBB\xBF" + QByteArray(TEXT);
    QTest::newRow("remarks and blank lines")
        << QByteArray(TEXT).replace("station 1\n", "\n# the press\nstation 1  \n") + "\n# end\n\n";
    QTest::newRow("without the last line's end") << QByteArray(TEXT).chopped(1);
}

void DumpFileTest::sameValuesInAnotherDress()
{
    QFETCH(QByteArray, text);
    Dump dump;
    QString error;
    QVERIFY2(parseDump(text, QStringLiteral("a.kxd"), &dump, &error), qPrintable(error));
    QCOMPARE(textsOf(dump.runs), RUNS);
}

void DumpFileTest::refusals_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("fault");
    const QByteArray head = HEAD;
    const QByteArray station = head + "station 1\n";

    QTest::newRow("nothing") << QByteArray()
                             << "a.kxd:1:1: the file is cut off: its 'end' line is missing";
    QTest::newRow("some other file") << QByteArray("address,value\nD0,5\n")
                                     << "a.kxd:1:1: not a dump, which begins with 'kx-dump 1'";
    QTest::newRow("a later version")
        << QByteArray("kx-dump 2\n")
        << "a.kxd:1:9: a dump of version '2'; this program reads version 1";
    QTest::newRow("no times") << QByteArray("kx-dump 1\nstation 1\n")
                              << "a.kxd:2:1: must be 'read TIME to TIME'";
    QTest::newRow("a day that does not exist")
        << QByteArray("kx-dump 1\nread 2026-11-22T20:31:34.123Z to 2026-02-30T00:00:00.000Z\n")
        << "a.kxd:2:34: '2026-02-30T00:00:00.000Z' is no time such as 2026-11-22T20:31:34.123Z";
    QTest::newRow("a time that is not in UTC")
        << QByteArray("kx-dump 1\nread 2026-11-22T20:31:34.123 to 2026-11-22T20:31:34.123Z\n")
        << "a.kxd:2:6: '2026-11-22T20:31:34.123' is no time such as 2026-11-22T20:31:34.123Z";
    QTest::newRow("a value without a station") << head + "D0 5\n"
                                               << "a.kxd:3:1: must be 'station NUMBER'";
    QTest::newRow("a station that does not exist")
        << head + "station 248\n"
        << "a.kxd:3:9: '248' is no station; they are 1 to 247";
    QTest::newRow("a station twice")
        << station + "D0 5\nstation 1\n"
        << "a.kxd:5:9: station 1 stands behind station 1; they must rise";
    QTest::newRow("a type that does not exist")
        << station + "Q0 5\n"
        << "a.kxd:4:1: 'Q0': unknown register type 'Q'; the types are X, Y, M, SM, S, T, C, D, SD, "
           "CV, 32CV, TV, Z";
    QTest::newRow("an address that does not exist")
        << station + "D8000 5\n"
        << "a.kxd:4:1: 'D8000': out of range; the addresses are D0 to D7999 (decimal)";
    QTest::newRow("no octal address")
        << station + "X8 1\n"
        << "a.kxd:4:1: 'X8': '8' is not an octal number; the addresses are X0 to X377 (octal)";
    QTest::newRow("a count") << station + "D0:2 5\n"
                             << "a.kxd:4:1: 'D0:2' is not a plain address such as D100";
    QTest::newRow("a station of its own")
        << station + "D0@2 5\n"
        << "a.kxd:4:1: 'D0@2' is not a plain address such as D100";
    QTest::newRow("no value") << station + "D0\n"
                              << "a.kxd:4:1: must be 'ADDRESS VALUE', such as 'D100 1234'";
    QTest::newRow("two blanks") << station + "D0  5\n"
                                << "a.kxd:4:1: must be 'ADDRESS VALUE', such as 'D100 1234'";
    QTest::newRow("a value too high") << station + "D0 65536\n"
                                      << "a.kxd:4:4: '65536' is no value of D; they are 0 to 65535";
    QTest::newRow("a value below 0") << station + "D0 -1\n"
                                     << "a.kxd:4:4: '-1' is no value of D; they are 0 to 65535";
    QTest::newRow("a bit of 2") << station + "M0 2\n"
                                << "a.kxd:4:4: '2' is no value of M; they are 0 to 1";
    QTest::newRow("a value of very many digits")
        << station + "D0 " + QByteArray(1000, '9') + "\n"
        << "a.kxd:4:4: '" + QString(40, '9') + "...' is no value of D; they are 0 to 65535";
    QTest::newRow("the same address twice")
        << station + "D0 5\nD0 5\n"
        << "a.kxd:5:1: D0 stands behind D0; addresses must rise";
    QTest::newRow("a type behind a later one")
        << station + "D0 5\nM0 1\n"
        << "a.kxd:5:1: M0 stands behind D0; addresses must rise";
    QTest::newRow("a byte that is 0")
        << station + QByteArray("D0 5\0\n", 6)
        << QString("a.kxd:4:4: '5") + QChar(0) + "' is no value of D; they are 0 to 65535";
    QTest::newRow("an end without its sum")
        << station + "D0 5\nend 1\n"
        << "a.kxd:5:1: must be 'end COUNT SHA-256'; the file is damaged";
    QTest::newRow("no values, and a sum that is right")
        << station + "end 0 99c34fc09a5c957db1fe612550802fe78f290ed3e428488363593c49722c37f0\n"
        << "a.kxd:4:5: the file is damaged: there are 0 values, and there were '0'";
    QTest::newRow("a line is missing")
        << QByteArray(TEXT).replace("D2 65535\n", "")
        << "a.kxd:13:5: the file is damaged: there are 7 values, and there were '8'";
    QTest::newRow("a value was changed")
        << QByteArray(TEXT).replace("D0 1234\n", "D0 1235\n")
        << "a.kxd:14:7: the file is damaged: not all lines are as they were written";
    QTest::newRow("a time was changed")
        << QByteArray(TEXT).replace("34.123Z", "35.123Z")
        << "a.kxd:14:7: the file is damaged: not all lines are as they were written";
    QTest::newRow("two files in one")
        << QByteArray(TEXT) + TEXT << "a.kxd:15:1: text behind the last line of the dump";
}

void DumpFileTest::refusals()
{
    QFETCH(QByteArray, text);
    QTEST(faultOf(text), "fault");
}

// But for the last line's end, which adds nothing.
void DumpFileTest::eachCutIsRefused()
{
    const QByteArray text = TEXT;
    for (int length = 0; length < text.size() - 1; ++length)
        QVERIFY2(faultOf(text.left(length)).startsWith("a.kxd:"), text.left(length).constData());
}

// Remarks and blanks at the end of a line do not count.
void DumpFileTest::eachOtherByteOfAValueIsRefused()
{
    const QByteArray text = TEXT;
    const int begin = static_cast<int>(text.indexOf("read"));
    for (int place = begin; place < text.size() - 1; ++place) {
        for (const int bit : {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}) {
            QByteArray other = text;
            other[place] = static_cast<char>(text.at(place) ^ bit);
            QVERIFY2(faultOf(other).startsWith("a.kxd:"), other.constData());
        }
    }
}

void DumpFileTest::aFileThatIsNotThereIsNamed()
{
    Dump dump;
    QString error;
    QVERIFY(!loadDump(QStringLiteral("/no/dump"), &dump, &error));
    QCOMPARE(error, QString("/no/dump: No such file or directory"));
}

// The longest lines that there are, in a file of at most 16 MiB.
void DumpFileTest::theLargestDumpFitsIntoAFile()
{
    const int longestLine = static_cast<int>(qstrlen("32CV200 4294967295\n"));
    const int stations = 247 * static_cast<int>(qstrlen("station 247\n"));
    QVERIFY(longestLine * MOST_DUMPED_VALUES + stations + 500 < 16 * 1024 * 1024);
}

QTEST_APPLESS_MAIN(DumpFileTest)
#include "tst_dump_file.moc"
