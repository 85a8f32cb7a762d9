#include "kxpanel/trend/model/trend_legend.h"

#include "trend_tags.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::readingOf;
using kxpanel::TagList;
using kxpanel::tagOf;
using kxpanel::TrendChannels;
using kxpanel::TrendLegend;
using kxpanel::TrendView;

namespace
{

struct Legend {
    TagList tags;
    TrendChannels channels{&tags};
    TrendView view;
    TrendLegend legend{&channels, &view};

    /// Level with 1.5 from 1000 on, 4 from 2000, nothing from 3000, and a bit.
    Legend()
    {
        const QList<int> numbers =
            tags.insert(0, {tagOf("Level", "D1@2/u16*0.5,unit=mm"), tagOf("", "Y10@1")});
        channels.add(numbers);
        channels.takeReadings({readingOf(numbers.at(0), 3, 1000)}, 1000);
        channels.takeReadings({readingOf(numbers.at(0), 8, 2000)}, 2000);
        channels.takeReadings({kxpanel::failureOf(numbers.at(0), kx::WatchState::NoAnswer)}, 3000);
        view.setNow(4000);
    }

    QString text(int row, int column) const { return legend.index(row, column).data().toString(); }
};

} // namespace

class TrendLegendTest : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatIsAndWhatWas();
    void differenceNeedsTwoNumbers();
    void largeNumbersAreShownToTheirLastDigit();
    void longNumbersAreExact_data();
    void longNumbersAreExact();
    void aBoxHidesACurve();
    void aSelectionOutlivesNewValues();
    void oldValuesMayBeARange();
    void oldValuesMayHaveGaps();
    void eachRowTellsItsLook();
};

void TrendLegendTest::showsWhatIsAndWhatWas()
{
    Legend legend;
    QCOMPARE(legend.legend.rowCount(), 2);
    QCOMPARE(legend.text(0, TrendLegend::Name), QString("Level"));
    QCOMPARE(legend.text(0, TrendLegend::Unit), QString("mm"));
    QCOMPARE(legend.text(0, TrendLegend::Now), QString("(no answer)"));
    QCOMPARE(legend.text(0, TrendLegend::First), QString());
    QCOMPARE(legend.text(0, TrendLegend::Axis), QString("left"));
    QCOMPARE(legend.text(1, TrendLegend::Name), QString("Y10"));
    QCOMPARE(legend.text(1, TrendLegend::Now), QString());
    QCOMPARE(legend.text(1, TrendLegend::Axis), QString("lane"));
    QCOMPARE(legend.legend.index(0, 0).data(Qt::ToolTipRole).toString(),
             QString("D1/u16*0.5 of station 2"));
    legend.view.setCursor(0, 1500);
    QCOMPARE(legend.text(0, TrendLegend::First), QString("1.5"));
    legend.view.setCursor(0, 999);
    QCOMPARE(legend.text(0, TrendLegend::First), QString());
}

void TrendLegendTest::differenceNeedsTwoNumbers()
{
    Legend legend;
    legend.view.setCursor(0, 1500);
    QCOMPARE(legend.text(0, TrendLegend::Difference), QString());
    legend.view.setCursor(1, 2500);
    QCOMPARE(legend.text(0, TrendLegend::Second), QString("4"));
    QCOMPARE(legend.text(0, TrendLegend::Difference), QString("2.5"));
    legend.view.setCursor(1, 3500); // in the gap
    QCOMPARE(legend.text(0, TrendLegend::Second), QString("(no answer)"));
    QCOMPARE(legend.text(0, TrendLegend::Difference), QString("(gap)"));
    legend.view.setCursor(1, 9000); // not yet
    QCOMPARE(legend.text(0, TrendLegend::Second), QString());
    QCOMPARE(legend.text(0, TrendLegend::Difference), QString("(no value)"));
    legend.view.setCursor(0, 3500);
    QCOMPARE(legend.text(0, TrendLegend::Difference), QString("(gap)"));
}

void TrendLegendTest::largeNumbersAreShownToTheirLastDigit()
{
    Legend legend;
    const QList<int> numbers =
        legend.tags.insert(2, {tagOf("Bottles", "32CV200@1"), tagOf("Energy", "D10@1/u32*0.01")});
    legend.channels.add(numbers);
    kxpanel::Reading energy = readingOf(numbers.at(1), 0xFFFF, 3900);
    energy.raw << 0xFFFF; // low word first
    legend.channels.takeReadings({readingOf(numbers.at(0), 4294967295, 3900), energy}, 3900);
    QCOMPARE(legend.text(2, TrendLegend::Now), QString("4294967295"));
    QCOMPARE(legend.text(3, TrendLegend::Now), QString("42949672.95"));
    legend.view.setCursor(0, 3950);
    legend.view.setCursor(1, 3960);
    legend.channels.takeReadings({readingOf(numbers.at(0), 4294967292, 3955)}, 3955);
    QCOMPARE(legend.text(2, TrendLegend::Difference), QString("-3"));
}

void TrendLegendTest::longNumbersAreExact_data()
{
    using Words = QList<qint64>; // low first
    QTest::addColumn<QString>("address");
    QTest::addColumn<Words>("first");
    QTest::addColumn<Words>("second");
    QTest::addColumn<QString>("firstText");
    QTest::addColumn<QString>("secondText");
    QTest::addColumn<QString>("difference");

    const Words most = {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
    QTest::newRow("a counter of 54 bits, one on")
        << "D10@1/u64" << Words{0, 0, 0, 0x20} << Words{1, 0, 0, 0x20} << "9007199254740992"
        << "9007199254740993"
        << "1";
    QTest::newRow("the highest, one less")
        << "D10@1/u64" << Words{0xFFFE, 0xFFFF, 0xFFFF, 0xFFFF} << most << "18446744073709551614"
        << "18446744073709551615"
        << "1";
    QTest::newRow("from the highest to 0")
        << "D10@1/u64" << most << Words{0, 0, 0, 0} << "18446744073709551615"
        << "0"
        << "-18446744073709551615";
    QTest::newRow("the lowest of all with a sign, and the highest")
        << "D10@1/s64" << Words{0, 0, 0, 0x8000} << Words{0xFFFF, 0xFFFF, 0xFFFF, 0x7FFF}
        << "-9223372036854775808"
        << "9223372036854775807"
        << "18446744073709551615";
    QTest::newRow("scaled, with an offset")
        << "D10@1/u64*0.001+0.0005" << Words{0xFFFE, 0xFFFF, 0xFFFF, 0xFFFF} << most
        << "18446744073709551.6145"
        << "18446744073709551.6155"
        << "0.001";
    QTest::newRow("turned round") << "D10@1/u64*-0.5" << Words{0xFFFE, 0xFFFF, 0xFFFF, 0xFFFF}
                                  << most << "-9223372036854775807"
                                  << "-9223372036854775807.5"
                                  << "-0.5";
    QTest::newRow("sixteen digits, which a double has")
        << "D10@1/u64" << Words{0x7FFF, 0xA4C6, 0x8D7E, 3} << Words{0x8000, 0xA4C6, 0x8D7E, 3}
        << "999999999999999"
        << "1000000000000000"
        << "1";
    QTest::newRow("a counter of 32 bits with a long scale")
        << "D10@1/u32*0.12345678" << Words{0xFFFE, 0xFFFF} << Words{0xFFFF, 0xFFFF}
        << "530242832.32255332"
        << "530242832.4460101"
        << "0.12345678";
    QTest::newRow("a difference of digits far behind the point")
        << "D10@1/s32*0.0001" << Words{0x0001, 0x7000} << Words{0x0003, 0x7000} << "187904.8193"
        << "187904.8195"
        << "0.0002";
    QTest::newRow("more digits than there is room for")
        << "D10@1/u64*1234.567" << most << Words{0, 0, 0, 0}
        << QString(QChar(0x2248)) + "2.27737414908474e+22"
        << "0" << QString(QChar(0x2248)) + "-2.27737414908474e+22";
}

void TrendLegendTest::longNumbersAreExact()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, first);
    QFETCH(QList<qint64>, second);
    Legend legend;
    const QList<int> numbers = legend.tags.insert(2, {tagOf("Long", address.toLatin1())});
    legend.channels.add(numbers);
    kxpanel::Reading reading = readingOf(numbers.at(0), 0, 3000);
    reading.raw = first;
    legend.channels.takeReadings({reading}, 3000);
    reading.raw = second;
    reading.readAt = 3500;
    legend.channels.takeReadings({reading}, 3500);
    legend.view.setCursor(0, 3100);
    legend.view.setCursor(1, 3600);
    QTEST(legend.text(2, TrendLegend::First), "firstText");
    QTEST(legend.text(2, TrendLegend::Second), "secondText");
    QTEST(legend.text(2, TrendLegend::Now), "secondText");
    QTEST(legend.text(2, TrendLegend::Difference), "difference");
}

void TrendLegendTest::aBoxHidesACurve()
{
    Legend legend;
    const QModelIndex name = legend.legend.index(0, TrendLegend::Name);
    QCOMPARE(name.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(legend.legend.setData(name, Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(!legend.channels.list().at(0).isShown);
    QCOMPARE(name.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QVERIFY(!legend.legend.setData(legend.legend.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    QVERIFY(!legend.legend.setData(name, "other", Qt::EditRole));
    QVERIFY(legend.legend.flags(name) & Qt::ItemIsUserCheckable);
}

void TrendLegendTest::aSelectionOutlivesNewValues()
{
    Legend legend;
    QSignalSpy resets(&legend.legend, &TrendLegend::modelReset);
    QSignalSpy changes(&legend.legend, &TrendLegend::dataChanged);
    legend.legend.refreshValues();
    legend.channels.setAxis({legend.channels.list().at(0).number}, kxpanel::TrendAxis::Right);
    QCOMPARE(resets.size(), 0);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(legend.text(0, TrendLegend::Axis), QString("right"));
    legend.channels.remove({legend.channels.list().at(0).number});
    QCOMPARE(resets.size(), 1);
    QCOMPARE(legend.legend.rowCount(), 1);
}

void TrendLegendTest::oldValuesMayBeARange()
{
    kxpanel::TrendChannel channel;
    channel.store = std::make_shared<kxpanel::TrendStore>(64);
    for (int step = 0; step < 1024; ++step) // the oldest are left in spans of 16: 0 to 15
        channel.store->append(step * 10, step);
    QCOMPARE(kxpanel::trendValueText(channel, 10230, 20000), QString("1023"));
    QCOMPARE(kxpanel::trendValueText(channel, 5170, 20000), QString("512 to 527"));
}

void TrendLegendTest::oldValuesMayHaveGaps()
{
    kxpanel::TrendChannel channel;
    channel.store = std::make_shared<kxpanel::TrendStore>(64);
    for (int step = 0; step < 1024; ++step)
        channel.store->append(step * 10, step == 520 ? kxpanel::gapValue(kx::GapReason::Refused)
                                                     : double(step));
    QCOMPARE(kxpanel::trendValueText(channel, 5170, 20000), QString("512 to 527 (refused)"));
}

void TrendLegendTest::eachRowTellsItsLook()
{
    Legend legend;
    QCOMPARE(legend.legend.index(0, TrendLegend::Name).data(TrendLegend::LookRole).toInt(), 0);
    QCOMPARE(legend.legend.index(1, TrendLegend::Name).data(TrendLegend::LookRole).toInt(), 1);
}

QTEST_APPLESS_MAIN(TrendLegendTest)
#include "tst_trend_legend.moc"
