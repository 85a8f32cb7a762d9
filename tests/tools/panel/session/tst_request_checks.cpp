#include "panel/session/request_checks.h"
#include "registers/register_types.h"

#include "panel/session/recipe_checks.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::RecipeDirection)

namespace
{

const int MAX_WORDS = 32;

AddressRange range(const QString& text)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(text, &range, &error))
        qFatal("%s", qPrintable(error));
    return range;
}

} // namespace

class RequestChecksTest : public QObject
{
    Q_OBJECT

private slots:
    void readIsOneRequest_data();
    void readIsOneRequest();
    void writeIsOneRequest_data();
    void writeIsOneRequest();
    void rangesThatDoNotExist_data();
    void rangesThatDoNotExist();
    void valuesOfSeveralRegisters_data();
    void valuesOfSeveralRegisters();
    void valuesSuitTheirType_data();
    void valuesSuitTheirType();
    void recipeVariables_data();
    void recipeVariables();
    void emptyRecipes();
};

void RequestChecksTest::readIsOneRequest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<FailureKind>("kind");
    const auto row = [](const char* name, const char* text, int maxWords, FailureKind kind) {
        QTest::newRow(name) << QString::fromLatin1(text) << maxWords << kind;
    };
    row("as many registers as fit", "D0:32@1", 32, FailureKind::None);
    row("one more", "D0:33@1", 32, FailureKind::TooLong);
    row("eight coils for each register", "M0:256@1", 32, FailureKind::None);
    row("one coil more", "M0:257@1", 32, FailureKind::TooLong);
    row("32CV take two registers each", "32CV200:16@1", 32, FailureKind::None);
    row("one 32CV more", "32CV200:17@1", 32, FailureKind::TooLong);
    row("a 32CV in requests of one register", "32CV200@1", 1, FailureKind::TooLong);
    row("up to M2047", "M2040:8@1", 32, FailureKind::None);
    row("across M2048, where the coils jump", "M2047:2@1", 32, FailureKind::TooLong);
    row("across SM256", "SM255:2@1", 32, FailureKind::TooLong);
    row("across SD256", "SD255:2@1", 32, FailureKind::TooLong);
    row("an input", "X0:8@1", 32, FailureKind::None);
}

void RequestChecksTest::readIsOneRequest()
{
    QFETCH(QString, text);
    QFETCH(int, maxWords);
    const Failure failure = readRefusal(range(text), maxWords);
    QTEST(failure.kind, "kind");
    if (failure.isNone())
        return;
    QCOMPARE(failure.text,
             QStringLiteral("does not fit into one request of at most %1 registers").arg(maxWords));
    QCOMPARE(failure.station, 1);
    QCOMPARE(failure.range.address, range(text).address);
}

void RequestChecksTest::writeIsOneRequest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<FailureKind>("kind");
    const auto row = [](const char* name, const char* text, int maxWords, FailureKind kind) {
        QTest::newRow(name) << QString::fromLatin1(text) << maxWords << kind;
    };
    row("as many registers as a write carries", "D0:123@1", 125, FailureKind::None);
    row("as many as a read carries", "D0:125@1", 125, FailureKind::TooLong);
    row("seven coils", "M0:7@1", 32, FailureKind::None);
    row("eight, of which the driver switches all off", "M0:8@1", 32, FailureKind::TooLong);
    row("nine", "M0:9@1", 32, FailureKind::None);
    row("across M2048", "M2047:2@1", 32, FailureKind::TooLong);
    row("an input", "X0@1", 32, FailureKind::NotWritable);
}

void RequestChecksTest::writeIsOneRequest()
{
    QFETCH(QString, text);
    QFETCH(int, maxWords);
    Assignment assignment = {range(text), {}};
    for (int i = 0; i < assignment.range.values; ++i)
        assignment.values << 1;
    QTEST(writeRefusal(assignment, maxWords).kind, "kind");
}

void RequestChecksTest::rangesThatDoNotExist_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("values");
    QTest::addColumn<int>("station");
    QTest::addColumn<QString>("text");
    QTest::newRow("no type") << "W" << 0 << 1 << 1 << "no such register type";
    QTest::newRow("station 0, which reads nothing")
        << "D" << 0 << 1 << 0 << "the station must be 1 to 247";
    QTest::newRow("a station left out") << "D" << 0 << 1 << -1 << "the station must be 1 to 247";
    QTest::newRow("past the last station")
        << "D" << 0 << 1 << 248 << "the station must be 1 to 247";
    QTest::newRow("past D7999") << "D" << 8000 << 1 << 1
                                << "out of range; there are D0 to D7999 (decimal)";
    QTest::newRow("running past D7999")
        << "D" << 7999 << 2 << 1 << "out of range; there are D0 to D7999 (decimal)";
    QTest::newRow("below 32CV200")
        << "32CV" << 199 << 1 << 1 << "out of range; there are 32CV200 to 32CV255 (decimal)";
    QTest::newRow("no value") << "D" << 0 << 0 << 1
                              << "out of range; there are D0 to D7999 (decimal)";
    QTest::newRow("more values than numbers") << "D" << 1 << std::numeric_limits<int>::max() << 1
                                              << "out of range; there are D0 to D7999 (decimal)";
}

void RequestChecksTest::rangesThatDoNotExist()
{
    QFETCH(QString, type);
    QFETCH(int, address);
    QFETCH(int, values);
    QFETCH(int, station);
    QFETCH(QString, text);
    const AddressRange range = {findRegisterType(type), address, values, station};
    const Failure read = readRefusal(range, MAX_WORDS);
    QCOMPARE(read.kind, FailureKind::OutOfRange);
    QCOMPARE(read.text, text);
    QCOMPARE(writeRefusal({range, {0}}, MAX_WORDS).text, text);
}

void RequestChecksTest::valuesOfSeveralRegisters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("read"); // under a limit of three registers
    QTest::addColumn<QString>("write");
    const QString tooLong = QStringLiteral("does not fit into one request of at most 3 registers");
    QTest::newRow("one beyond the limit") << "D0:4@1" << 4 << QString() << QString();
    QTest::newRow("two beyond the limit") << "D0:4@1" << 2 << tooLong << tooLong;
    QTest::newRow("the longest that is written") << "D0:123@1" << 123 << QString() << QString();
    QTest::newRow("the longest that is read") << "D0:125@1" << 125 << QString() << tooLong;
    const QString noRequest = QStringLiteral("no request reads a value of 126 registers");
    QTest::newRow("one register more") << "D0:126@1" << 126 << noRequest << noRequest;
    const QString apart = QStringLiteral("the registers of the value at SD255 lie apart");
    QTest::newRow("across a split") << "SD253:4@1" << 2 << apart << apart;
    QTest::newRow("beside a split") << "SD254:2@1" << 2 << QString() << QString();
    const QString half = QStringLiteral("values of 2 registers do not make 3");
    QTest::newRow("half a value") << "D0:3@1" << 2 << half << half;
    const QString coils = QStringLiteral("no request reads a value of 2 coils");
    QTest::newRow("coils") << "M0:2@1" << 2 << coils << coils;
}

void RequestChecksTest::valuesOfSeveralRegisters()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    AddressRange wanted = range(text);
    wanted.width = width;
    QTEST(readRefusal(wanted, 3).text, "read");
    QTEST(writeRefusal(wanted, 3).text, "write");
}

void RequestChecksTest::valuesSuitTheirType_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QList<qint64>>("values");
    QTest::addColumn<QString>("text");
    QTest::newRow("a coil") << "M0@1" << QList<qint64>{1} << QString();
    QTest::newRow("a coil of 2") << "M0@1" << QList<qint64>{2} << "takes 1 value from 0 to 1";
    QTest::newRow("the lowest word") << "D0@1" << QList<qint64>{-32768} << QString();
    QTest::newRow("below it") << "D0@1" << QList<qint64>{-32769}
                              << "takes 1 value from -32768 to 65535";
    QTest::newRow("the highest word") << "D0@1" << QList<qint64>{65535} << QString();
    QTest::newRow("above it, behind a good one")
        << "D0:2@1" << QList<qint64>{1, 65536} << "takes 2 values from -32768 to 65535";
    QTest::newRow("the highest 32CV") << "32CV200@1" << QList<qint64>{4294967295} << QString();
    QTest::newRow("above it") << "32CV200@1" << QList<qint64>{4294967296}
                              << "takes 1 value from -2147483648 to 4294967295";
    QTest::newRow("too few values")
        << "D0:2@1" << QList<qint64>{1} << "takes 2 values from -32768 to 65535";
    QTest::newRow("too many") << "D0:2@1" << QList<qint64>{1, 2, 3}
                              << "takes 2 values from -32768 to 65535";
}

void RequestChecksTest::valuesSuitTheirType()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, values);
    QFETCH(QString, text);
    const Failure failure = writeRefusal({range(address), values}, MAX_WORDS);
    QCOMPARE(failure.text, text);
    QCOMPARE(failure.kind, text.isEmpty() ? FailureKind::None : FailureKind::OutOfRange);
}

void RequestChecksTest::recipeVariables_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("station");
    QTest::addColumn<int>("offset");
    QTest::addColumn<RecipeDirection>("direction");
    QTest::addColumn<FailureKind>("kind");
    const auto row = [](const char* name, const char* type, int address, int count, int station,
                        int offset, RecipeDirection direction, FailureKind kind) {
        QTest::newRow(name) << QString::fromLatin1(type) << address << count << station << offset
                            << direction << kind;
    };
    const auto down = RecipeDirection::Download;
    const auto up = RecipeDirection::Upload;
    row("a register", "D", 100, 1, 1, 0, down, FailureKind::None);
    row("at the last word of the buffer", "D", 100, 1, 1, 65535, down, FailureKind::None);
    row("behind the buffer", "D", 100, 1, 1, 65536, up, FailureKind::OutOfRange);
    row("before the buffer", "D", 100, 1, 1, -1, down, FailureKind::OutOfRange);
    row("an unknown type, which would stand still", "W", 0, 1, 1, 0, down, FailureKind::OutOfRange);
    row("station 0, which would stand still", "D", 0, 1, 0, 0, up, FailureKind::OutOfRange);
    row("as long as a request", "D", 0, 32, 1, 0, down, FailureKind::None);
    row("longer, which would be sent twice", "D", 0, 33, 1, 0, down, FailureKind::TooLong);
    row("a 32CV", "32CV", 200, 2, 1, 0, down, FailureKind::None);
    row("half a 32CV", "32CV", 200, 3, 1, 0, down, FailureKind::TooLong);
    row("an input downloaded", "X", 0, 1, 1, 0, down, FailureKind::NotWritable);
    row("an input uploaded", "X", 0, 1, 1, 0, up, FailureKind::None);
}

void RequestChecksTest::recipeVariables()
{
    QFETCH(QString, type);
    QFETCH(int, address);
    QFETCH(int, count);
    QFETCH(int, station);
    QFETCH(int, offset);
    QFETCH(RecipeDirection, direction);
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.station = station;
    variable.regType = type;
    variable.address = address;
    variable.count = count;
    variable.bufOffset = offset;
    _RCP_VAR_PRO good = _RCP_VAR_PRO();
    good.station = 1;
    good.regType = QStringLiteral("D");
    good.count = 1;
    QTEST(recipeRefusal(direction, {{{good, variable}, 1}}, MAX_WORDS).kind, "kind");
    QTEST(recipeRefusal(direction, {{{good}, 1}, {{variable}, 1}}, MAX_WORDS).kind, "kind");
}

void RequestChecksTest::emptyRecipes()
{
    _RCP_VAR_PRO good = _RCP_VAR_PRO();
    good.station = 1;
    good.regType = QStringLiteral("D");
    good.count = 1;
    const auto kindOf = [](const QList<RecipePass>& passes) {
        return recipeRefusal(RecipeDirection::Upload, passes, MAX_WORDS).kind;
    };
    QCOMPARE(kindOf({}), FailureKind::OutOfRange);
    QCOMPARE(kindOf({{{good}, 1}, {{}, 0}}), FailureKind::OutOfRange);
    QCOMPARE(kindOf({{{good}, 1}}), FailureKind::None);
}

QTEST_APPLESS_MAIN(RequestChecksTest)
#include "tst_request_checks.moc"
