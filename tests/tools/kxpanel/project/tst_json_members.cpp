#include "kxpanel/project/json_members.h"

#include <QtTest/QTest>

using namespace kxpanel;

class JsonMembersTest : public QObject
{
    Q_OBJECT

private slots:
    void findsTheFirst_data();
    void findsTheFirst();
};

void JsonMembersTest::findsTheFirst_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("at"); // bytes
    QTest::addColumn<QString>("name");
    const auto row = [](const char* name, const char* text, int at, const char* member) {
        QTest::newRow(name) << QByteArray(text) << at << QString::fromUtf8(member);
    };
    row("nothing", "", -1, "");
    row("no member", "{}", -1, "");
    row("two", R"({"a":1,"b":2})", -1, "");
    row("twice", R"({"a":1,"a":2})", 7, "a");
    row("twice behind another", R"({"a":1,"b":2,"a":3})", 13, "a");
    row("three times", R"({"a":1,"a":2,"a":3})", 7, "a");
    row("blanks and lines", "{\"a\" : 1,\r\n\t\"a\"\n:2}", 12, "a");
    row("no name", R"({"":1,"":2})", 6, "");
    row("in an object within", R"({"a":{"b":1,"b":2}})", 12, "b");
    row("of an object and one within", R"({"a":{"a":1}})", -1, "");
    row("of two objects", R"([{"a":1},{"a":2}])", -1, "");
    row("behind an object", R"({"a":{"x":1},"a":2})", 13, "a");
    row("in a list's object", R"([1,{"a":1,"a":2}])", 10, "a");
    row("texts in a list", R"({"a":["a","a"]})", -1, "");
    row("a text that is a name", R"({"a":"a","b":"a"})", -1, "");
    row("a text with quotes", R"({"a":"\",\"a\":","b":"}"})", -1, "");
    row("a text that ends with a backslash", R"({"a":"\\","a":2})", 10, "a");
    row("written in two ways", R"({"pr\u00fcfen":1,"prüfen":2})", 17, "prüfen");
    row("broken behind it", R"({"a":1,"a":)", 7, "a");
    row("without an end", R"({"a":1,"a)", -1, "");
    QTest::newRow("deeper than can be read")
        << QByteArray(R"({"a":)").repeated(100000) + R"("b":1,"b":2)" << -1 << "";
    row("names that differ in case", R"({"a":1,"A":2})", -1, "");
}

void JsonMembersTest::findsTheFirst()
{
    QFETCH(QByteArray, text);
    QString name;
    QTEST(repeatedMember(text, &name), "at");
    QFETCH(int, at);
    if (at >= 0)
        QTEST(name, "name");
}

QTEST_GUILESS_MAIN(JsonMembersTest)
#include "tst_json_members.moc"
