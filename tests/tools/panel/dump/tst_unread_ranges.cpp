#include "panel/dump/unread_ranges.h"

#include "dump_ranges.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

/// "D0:4@1 no reply"
ReadOutcome failedOutcome(const QString& text)
{
    ReadOutcome outcome;
    outcome.tag.range = rangeOf(text.section(' ', 0, 0));
    outcome.failure = failureOf(FailureKind::NoReply, text.section(' ', 1));
    return outcome;
}

} // namespace

class UnreadRangesTest : public QObject
{
    Q_OBJECT

private slots:
    void pieces_data();
    void pieces();
    void unread_data();
    void unread();
};

void UnreadRangesTest::pieces_data()
{
    QTest::addColumn<QStringList>("ranges");
    QTest::addColumn<QStringList>("pieces");

    QTest::newRow("short ranges") << QStringList{"D0:100@1", "M7@2"}
                                  << QStringList{"D0:100@1", "M7@2"};
    QTest::newRow("a long one") << QStringList{"D0:201@1"}
                                << QStringList{"D0:100@1", "D100:100@1", "D200@1"};
    QTest::newRow("at the jump of M's numbers")
        << QStringList{"M2040:20@1"} << QStringList{"M2040:8@1", "M2048:12@1"};
}

void UnreadRangesTest::pieces()
{
    QFETCH(QStringList, ranges);
    QList<AddressRange> whole;
    for (const QString& text : ranges)
        whole << rangeOf(text);
    QStringList pieces;
    for (const Tag& tag : piecesToRead(whole))
        pieces << rangeText(tag.range);
    QTEST(pieces, "pieces");
}

void UnreadRangesTest::unread_data()
{
    QTest::addColumn<QStringList>("failed");
    QTest::addColumn<QStringList>("unread");

    QTest::newRow("nothing") << QStringList() << QStringList();
    QTest::newRow("neighbours with one reason")
        << QStringList{"D0:100@1 no reply", "D100:100@1 no reply", "D200:5@1 no reply"}
        << QStringList{"D0:205@1 no reply"};
    QTest::newRow("neighbours with two reasons")
        << QStringList{"D0:100@1 no reply", "D100@1 refused"}
        << QStringList{"D0:100@1 no reply", "D100@1 refused"};
    QTest::newRow("a gap, another type, another station")
        << QStringList{"D0@1 no reply", "D2@1 no reply", "SD3@1 no reply", "SD4@2 no reply"}
        << QStringList{"D0@1 no reply", "D2@1 no reply", "SD3@1 no reply", "SD4@2 no reply"};
}

void UnreadRangesTest::unread()
{
    QFETCH(QStringList, failed);
    QList<ReadOutcome> outcomes;
    for (const QString& text : failed)
        outcomes << failedOutcome(text);
    QStringList unread;
    for (const UnreadRange& range : unreadRanges(outcomes))
        unread << rangeText(range.range) + ' ' + range.reason;
    QTEST(unread, "unread");
}

QTEST_APPLESS_MAIN(UnreadRangesTest)
#include "tst_unread_ranges.moc"
