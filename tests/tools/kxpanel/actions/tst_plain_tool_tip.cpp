#include "kxpanel/actions/plain_tool_tip.h"

#include <QtGui/QTextDocument>
#include <QtTest/QTest>

using namespace kxpanel;

class PlainToolTipTest : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatItGets_data();
    void showsWhatItGets();
};

void PlainToolTipTest::showsWhatItGets_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    const auto row = [](const char* name, const char* text, const char* tip) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(tip);
    };
    row("none", "", "");
    row("signs that mean nothing", "5 > 3 & 2", "5 > 3 & 2");
    row("markup", "<b>a</b>\nc", "<qt>&lt;b&gt;a&lt;/b&gt;<br>c</qt>");
    row("a sign written as markup", "a &lt; b", "<qt>a &amp;lt; b</qt>");
    row("a picture", "<img src=\"file:///etc/logo.png\">",
        "<qt>&lt;img src=&quot;file:///etc/logo.png&quot;&gt;</qt>");
}

void PlainToolTipTest::showsWhatItGets()
{
    QFETCH(QString, text);
    const QString tip = plainToolTip(text);
    QTEST(tip, "tip");
    QTextDocument shown;
    if (Qt::mightBeRichText(tip)) // as a tool tip decides
        shown.setHtml(tip);
    else
        shown.setPlainText(tip);
    QCOMPARE(shown.toPlainText(), text);
}

QTEST_MAIN(PlainToolTipTest)
#include "tst_plain_tool_tip.moc"
