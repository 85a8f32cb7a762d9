#include "kxpanel/actions/message_label.h"

#include <QtTest/QTest>
#include <QtWidgets/QVBoxLayout>

using namespace kxpanel;

class MessageLabelTest : public QObject
{
    Q_OBJECT

private slots:
    void textIsNoMarkupAndCanBeCopied();
    void longRowsAreCutInTheirMiddle();
    void itTakesNoMoreRoomThanThereIs();
};

void MessageLabelTest::textIsNoMarkupAndCanBeCopied()
{
    const MessageLabel label;
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QVERIFY(label.textInteractionFlags() & Qt::TextSelectableByMouse);
    QVERIFY(label.textInteractionFlags() & Qt::TextSelectableByKeyboard);
}

// Where it stands begins the row, and what is wrong ends it.
void MessageLabelTest::longRowsAreCutInTheirMiddle()
{
    MessageLabel label;
    const QString row = "tags[0].address: " + QString(100000, 'x') + ": no such type";
    label.say(row + "\nshort");
    QCOMPARE(label.text(), row.left(200) + QString::fromUtf8(" … ") + row.right(100) + "\nshort");
    const QString most(300, 'y');
    label.say(most);
    QCOMPARE(label.text(), most);
}

void MessageLabelTest::itTakesNoMoreRoomThanThereIs()
{
    QWidget window;
    auto* const label = new MessageLabel(&window);
    auto* const box = new QVBoxLayout(&window);
    box->addWidget(label);
    label->say("wrong");
    const int width = window.minimumSizeHint().width();
    label->say(QString(300, 'x'));
    box->invalidate();
    QCOMPARE(window.minimumSizeHint().width(), width);
    label->say("many words, " + QString("of which each may stand in a row of its own").repeated(5));
    QVERIFY(label->heightForWidth(200) > 3 * label->fontMetrics().lineSpacing());
}

QTEST_MAIN(MessageLabelTest)
#include "tst_message_label.moc"
