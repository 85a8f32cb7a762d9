// Numbers at the edges of int and names of any length, at every entry point. Buffers
// are as long as the header asks and not a byte longer, so that AddressSanitizer
// sees what reaches past them.

#include "stories/slave.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

const char* const PARAMETERS = "1#0#0#1#32";
const int EDGES[] = {INT_MIN, INT_MIN + 1, -65536, -1, 0, 1, 65535, 65536, INT_MAX - 1, INT_MAX};
const int SMALL_COUNTS[] = {INT_MIN, -3, -1, 0, 1, 2, 3, 125};
const char* const TYPES[] = {"X", "Y",  "M",  "SM",   "S",  "T", "C",
                             "D", "SD", "CV", "32CV", "TV", "Z"};

QList<QString> strangeNames()
{
    return {QString(),
            QString::fromLatin1(""),
            QString::fromLatin1("d"),
            QString::fromLatin1("D "),
            QString::fromLatin1("D\0x", 3),
            QString::fromLatin1("D\0", 2),
            QString(QChar(0xFF24)), // a wide D
            QString(QLatin1Char('D')).repeated(1000000)};
}

bool isBit(const QString& type)
{
    return key(1, type.toLatin1().constData(), 0, 1).bitIndex == -1;
}

/// Bytes that `count` elements take.
size_t sizeOf(const QString& type, int count)
{
    return count < 1 ? 0 : static_cast<size_t>(isBit(type) ? count : 2 * count);
}

/// Polls and hands over a good reply, or none when the request has no possible one.
/// A failure marks as many addresses as a request asks for, so long ones are dropped.
void serveOnce(DriverFixture& runtime)
{
    if (runtime.poll().isEmpty())
        return;
    const int dataBytes = runtime.polled().recvLen - 5;
    if (dataBytes > 2000)
        runtime.initialise(PARAMETERS);
    else if (runtime.polled().frame[1] > 3)
        QCOMPARE(runtime.deal(goodReply(runtime)), 1); // a write
    else if (dataBytes < 0)
        QCOMPARE(runtime.deal(QByteArray()), dataBytes == -5 ? 1 : 2);
    else
        QCOMPARE(runtime.deal(replyWith(runtime, QByteArray(2 * dataBytes, '1').constData())), 1);
    QVERIFY(driver.frameList.isEmpty());
}

} // namespace

class EdgeArgumentsTest : public QObject
{
    Q_OBJECT

private slots:
    void writesAndReadsBack_data() { types(); }
    void writesAndReadsBack();
    void watches_data() { types(); }
    void watches();
    void readsOnce_data();
    void readsOnce();
    void transfersRecipes_data() { types(); }
    void transfersRecipes();
    void strangeNamesAreNobodys();
    void checksAddresses();

private:
    static void types();
};

void EdgeArgumentsTest::types()
{
    QTest::addColumn<QString>("type");
    for (const char* type : TYPES)
        QTest::newRow(type) << QString::fromLatin1(type);
}

void EdgeArgumentsTest::writesAndReadsBack()
{
    QFETCH(QString, type);
    DriverFixture runtime(PARAMETERS);
    for (const int address : EDGES) {
        for (const int station : EDGES) {
            for (const int count : SMALL_COUNTS) {
                std::vector<unsigned char> values(sizeOf(type, count), 1);
                std::vector<unsigned char> back(values.size(), 0);
                intf_setData(station, type, address, count, values.data(), WRITE_JOB);
                intf_getData(station, type, address, count, back.data());
                if (type == QLatin1String("32CV") && count > 0) {
                    values.resize(static_cast<size_t>(count / 2 * 4));
                    back.resize(values.size());
                }
                QVERIFY(back == values);
                serveOnce(runtime);
            }
        }
    }
}

void EdgeArgumentsTest::watches()
{
    QFETCH(QString, type);
    DriverFixture runtime(PARAMETERS);
    for (const int address : EDGES) {
        for (const int station : EDGES) {
            for (const int count : SMALL_COUNTS) {
                QList<KEY_ADDRESS> watched;
                watched << key(station, type.toLatin1().constData(), address, count)
                        << key(station, type.toLatin1().constData(), ~address, count);
                const int jobs = intf_addrMerge(watched);
                QVERIFY(jobs >= 1 && jobs <= 4);
                for (int i = 0; i < jobs; ++i)
                    serveOnce(runtime);
            }
        }
        runtime.initialise(PARAMETERS);
    }
}

void EdgeArgumentsTest::readsOnce_data()
{
    QTest::addColumn<QByteArray>("limit");
    for (const char* limit : {"-2147483648", "-1", "0", "1", "125", "2147483647"})
        QTest::newRow(limit) << QByteArray(limit);
}

void EdgeArgumentsTest::readsOnce()
{
    QFETCH(QByteArray, limit);
    DriverFixture runtime("1#0#0#1#" + limit);
    for (const char* type : {"M", "D", "32CV"}) { // a type of each class
        for (const int address : EDGES) {
            for (const int count : EDGES) {
                addCondition(1, type, address, count);
                QVERIFY(driver.condList.size() <= 513);
                const QByteArray request = runtime.poll();
                QVERIFY(request.isEmpty() || request.size() == 8);
                // A failure would mark as many addresses as the request asked for.
                runtime.initialise(("1#0#0#1#" + limit).constData());
            }
        }
    }
}

// Offsets past the recipe buffer are the runtime's to avoid, negative ones are not.
void EdgeArgumentsTest::transfersRecipes()
{
    QFETCH(QString, type);
    const QByteArray name = type.toLatin1();
    for (const int address : EDGES) {
        for (const int count : {INT_MIN, -1, 0, 1, 2, 512, 513, 900, INT_MAX}) {
            for (const int offset : {INT_MIN, INT_MIN + 1, -1, 0}) {
                DriverFixture runtime(PARAMETERS);
                runtime.recipe.assign(512, 0x1234);
                runtime.initialise(PARAMETERS);
                QCOMPARE(planRecipe({{name.constData(), address, count, offset}}), 1);
                runtime.requestRecipeWrite();
                FRAME_PRO request = FRAME_PRO();
                const bool lacksValues = offset < 0;
                QCOMPARE(intf_getSendFrame(&request), lacksValues ? 0 : 1);
                QString errorText;
                QByteArray none;
                QCOMPARE(intf_dealRcvFrame(none, errorText), lacksValues ? 0 : 2);
                QCOMPARE(int(runtime.shared[60115]), 0);
                if (count == INT_MAX)
                    continue; // a failed read of coils would mark that many addresses
                runtime.recipe.assign(1024, 0x1234);
                runtime.initialise(PARAMETERS);
                runtime.requestRecipeRead();
                serveOnce(runtime);
            }
        }
    }
}

void EdgeArgumentsTest::strangeNamesAreNobodys()
{
    for (const QString& name : strangeNames()) {
        DriverFixture runtime(PARAMETERS);
        unsigned char value[2] = {1, 2};
        intf_setData(1, name, 5, 1, value, WRITE_JOB);
        QVERIFY(driver.writeList.isEmpty());
        intf_getData(1, name, 5, 1, value);
        QCOMPARE(int(value[0]), 1); // not copied
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 5, 1);
        watched[0].regType = name;
        intf_addConditionRead(watched[0], CONDITION_READ_JOB);
        QCOMPARE(intf_addrMerge(watched), 1);
        QVERIFY(driver.dataAreas.isEmpty());
        QCOMPARE(runtime.poll(), withCrc("01 03 0005 0001"));
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.lastError(), "0,1,5," + name);
        QVector<QString> texts;
        QVector<int> addresses;
        QList<QString> description;
        int address = 77;
        QCOMPARE(intf_multiCopy(name, 0, 5, 1, texts, addresses), 0);
        QCOMPARE(intf_getRegDiscription(name, description), 0);
        QCOMPARE(intf_checkAddrValidity(name, QString("1"), &address, 1, 1), 3);
        QCOMPARE(intf_checkAddr(name, QString("1"), &address, 1, 1, 0), 3);
        QCOMPARE(address, 77);
    }
}

void EdgeArgumentsTest::checksAddresses()
{
    const QList<QString> texts = {QString(), QString(QLatin1Char('7')).repeated(1000000),
                                  QString(QLatin1Char(' ')).repeated(1000000),
                                  QString(QChar(0x0667)), // an Arabic 7
                                  QString::fromLatin1("-2147483649")};
    for (const char* type : TYPES) {
        const int isWord = isBit(QString::fromLatin1(type)) ? 0 : 1;
        for (const QString& text : texts) {
            int address = 77;
            QCOMPARE(intf_checkAddrValidity(type, text, &address, 1, isWord), 4);
            QCOMPARE(address, 0);
        }
        for (const int length : EDGES) {
            int address = 77;
            const int result = intf_checkAddrValidity(type, QString("0"), &address, length, isWord);
            const bool isShort = length <= 1 && qstrcmp(type, "32CV") != 0;
            QCOMPARE(result, isShort ? 0 : 2);
        }
    }
}

QTEST_APPLESS_MAIN(EdgeArgumentsTest)
#include "tst_edge_arguments.moc"
