#include "kxhost/terminal/prompt_input.h"

#include <QtTest/QTest>

using namespace kx;

class PromptInputTest : public QObject
{
    Q_OBJECT

private slots:
    void keys_data();
    void keys();
    void keysInPieces();
    void endlessLineIsCut();
};

void PromptInputTest::keys_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QStringList>("entered");
    QTest::addColumn<QString>("left");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QTest::newRow("nothing") << QByteArray() << QStringList() << QString();
    QTest::newRow("unfinished") << QByteArray("D100=") << QStringList() << text("D100=");
    QTest::newRow("Enter") << QByteArray("D100=5\r") << QStringList(text("D100=5")) << QString();
    QTest::newRow("newline") << QByteArray("D100=5\n") << QStringList(text("D100=5")) << QString();
    QTest::newRow("two lines and a start")
        << QByteArray("M0=1\nM1=0\nM2") << QStringList({text("M0=1"), text("M1=0")}) << text("M2");
    QTest::newRow("empty line") << QByteArray("\r") << QStringList() << QString();
    QTest::newRow("blanks around")
        << QByteArray("  \r D0=1 \r") << QStringList(text("D0=1")) << QString();
    QTest::newRow("delete") << QByteArray("D1\x7F\x7F\x7FM") << QStringList() << text("M");
    QTest::newRow("backspace") << QByteArray("D1\x08"
                                             "2")
                               << QStringList() << text("D2");
    QTest::newRow("Ctrl-U") << QByteArray("D100=5\x15X") << QStringList() << text("X");
    QTest::newRow("cursor keys") << QByteArray("D\x1B[A1\x1B[1;5C2\x1BOB3") << QStringList()
                                 << text("D123");
    QTest::newRow("escape and a key") << QByteArray("D\x1Bx1") << QStringList() << text("Dx1");
    QTest::newRow("control and foreign bytes")
        << QByteArray("D\x01\xC3\xA4\t1") << QStringList() << text("D1");
}

void PromptInputTest::keys()
{
    QFETCH(QByteArray, typed);
    PromptInput prompt;
    QTEST(prompt.type(typed), "entered");
    QTEST(prompt.text(), "left");
}

void PromptInputTest::keysInPieces()
{
    PromptInput prompt;
    QCOMPARE(prompt.type("D10"), QStringList());
    QCOMPARE(prompt.type("\x1B"), QStringList());
    QCOMPARE(prompt.type("["), QStringList());
    QCOMPARE(prompt.type("A0=5"), QStringList());
    QCOMPARE(prompt.type("\r"), QStringList(QString::fromLatin1("D100=5")));
}

void PromptInputTest::endlessLineIsCut()
{
    PromptInput prompt;
    prompt.type(QByteArray(5000, 'D'));
    QCOMPARE(prompt.text().size(), 1000);
}

QTEST_GUILESS_MAIN(PromptInputTest)
#include "tst_prompt_input.moc"
