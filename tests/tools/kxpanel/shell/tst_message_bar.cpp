#include "kxpanel/shell/message_bar.h"

#include "kxpanel/window/theme.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

using namespace kxpanel;

class MessageBarTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingToSayTakesNoRoom();
    void itStaysUntilItIsClosed();
    void textIsNoMarkup();
    void manyRowsAreCut();
    void aFewRowsAreNot();
    void aLongWordLeavesTheWindowAsItIs();
    void itsColourFollowsTheTheme();
};

void MessageBarTest::nothingToSayTakesNoRoom()
{
    const MessageBar bar;
    QVERIFY(bar.isHidden());
    QCOMPARE(bar.text(), QString());
}

void MessageBarTest::itStaysUntilItIsClosed()
{
    MessageBar bar;
    bar.say("a.kxpanel: line 3, column 7: unterminated string");
    QVERIFY(!bar.isHidden());
    auto* const close = bar.findChild<QToolButton*>();
    QCOMPARE(close->accessibleName(), QString("Close the message"));
    QVERIFY(close->focusPolicy() & Qt::TabFocus);
    QTest::keyClick(close, Qt::Key_Space);
    QVERIFY(bar.isHidden());
    QCOMPARE(bar.text(), QString());
}

void MessageBarTest::textIsNoMarkup()
{
    MessageBar bar;
    bar.say("<b>a</b>.kxpanel: no such file");
    QCOMPARE(bar.findChild<QLabel*>()->textFormat(), Qt::PlainText);
}

void MessageBarTest::manyRowsAreCut()
{
    MessageBar bar;
    QStringList rows;
    for (int row = 1; row <= 1000; ++row)
        rows << QString("tags[%1]: no such address").arg(row);
    bar.say(rows.join('\n'));
    const QStringList shown = bar.text().split('\n');
    QCOMPARE(shown.size(), 9);
    QCOMPARE(shown.at(7), QString("tags[8]: no such address"));
    QCOMPARE(shown.at(8), QString("and 992 more"));
}

void MessageBarTest::aFewRowsAreNot()
{
    MessageBar bar;
    bar.say("1\n2\n3\n4\n5\n6\n7\n8");
    QCOMPARE(bar.text(), QString("1\n2\n3\n4\n5\n6\n7\n8"));
}

void MessageBarTest::aLongWordLeavesTheWindowAsItIs()
{
    MessageBar bar;
    bar.say("wrong");
    const int width = bar.minimumSizeHint().width();
    bar.say(QString(300, 'x'));
    QCOMPARE(bar.minimumSizeHint().width(), width);
}

void MessageBarTest::itsColourFollowsTheTheme()
{
    MessageBar bar;
    bar.say("wrong");
    const auto* const label = bar.findChild<QLabel*>();
    bar.setPalette(darkPalette());
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0xff7b72));
    bar.setPalette(lightPalette());
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0xb31d28));
    QCOMPARE(bar.text(), QString("wrong"));
}

QTEST_MAIN(MessageBarTest)
#include "tst_message_bar.moc"
