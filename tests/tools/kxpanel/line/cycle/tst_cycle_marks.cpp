#include "kxpanel/line/cycle/cycle_marks.h"

#include "../../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

/// @param text each letter stands for an exchange: p poll, r the same poll repeated, w write; a
///        semicolon behind one that ends a cycle
/// @return the same with a bar before those that begin one
QString marked(CycleMarks* marks, const QString& text)
{
    QString marked;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == ';') {
            marked += ';';
            continue;
        }
        Exchange exchange = text.at(i) == 'w' ? refusedWrite() : answeredPoll();
        exchange.wasRepeated = text.at(i) == 'r';
        exchange.endsCycle = text.mid(i + 1, 1) == ";";
        marked += (marks->begins(exchange) ? "|" : "") + QString(text.at(i));
    }
    return marked;
}

} // namespace

class CycleMarksTest : public QObject
{
    Q_OBJECT

private slots:
    void marks_data();
    void marks();
    void whatBegunBeforeIsForgotten();
};

void CycleMarksTest::marks_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("one request") << QString("|p;|p;|p");
    QTest::newRow("three in turn") << QString("|ppp;|ppp;|ppp");
    QTest::newRow("a poll that is repeated") << QString("|prr;|p;");
    QTest::newRow("a try that was begun before the line") << QString("r|p;");
    QTest::newRow("writes between cycles") << QString("w|pwp;ww|p;");
}

void CycleMarksTest::marks()
{
    QFETCH(QString, expected);
    CycleMarks marks;
    QCOMPARE(marked(&marks, QString(expected).remove('|')), expected);
}

void CycleMarksTest::whatBegunBeforeIsForgotten()
{
    CycleMarks marks;
    QCOMPARE(marked(&marks, "pp;"), QString("|pp;"));
    marks.forget();
    QCOMPARE(marked(&marks, "pp;p;"), QString("pp;|p;"));
}

QTEST_GUILESS_MAIN(CycleMarksTest)

#include "tst_cycle_marks.moc"
