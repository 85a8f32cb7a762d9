// What a project keeps of a trend.

#include "support/growth.h"
#include "trend_channels_fixture.h"

#include <QtTest/QTest>

#include <ctime>

using kxpanel::numbersOf;
using kxpanel::TagList;
using kxpanel::tagOf;
using kxpanel::TrendAxis;
using kxpanel::TrendChannels;

class TrendChannelsLayoutTest : public kxpanel::TrendChannelsFixture
{
    Q_OBJECT

private slots:
    void init() { makeChannels(); }
    void cleanup() { takeChannelsAway(); }
    void layoutComesBack();
    void layoutWaitsForItsTags();
    void membersOfOthersAreKept();
    void brokenLayoutsAreLeftOut();
    void manyWantedValuesSlowNoEdit();
};

void TrendChannelsLayoutTest::layoutComesBack()
{
    const QList<int> numbers =
        watch({tagOf("Flow", "D1@1/u16"), tagOf("", "D2@2"), tagOf("Other", "D1@1/u16")});
    m_channels->add({numbers.at(2), numbers.at(1)});
    m_channels->setAxis({numbers.at(1)}, TrendAxis::Right);
    m_channels->setShown(numbers.at(2), false);
    const QJsonArray layout = m_channels->layout();

    TagList tags;
    TrendChannels other(&tags);
    const QList<int> others =
        tags.insert(0, {tagOf("", "D2@2"), tagOf("Flow", "D1@1/u16"), tagOf("Other", "D1@1/u16")});
    other.setLayout(layout);
    QCOMPARE(numbersOf(other), (QList<int>{others.at(2), others.at(0)}));
    QCOMPARE(other.list().at(1).axis, TrendAxis::Right);
    QVERIFY(!other.list().at(0).isShown);
    QCOMPARE(other.layout(), layout);
}

void TrendChannelsLayoutTest::layoutWaitsForItsTags()
{
    const QList<int> numbers = watch({tagOf("Flow", "D1@1/u16")});
    m_channels->add(numbers);
    const QJsonArray layout = m_channels->layout();

    TagList tags;
    TrendChannels other(&tags);
    other.setLayout(layout);
    QCOMPARE(numbersOf(other), QList<int>());
    QCOMPARE(other.layout(), layout);
    tags.insert(0, {tagOf("Else", "D5@1/u16")});
    QCOMPARE(numbersOf(other), QList<int>());
    const QList<int> others = tags.insert(0, {tagOf("Flow", "D1@1/u16")});
    QCOMPARE(numbersOf(other), others);
    QCOMPARE(other.layout(), layout);
}

void TrendChannelsLayoutTest::membersOfOthersAreKept()
{
    watch({tagOf("Flow", "D1@1/u16")});
    const QList<kxpanel::WatchedValue> before = m_tags->values();
    m_channels->setLayout({QJsonObject{
        {"name", "Flow"}, {"station", 1}, {"address", "D1/u16"}, {"axis", "left"}, {"width", 3}}});
    m_channels->setAxis({before.at(0).number}, TrendAxis::Right);
    m_tags->setValues({});
    m_tags->setValues(before); // as undo does
    QCOMPARE(m_channels->layout(), (QJsonArray{QJsonObject{{"name", "Flow"},
                                                           {"station", 1},
                                                           {"address", "D1/u16"},
                                                           {"axis", "right"},
                                                           {"look", 0},
                                                           {"shown", true},
                                                           {"width", 3}}}));
}

void TrendChannelsLayoutTest::brokenLayoutsAreLeftOut()
{
    const QList<int> numbers = watch({tagOf("Flow", "D1@1/u16")});
    m_channels->setLayout({QJsonValue(5), QJsonObject(),
                           QJsonObject{{"name", "Flow"},
                                       {"station", 1},
                                       {"address", "D1/u16"},
                                       {"look", 1000000},
                                       {"axis", "upside down"}}});
    QCOMPARE(numbersOf(*m_channels), numbers);
    QCOMPARE(m_channels->list().at(0).look, 0);
    QCOMPARE(m_channels->list().at(0).axis, TrendAxis::Left);
}

void TrendChannelsLayoutTest::manyWantedValuesSlowNoEdit()
{
    const auto cost = [](int amount) {
        QJsonArray layout;
        for (int wanted = 0; wanted < amount; ++wanted)
            layout << QJsonObject{
                {"name", ""}, {"station", 1}, {"address", QString("Z%1").arg(wanted)}};
        QList<kx::Tag> tags;
        for (int tag = 0; tag < 500; ++tag)
            tags << tagOf("", qPrintable(QStringLiteral("D%1@1").arg(tag)));
        TagList list;
        TrendChannels channels(&list);
        channels.setLayout(layout);
        const std::clock_t begin = std::clock();
        list.insert(0, tags);
        return std::clock() - begin;
    };
    // Each is looked at once: a look among all of them would take a hundred times as much.
    const double times = growth(cost, 10, 1000);
    QVERIFY2(times < 10, qPrintable(QString::number(times)));
}

QTEST_APPLESS_MAIN(TrendChannelsLayoutTest)
#include "tst_trend_channels_layout.moc"
