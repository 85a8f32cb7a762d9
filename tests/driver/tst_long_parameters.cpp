#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

const int MEGABYTE = 1024 * 1024;

QByteArray megabyteOf(const char* text)
{
    return QByteArray(text).repeated(MEGABYTE / static_cast<int>(qstrlen(text)));
}

} // namespace

class LongParametersTest : public QObject
{
    Q_OBJECT

private slots:
    void aMegabyte_data();
    void aMegabyte();
};

void LongParametersTest::aMegabyte_data()
{
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<QList<int>>("expected"); // link, local, stored, retries, words; bits
    const QList<int> unchanged = {7, 6, 5, 4, 3, 24};
    const QList<int> zeros = {0, 0, 0, 0, 0, 0};
    const QByteArray digits = megabyteOf("9");
    QTest::newRow("one item") << digits << unchanged;
    QTest::newRow("four items") << digits + "#" + digits + "##" << unchanged;
    QTest::newRow("empty items") << megabyteOf("#") << zeros;
    QTest::newRow("items of one digit") << megabyteOf("8#") << (QList<int>{8, 8, 8, 8, 8, 64});
    QTest::newRow("five long numbers")
        << digits + "#" + digits + "#" + digits + "#" + digits + "#" + digits << zeros;
    QTest::newRow("a number behind a megabyte of zeros")
        << "1#2#3#4#" + megabyteOf("0") + "9" << (QList<int>{1, 2, 3, 4, 9, 72});
    QTest::newRow("a number between spaces")
        << "1#2#3#4#" + megabyteOf(" ") + "9" << (QList<int>{1, 2, 3, 4, 9, 72});
    QTest::newRow("a long sixth item") << "1#2#3#4#5#" + digits << (QList<int>{1, 2, 3, 4, 5, 40});
    QTest::newRow("no ASCII") << "1#2#3#4#" + megabyteOf("\xFF") << (QList<int>{1, 2, 3, 4, 0, 0});
}

void LongParametersTest::aMegabyte()
{
    QFETCH(QByteArray, parameters);
    QFETCH(QList<int>, expected);
    DriverFixture runtime("7#6#5#4#3");
    runtime.initialise(parameters.constData());
    QCOMPARE(runtime.status, 0);
    QCOMPARE(driver.linkId, expected.at(0));
    QCOMPARE(driver.writeLocalOnly, expected.at(1));
    QCOMPARE(driver.param2, expected.at(2));
    QCOMPARE(driver.retryLimit, expected.at(3));
    QCOMPARE(driver.maxWords, expected.at(4));
    QCOMPARE(driver.maxWordsPerJob, expected.at(4));
    QCOMPARE(driver.maxBitsPerJob, expected.at(5));
}

QTEST_APPLESS_MAIN(LongParametersTest)
#include "tst_long_parameters.moc"
