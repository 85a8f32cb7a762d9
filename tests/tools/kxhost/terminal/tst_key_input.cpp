#include "kxhost/terminal/key_input.h"

#include <QtTest/QTest>

using namespace kx;

class KeyInputTest : public QObject
{
    Q_OBJECT

private slots:
    void keys_data();
    void keys();
    void keysInPieces();
    void escapeAlone();

private:
    static QString textOf(const QList<Key>& keys);
};

/// Characters as they are, other keys in angle brackets.
QString KeyInputTest::textOf(const QList<Key>& keys)
{
    const char* const names[] = {"",           "<Enter>", "<Backspace>", "<EraseLine>",
                                 "<Escape>",   "<Up>",    "<Down>",      "<PageUp>",
                                 "<PageDown>", "<Home>",  "<End>"};
    QString text;
    for (const Key& key : keys)
        text += key.kind == KeyKind::Text ? key.text
                                          : QString::fromLatin1(names[static_cast<int>(key.kind)]);
    return text;
}

void KeyInputTest::keys_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QString>("keys");
    const auto row = [](const char* name, const QByteArray& typed, const char* keys) {
        QTest::newRow(name) << typed << QString::fromUtf8(keys);
    };
    row("characters", "D1 =/~", "D1 =/~");
    row("Enter", "\r\n", "<Enter><Enter>");
    row("Backspace", "\x08\x7F", "<Backspace><Backspace>");
    row("Ctrl-U", "\x15", "<EraseLine>");
    row("arrows", "\x1B[A\x1B[B", "<Up><Down>");
    row("arrows of a keypad in its other mode", "\x1BOA\x1BOB", "<Up><Down>");
    row("arrows to the sides", "\x1B[C\x1B[D", "");
    row("pages", "\x1B[5~\x1B[6~", "<PageUp><PageDown>");
    row("Home and End of xterm", "\x1B[H\x1B[F\x1BOH\x1BOF", "<Home><End><Home><End>");
    row("Home and End of a console", "\x1B[1~\x1B[4~\x1B[7~\x1B[8~", "<Home><End><Home><End>");
    row("an arrow with Ctrl", "\x1B[1;5Ax", "x");
    row("a function key", "\x1B[15~x", "x");
    row("a longer sequence than any key has", "\x1B[" + QByteArray(1000, '1') + "~x", "x");
    row("Escape and a key", "\x1Bx", "<Escape>x");
    row("Escape twice and an arrow", "\x1B\x1B[A", "<Escape><Up>");
    row("other control characters", "\x01\t", "");
    row("characters of two, three and four bytes", "ä水\xF0\x9F\x94\xA7", "ä水\xF0\x9F\x94\xA7");
    row("a character cut short", "\xE6\xB0x", "x");
    row("bytes that begin no character", "\x80\xC0\xFFx", "x");
    row("half a surrogate pair", "\xED\xA0\x80x", "x");
}

void KeyInputTest::keys()
{
    QFETCH(QByteArray, typed);
    KeyInput input;
    QTEST(textOf(input.take(typed)), "keys");
    KeyInput bytewise;
    QList<Key> keys;
    for (const char byte : typed)
        keys += bytewise.take(QByteArray(1, byte));
    QTEST(textOf(keys), "keys");
}

void KeyInputTest::keysInPieces()
{
    KeyInput input;
    QCOMPARE(textOf(input.take("D\x1B")), QString::fromLatin1("D"));
    QCOMPARE(input.isUndecided(), true);
    QCOMPARE(textOf(input.take("[")), QString());
    QCOMPARE(input.isUndecided(), false);
    QCOMPARE(textOf(input.decide()), QString());
    QCOMPARE(textOf(input.take("A1")), QString::fromLatin1("<Up>1"));
}

void KeyInputTest::escapeAlone()
{
    KeyInput input;
    QCOMPARE(textOf(input.take("\x1B")), QString());
    QCOMPARE(textOf(input.decide()), QString::fromLatin1("<Escape>"));
    QCOMPARE(textOf(input.decide()), QString());
    QCOMPARE(textOf(input.take("[A")), QString::fromLatin1("[A"));
}

QTEST_APPLESS_MAIN(KeyInputTest)
#include "tst_key_input.moc"
