#include "kxhost/terminal/prompt_input.h"

#include <QtTest/QTest>

using namespace kx;

class PromptInputTest : public QObject
{
    Q_OBJECT

private slots:
    void keys_data();
    void keys();
    void endlessLineIsCut();
    void aCharacterOfTwoPlacesIsErasedWhole();

private:
    static QStringList type(const QByteArray& bytes, PromptInput* prompt);
};

QStringList PromptInputTest::type(const QByteArray& bytes, PromptInput* prompt)
{
    KeyInput input;
    QStringList entered;
    for (const Key& key : input.take(bytes)) {
        const QString line = prompt->take(key);
        if (!line.isEmpty())
            entered << line;
    }
    return entered;
}

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
        << QByteArray("  \r D0=1 \r") << QStringList(text(" D0=1 ")) << QString();
    QTest::newRow("delete") << QByteArray("D1\x7F\x7F\x7FM") << QStringList() << text("M");
    QTest::newRow("backspace") << QByteArray("D1\x08"
                                             "2")
                               << QStringList() << text("D2");
    QTest::newRow("Ctrl-U") << QByteArray("D100=5\x15X") << QStringList() << text("X");
    QTest::newRow("cursor keys") << QByteArray("D\x1B[A1\x1B[1;5C2\x1BOB3") << QStringList()
                                 << text("D123");
    QTest::newRow("escape and a key") << QByteArray("D\x1Bx1") << QStringList() << text("Dx1");
    QTest::newRow("control characters") << QByteArray("D\x01\t1") << QStringList() << text("D1");
}

void PromptInputTest::keys()
{
    QFETCH(QByteArray, typed);
    PromptInput prompt;
    QTEST(type(typed, &prompt), "entered");
    QTEST(prompt.text(), "left");
}

void PromptInputTest::endlessLineIsCut()
{
    PromptInput prompt;
    type(QByteArray(5000, 'D'), &prompt);
    QCOMPARE(prompt.text().size(), 1000);
}

void PromptInputTest::aCharacterOfTwoPlacesIsErasedWhole()
{
    PromptInput prompt;
    type("D\xF0\x9F\x94\xA7\x7F", &prompt); // a wrench
    QCOMPARE(prompt.text(), QString::fromLatin1("D"));
}

QTEST_GUILESS_MAIN(PromptInputTest)
#include "tst_prompt_input.moc"
