#include "kxpanel/tags/tag_names.h"

#include "tools/kxpanel/tag_samples.h"

using namespace kxpanel;

class TagNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void aFreeNameStays();
    void aTakenNameGetsTheNextFreeNumber();
    void noNameStaysNone();
};

void TagNamesTest::aFreeNameStays()
{
    TagNames names({WatchedValue{1, tagOf("D0", "Flow")}});
    QVERIFY(names.isTaken(QStringLiteral("Flow")));
    QVERIFY(!names.isTaken(QStringLiteral("flow")));
    QCOMPARE(names.take(QStringLiteral("flow")), QStringLiteral("flow"));
}

void TagNamesTest::aTakenNameGetsTheNextFreeNumber()
{
    TagNames names({WatchedValue{1, tagOf("D0", "Flow")}, WatchedValue{2, tagOf("D1", "Flow 3")}});
    QCOMPARE(names.take(QStringLiteral("Flow")), QStringLiteral("Flow 2"));
    QCOMPARE(names.take(QStringLiteral("Flow")), QStringLiteral("Flow 4"));
    QVERIFY(names.isTaken(QStringLiteral("Flow 4")));
}

void TagNamesTest::noNameStaysNone()
{
    TagNames names({WatchedValue{1, tagOf("D0")}});
    QVERIFY(!names.isTaken(QString()));
    QCOMPARE(names.take(QString()), QString());
    QCOMPARE(names.take(QString()), QString());
}

QTEST_GUILESS_MAIN(TagNamesTest)
#include "tst_tag_names.moc"
