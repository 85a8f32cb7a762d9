#include "kxpanel/trend/model/trend_channel.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

using kxpanel::TrendAxis;
using kxpanel::TrendChannel;

namespace
{

TrendChannel channelOf(const char* unit, TrendAxis wanted = TrendAxis::Automatic)
{
    TrendChannel channel;
    channel.unit = QLatin1String(unit);
    channel.wanted = wanted;
    return channel;
}

TrendChannel bit()
{
    TrendChannel channel;
    channel.isDigital = true;
    return channel;
}

const TrendAxis L = TrendAxis::Left;
const TrendAxis R = TrendAxis::Right;
const TrendAxis LANE = TrendAxis::Lane;

} // namespace

Q_DECLARE_METATYPE(QList<TrendChannel>)
Q_DECLARE_METATYPE(QList<TrendAxis>)

class TrendChannelTest : public QObject
{
    Q_OBJECT

private slots:
    void axes_data();
    void axes();
    void unitsOfHiddenOnesAreNotShown();
};

void TrendChannelTest::axes_data()
{
    QTest::addColumn<QList<TrendChannel>>("channels");
    QTest::addColumn<QList<TrendAxis>>("axes");

    QTest::newRow("one unit") << QList<TrendChannel>{channelOf("bar"), channelOf("bar")}
                              << QList<TrendAxis>{L, L};
    QTest::newRow("two units") << QList<TrendChannel>{channelOf("bar"), channelOf("mm"),
                                                      channelOf("bar")}
                               << QList<TrendAxis>{L, R, L};
    QTest::newRow("a third goes into lanes")
        << QList<TrendChannel>{channelOf("bar"), channelOf("mm"), channelOf("l")}
        << QList<TrendAxis>{L, R, LANE};
    QTest::newRow("no unit is one, too")
        << QList<TrendChannel>{channelOf(""), channelOf("mm")} << QList<TrendAxis>{L, R};
    QTest::newRow("bits have lanes and take no scale")
        << QList<TrendChannel>{bit(), channelOf("mm"), bit(), channelOf("")}
        << QList<TrendAxis>{LANE, L, LANE, R};
    QTest::newRow("what a person chose counts")
        << QList<TrendChannel>{channelOf("bar", R), channelOf("mm", LANE), channelOf("l", L)}
        << QList<TrendAxis>{R, LANE, L};
}

void TrendChannelTest::axes()
{
    QFETCH(QList<TrendChannel>, channels);
    QList<TrendAxis> axes;
    kxpanel::assignAxes(&channels);
    for (const TrendChannel& channel : channels)
        axes << channel.axis;
    QTEST(axes, "axes");
}

void TrendChannelTest::unitsOfHiddenOnesAreNotShown()
{
    QList<TrendChannel> channels = {channelOf("bar", L), channelOf("mm", L), channelOf("bar", L),
                                    channelOf("l", R)};
    kxpanel::assignAxes(&channels);
    QCOMPARE(kxpanel::unitsOn(channels, L), (QStringList{"bar", "mm"}));
    channels[1].isShown = false;
    QCOMPARE(kxpanel::unitsOn(channels, L), QStringList{"bar"});
    QCOMPARE(kxpanel::unitsOn(channels, R), QStringList{"l"});
}

QTEST_APPLESS_MAIN(TrendChannelTest)
#include "tst_trend_channel.moc"
