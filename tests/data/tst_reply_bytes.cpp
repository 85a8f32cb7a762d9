#include "data/reply_bytes.h"

#include <QtTest/QTest>

class ReplyBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void bytes_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("byte");
        QTest::addColumn<int>("word");
        QTest::newRow("the first") << 0 << 0x12 << 0x1234;
        QTest::newRow("in the middle") << 1 << 0x34 << 0x34F6;
        QTest::newRow("the last") << 2 << 0xF6 << 0xF600;
        QTest::newRow("just past the end") << 3 << 0 << 0;
        QTest::newRow("just before the start") << -1 << 0 << 0x0012;
        QTest::newRow("far before the start") << -2147483647 - 1 << 0 << 0;
        QTest::newRow("far past the end") << 2147483647 << 0 << 0;
    }

    void bytes()
    {
        QFETCH(int, index);
        const QByteArray reply("\x12\x34\xF6", 3);
        const ReplyBytes bytes(reply);
        QTEST(bytes.at(index), "byte");
        QTEST(bytes.wordAt(index), "word");
    }

    void wholeElements_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("words");
        QTest::addColumn<int>("doubleWords");
        QTest::newRow("all") << 0 << 3 << 1;
        QTest::newRow("a byte later") << 1 << 3 << 1;
        QTest::newRow("a word before the last byte") << 4 << 1 << 0;
        QTest::newRow("the last word") << 5 << 1 << 0;
        QTest::newRow("the last byte") << 6 << 0 << 0;
        QTest::newRow("four bytes") << 3 << 2 << 1;
        QTest::newRow("just past the end") << 7 << 0 << 0;
        QTest::newRow("just before the start") << -1 << 0 << 0;
        QTest::newRow("far before the start") << -2147483647 - 1 << 0 << 0;
        QTest::newRow("far past the end") << 2147483647 << 0 << 0;
    }

    void wholeElements()
    {
        QFETCH(int, index);
        const QByteArray reply("\x01\x02\x03\x04\x05\x06\x07", 7);
        const ReplyBytes bytes(reply);
        QTEST(bytes.wholeElements(index, 2), "words");
        QTEST(bytes.wholeElements(index, 4), "doubleWords");
    }

    void whatLiesThere()
    {
        const QByteArray reply("\x12\x34\xF6", 3);
        QCOMPARE(int(*ReplyBytes(reply).from(2)), 0xF6);
    }

    void nothingIsZero()
    {
        const QByteArray nothing;
        const ReplyBytes bytes(nothing);
        QCOMPARE(bytes.at(0), 0);
        QCOMPARE(bytes.wordAt(0), 0);
        QCOMPARE(bytes.wordAt(-1), 0);
        QCOMPARE(bytes.wholeElements(0, 2), 0);
    }
};

QTEST_APPLESS_MAIN(ReplyBytesTest)
#include "tst_reply_bytes.moc"
