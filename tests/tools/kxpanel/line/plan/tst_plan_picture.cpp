#include "kxpanel/line/plan/plan_picture.h"

#include "kxpanel/line/colours/line_colours.h"
#include "panel/polling/poll_plan.h"
#include "registers/register_types.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

class PlanPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_picture.reset(); }
    void aBarForEachRequest();
    void clickingSelects();
    void keysSelect();
    void theSameRequestStaysSelected();
    void twoColours();
    void manyRequestsFit();
    void nothingIsWatched();

private:
    void show(const QList<kx::AddressRange>& watched);
    static kx::AddressRange range(const char* type, int address, int values, int station);

    std::unique_ptr<PlanPicture> m_picture;
};

kx::AddressRange PlanPictureTest::range(const char* type, int address, int values, int station)
{
    return {findRegisterType(QString(type)), address, values, station};
}

void PlanPictureTest::init()
{
    m_picture = std::make_unique<PlanPicture>();
    m_picture->resize(700, 300);
    m_picture->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_picture.get()));
}

void PlanPictureTest::show(const QList<kx::AddressRange>& watched)
{
    const kx::ReadRules rules;
    QList<kx::PolledRange> polled;
    for (const kx::AddressRange& range : watched)
        polled << kx::PolledRange{range, 0};
    m_picture->setPlan(kx::plannedPolls(polled, rules, nullptr), kx::WatchedRanges(watched),
                       serialCost(rules));
}

void PlanPictureTest::aBarForEachRequest()
{
    show({range("D", 100, 10, 1), range("D", 7000, 20, 1), range("D", 0, 5, 2)});
    QCOMPARE(m_picture->bars(), 3);
    const QRectF first = m_picture->barRect(0);
    const QRectF second = m_picture->barRect(1);
    const QRectF below = m_picture->barRect(2);
    QVERIFY(qAbs(second.width() - 2 * first.width()) < 0.01); // 20 registers and 10
    QVERIFY(second.left() > first.right());                   // what is not read is left out
    QCOMPARE(first.top(), second.top());
    QVERIFY(below.top() > first.bottom()); // another station
    QCOMPARE(below.left(), first.left());
}

void PlanPictureTest::clickingSelects()
{
    show({range("D", 100, 10, 1), range("D", 7000, 20, 1)});
    QSignalSpy told(m_picture.get(), &PlanPicture::told);
    QTest::mouseClick(m_picture.get(), Qt::LeftButton, Qt::NoModifier,
                      m_picture->barRect(1).center().toPoint());
    QCOMPARE(m_picture->selected(), 1);
    // 8 + 45 characters of 10 bits at 9600 baud take 55209 us, the turnaround 5000, the gap 3646.
    QCOMPARE(told.last().at(0).toString(),
             QString("Station 1, D7000 to D7019: 20 registers, 20 asked for, 0 read along; 8 bytes "
                     "out, 45 back, 63.9 ms"));
    QTest::mouseClick(m_picture.get(), Qt::LeftButton, Qt::NoModifier, QPoint(690, 290));
    QCOMPARE(m_picture->selected(), -1);
    QCOMPARE(told.last().at(0).toString(), QString());
}

void PlanPictureTest::keysSelect()
{
    show({range("D", 100, 10, 1), range("D", 0, 5, 2)});
    QSignalSpy at(m_picture.get(), &PlanPicture::selectedAt);
    QTest::keyClick(m_picture.get(), Qt::Key_Right);
    QTest::keyClick(m_picture.get(), Qt::Key_Right);
    QCOMPARE(m_picture->selected(), 1);
    QTest::keyClick(m_picture.get(), Qt::Key_Right); // there is no other
    QCOMPARE(m_picture->selected(), 1);
    QTest::keyClick(m_picture.get(), Qt::Key_Left);
    QCOMPARE(m_picture->selected(), 0);
    QCOMPARE(at.count(), 3);
    QCOMPARE(at.last().at(0).toPoint(), m_picture->barRect(0).center().toPoint());
}

void PlanPictureTest::theSameRequestStaysSelected()
{
    show({range("D", 100, 10, 1), range("D", 7000, 20, 1)});
    QTest::keyClick(m_picture.get(), Qt::Key_Right);
    QTest::keyClick(m_picture.get(), Qt::Key_Right);
    QSignalSpy told(m_picture.get(), &PlanPicture::told);
    QSignalSpy at(m_picture.get(), &PlanPicture::selectedAt);
    show({range("D", 100, 12, 1), range("D", 7000, 20, 1)}); // beside it
    QCOMPARE(m_picture->selected(), 1);
    QCOMPARE(told.count(), 1); // its time may be another
    QVERIFY(told.last().at(0).toString().startsWith("Station 1, D7000 to D7019: 20 registers"));
    QCOMPARE(at.count(), 0); // nobody asked to see it
    const auto isKept = [this](const kx::AddressRange& second) {
        show({range("D", 100, 10, 1), range("D", 7000, 20, 1)});
        QTest::mouseClick(m_picture.get(), Qt::LeftButton, Qt::NoModifier,
                          m_picture->barRect(1).center().toPoint());
        show({range("D", 100, 10, 1), second});
        return m_picture->selected() == 1;
    };
    QVERIFY(isKept(range("D", 7000, 20, 1)));
    QVERIFY(!isKept(range("D", 7000, 20, 2)));
    QVERIFY(!isKept(range("CV", 7000, 20, 1)));
    QVERIFY(!isKept(range("D", 7001, 20, 1)));
    QVERIFY(!isKept(range("D", 7000, 21, 1)));
    show({});
    QCOMPARE(m_picture->selected(), -1);
}

void PlanPictureTest::twoColours()
{
    show({range("D", 100, 4, 1), range("D", 108, 4, 1)}); // D104 to D107 are read along
    QCOMPARE(m_picture->bars(), 1);
    const QRectF bar = m_picture->barRect(0);
    const QImage image = m_picture->grab().toImage();
    const auto colourAt = [&](double share) {
        return image.pixelColor(qRound(bar.left() + bar.width() * share), qRound(bar.center().y()));
    };
    const LineColours colours = lineColours(m_picture->palette());
    QCOMPARE(colourAt(0.1), colours.asked.color());
    QVERIFY(colourAt(0.5) != colours.asked.color());
    QCOMPARE(colourAt(0.9), colours.asked.color());
}

void PlanPictureTest::manyRequestsFit()
{
    QList<kx::AddressRange> watched;
    for (int i = 0; i < 200; ++i)
        watched << range("D", 40 * i, 1, 1); // each too far from the next
    show(watched);
    QCOMPARE(m_picture->bars(), 200);
    QVERIFY(m_picture->barRect(199).right() <= 700);
    QVERIFY(m_picture->barRect(199).left() > m_picture->barRect(198).left());
}

void PlanPictureTest::nothingIsWatched()
{
    show({range("D", 100, 4, 1)});
    const int height = m_picture->sizeHint().height();
    show({range("D", 100, 4, 1), range("M", 0, 4, 1)});
    QCOMPARE(m_picture->sizeHint().height(), 2 * height);
    show({});
    QCOMPARE(m_picture->bars(), 0);
    QTest::keyClick(m_picture.get(), Qt::Key_Right);
    QCOMPARE(m_picture->selected(), -1);
}

QTEST_MAIN(PlanPictureTest)

#include "tst_plan_picture.moc"
