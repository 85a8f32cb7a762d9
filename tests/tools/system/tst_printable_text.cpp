#include "system/printable_text.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

using namespace kx;

class PrintableTextTest : public QObject
{
    Q_OBJECT

private slots:
    void obeyedCharactersAreReplaced_data();
    void obeyedCharactersAreReplaced();
    void jsonKeepsItsValues();
    void jsonIsEscaped();
};

void PrintableTextTest::obeyedCharactersAreReplaced_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("printable");

    const auto around = [](int code) { return QString(QLatin1String("a%1b")).arg(QChar(code)); };
    const QString replaced = around(0xFFFD);
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("ASCII") << " ~%1\\\"<>"
                           << " ~%1\\\"<>";
    QTest::newRow("a colour") << "\x1b[31mred" << QString(QChar(0xFFFD)) + "[31mred";
    QTest::newRow("a title") << "\x1b]0;x\x07"
                             << around(0xFFFD).at(1) + QString("]0;x") + QChar(0xFFFD);
    for (const int code : {0x00, 0x07, 0x09, 0x0A, 0x0D, 0x1B, 0x1F, 0x7F, 0x80, 0x85, 0x9B, 0x9F,
                           0x2028, 0x2029, 0x202A, 0x202E, 0x2066, 0x2069})
        QTest::addRow("U+%04X is replaced", code) << around(code) << replaced;
    for (const int code :
         {0x20, 0x7E, 0xA0, 0xE4, 0x200E, 0x2027, 0x202F, 0x2065, 0x206A, 0x4E2D, 0x05D0, 0xFFFD})
        QTest::addRow("U+%04X stays", code) << around(code) << around(code);
    const QString pair = QString::fromUtf8("\xF0\x9F\x8F\xAD"); // U+1F3ED, a factory
    QTest::newRow("beyond U+FFFF") << pair << pair;
}

void PrintableTextTest::obeyedCharactersAreReplaced()
{
    QFETCH(QString, text);
    QTEST(printableText(text), "printable");
}

void PrintableTextTest::jsonKeepsItsValues()
{
    QString all;
    for (int code = 0; code < 0xD800; ++code)
        all += QChar(code);
    QJsonObject object;
    object[all] = all;
    const QString json =
        printableJson(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    QCOMPARE(printableText(json), json);
    QCOMPARE(QJsonDocument::fromJson(json.toUtf8()).object(), object);
}

void PrintableTextTest::jsonIsEscaped()
{
    const QString text = QString(QLatin1String("{\"name\":\"%1%2%3\"}"))
                             .arg(QChar(0x7F))
                             .arg(QChar(0x9B))
                             .arg(QChar(0x202E));
    QCOMPARE(printableJson(text), QString(QLatin1String(R"({"name":"\u007f\u009b\u202e"})")));
}

QTEST_APPLESS_MAIN(PrintableTextTest)
#include "tst_printable_text.moc"
