// The error text that the runtime passes by reference, as its value-change function
// sees it from inside the same call.

#include "data/recipe_plan.h"

#include <QtTest/QTest>

namespace
{

/// Hands over a reply together with a text that still holds something.
struct Exchange {
    explicit Exchange(DriverFixture& runtime) : text("left over")
    {
        runtime.reports.clear();
        runtime.onReport = [this](const Report& report) {
            seen << QString("%1 %2: \"%3\"").arg(report.name).arg(report.address).arg(text);
        };
    }

    int deal(QByteArray reply) { return intf_dealRcvFrame(reply, text); }

    QString text;
    QStringList seen; ///< each report with the text at that moment
};

void askFor(const char* type, int address, int count)
{
    KEY_ADDRESS wanted = key(1, type, address, count);
    intf_addConditionRead(wanted, CONDITION_READ_JOB);
}

void watch(const char* type, int address)
{
    record(1, type, address).monitorFlags = 1;
}

} // namespace

class ErrorTextTest : public QObject
{
    Q_OBJECT

private slots:
    void isEmptyWhileAReadIsReported_data();
    void isEmptyWhileAReadIsReported();
    void isEmptyWhileARecipeWordIsReported();
    void isEmptyWhileAWriteIsSettled_data();
    void isEmptyWhileAWriteIsSettled();
    void isEmptyWhenAConditionReadEndsWell();
    void isFullWhenAConditionReadHasFailed();
    void isEmptyAfterAllThatIsNoFailure();
};

void ErrorTextTest::isEmptyWhileAReadIsReported_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QStringList>("seen");
    QTest::newRow("coils") << "M" << 2 << withCrc("01 01 01 03")
                           << QStringList{"M 5: \"\"", "M 6: \"\""};
    QTest::newRow("word") << "D" << 1 << withCrc("01 03 02 1234") << QStringList{"D 5: \"\""};
    QTest::newRow("32CV") << "32CV" << 2 << withCrc("01 03 04 00001234")
                          << QStringList{"32CV 5: \"\""};
}

void ErrorTextTest::isEmptyWhileAReadIsReported()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    QFETCH(QByteArray, reply);
    const QByteArray name = type.toLatin1();
    DriverFixture runtime;
    watch(name.constData(), 5);
    driver.readList << job(1, name.constData(), 5, count);
    runtime.poll();
    Exchange exchange(runtime);
    QCOMPARE(exchange.deal(reply), 1);
    QTEST(exchange.seen, "seen");
    QCOMPARE(exchange.text, QString(""));
}

void ErrorTextTest::isEmptyWhileARecipeWordIsReported()
{
    DriverFixture runtime;
    plan({variable("D", 100, 1, 10)});
    runtime.requestRecipeRead();
    runtime.poll();
    Exchange exchange(runtime);
    QCOMPARE(exchange.deal(withCrc("01 03 02 1234")), 1);
    QCOMPARE(exchange.seen, QStringList{"RWI 10: \"\""});
}

void ErrorTextTest::isEmptyWhileAWriteIsSettled_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("confirmed");
    QTest::addColumn<QString>("seen");
    QTest::addColumn<QString>("after");
    for (const bool confirmed : {true, false}) {
        const QByteArray end = confirmed ? " confirmed" : " failed";
        const auto after = [&](const char* text) { return QString(confirmed ? "" : text); };
        QTest::newRow("coil" + end) << "Y" << 1 << confirmed << "Y 5: \"\"" << after("0,1,5,Y");
        QTest::newRow("word" + end) << "D" << 1 << confirmed << "D 5: \"\"" << after("0,1,5,D");
        QTest::newRow("32CV" + end)
            << "32CV" << 2 << confirmed << "32CV 5: \"\"" << after("0,1,5,32CV");
    }
}

void ErrorTextTest::isEmptyWhileAWriteIsSettled()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    QFETCH(bool, confirmed);
    QFETCH(QString, seen);
    const QByteArray name = type.toLatin1();
    DriverFixture runtime("1#0#0#1#32");
    watch(name.constData(), 5);
    setValues(1, name.constData(), 5, count, "01000000");
    const QByteArray request = runtime.poll();
    const QByteArray echo = count == 1 ? request : withCrc("01 10 245E 0002"); // 32CV5
    Exchange exchange(runtime);
    QCOMPARE(exchange.deal(confirmed ? echo : QByteArray()), confirmed ? 1 : 2);
    QCOMPARE(exchange.seen, QStringList{seen});
    QTEST(exchange.text, "after");
}

void ErrorTextTest::isEmptyWhenAConditionReadEndsWell()
{
    DriverFixture runtime;
    askFor("D", 100, 1);
    runtime.poll();
    Exchange exchange(runtime);
    QCOMPARE(exchange.deal(withCrc("01 03 02 0000")), 1);
    QCOMPARE(exchange.seen, QStringList{"-1 0: \"\""});
}

void ErrorTextTest::isFullWhenAConditionReadHasFailed()
{
    DriverFixture runtime("1#0#0#2#32");
    askFor("D", 100, 1);
    runtime.poll();
    Exchange exchange(runtime);
    QCOMPARE(exchange.deal(bytes("01 83 02 C0 F1")), 8);
    QCOMPARE(exchange.seen, QStringList());
    QCOMPARE(exchange.text, QString(""));
    QCOMPARE(exchange.deal(bytes("01 83 02 C0 F1")), 2);
    QCOMPARE(exchange.seen, QStringList{"-1 -1: \"5,1,100,D\""});
    QCOMPARE(exchange.text, QString("5,1,100,D"));
}

// Not null, whatever the runtime passes.
void ErrorTextTest::isEmptyAfterAllThatIsNoFailure()
{
    DriverFixture runtime;
    for (const QString& before : {QString(), QString(""), QString("left over")}) {
        QString text = before;
        QByteArray reply;
        QCOMPARE(intf_dealRcvFrame(reply, text), 0); // no request waits
        QVERIFY(text.isEmpty() && !text.isNull());
        driver.readList << job(1, "D", 5, 1);
        runtime.poll();
        text = before;
        QCOMPARE(intf_dealRcvFrame(reply, text), 8);
        QVERIFY(text.isEmpty() && !text.isNull());
        text = before;
        reply = withCrc("01 03 02 1234");
        QCOMPARE(intf_dealRcvFrame(reply, text), 1);
        QVERIFY(text.isEmpty() && !text.isNull());
    }
}

QTEST_APPLESS_MAIN(ErrorTextTest)
#include "tst_error_text.moc"
