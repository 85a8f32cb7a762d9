#include "kxpanel/line/limit/limit_panel.h"

#include "kxpanel/line/limit/limit_costs.h"
#include "registers/register_types.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>

using namespace kxpanel;

class LimitPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void predictsWhatIsChosen();
    void theNumberHasItsUnit();
    void tellsWhatIsNotPredicted();
    void tellsWhatWasMeasured();
    void tellsWhichLimitIsInForce();
    void appliesWhatIsChosen();
    void theBestIsKnownWhenAllArePredicted();
    void appliesTheBestWithOneClick();
    void leavesTheChoiceToTheRuntime();
    void nothingToApply();

private:
    QString labels() const;
    QPushButton* button(const QString& text) const;

    LimitCosts m_costs;
    std::unique_ptr<LimitPanel> m_panel;
    std::unique_ptr<QSignalSpy> m_applied;
};

void LimitPanelTest::init()
{
    m_costs.start({{{findRegisterType(QString("D")), 100, 40, 1}, 0}}, AnswerPace());
    m_panel = std::make_unique<LimitPanel>(&m_costs);
    m_applied = std::make_unique<QSignalSpy>(m_panel.get(), &LimitPanel::applied);
    QTRY_VERIFY(m_costs.isFinished());
}

void LimitPanelTest::cleanup()
{
    m_applied.reset();
    m_panel.reset();
}

QString LimitPanelTest::labels() const
{
    QString texts;
    for (const QLabel* label : m_panel->findChildren<QLabel*>())
        texts += label->text() + '\n';
    return texts;
}

QPushButton* LimitPanelTest::button(const QString& text) const
{
    for (QPushButton* candidate : m_panel->findChildren<QPushButton*>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

void LimitPanelTest::predictsWhatIsChosen()
{
    // 8 + 85 characters take 96875 us, with 5000 to turn round and a gap of 3646.
    QVERIFY(labels().contains("Predicted: 105.5 ms per cycle, 1 requests, line used 91.8 %"));
    QSignalSpy chosen(m_panel.get(), &LimitPanel::chosenChanged);
    m_panel->findChild<QSpinBox*>()->setValue(20);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(m_panel->findChild<QSlider*>()->value(), 20);
    // Twice 8 + 45 characters take 110417 us, and the rest twice 8646.
    QVERIFY(labels().contains("Predicted: 127.7 ms per cycle, 2 requests, line used 86.5 %"));
    QTest::keyClick(m_panel->findChild<QSlider*>(), Qt::Key_Right);
    QCOMPARE(m_panel->chosen(), 21);
    QCOMPARE(m_panel->findChild<QSpinBox*>()->value(), 21);
    QCOMPARE(m_applied->count(), 0);
}

void LimitPanelTest::theNumberHasItsUnit()
{
    auto* number = m_panel->findChild<QSpinBox*>();
    QCOMPARE(number->text(), QString("125 registers"));
    number->selectAll();
    QTest::keyClicks(number, "1");
    QCOMPARE(number->text(), QString("1 register"));
    QTest::keyClicks(number, "6"); // behind what was typed
    QCOMPARE(number->text(), QString("16 registers"));
    QCOMPARE(m_panel->chosen(), 16);
}

void LimitPanelTest::tellsWhatIsNotPredicted()
{
    m_panel->setSilent({9, 12});
    QVERIFY2(labels().contains("line used 91.8 %; without 2 silent station(s): 9, 12"),
             qPrintable(labels()));
    m_panel->setSilent({});
    m_panel->setAssumed(5000);
    QVERIFY2(
        labels().contains("; assumed, until stations answer, that they take 5.0 ms for each reply"),
        qPrintable(labels()));
    m_panel->setAssumed(0);
    QVERIFY(!labels().contains("assumed"));
    QVERIFY(labels().contains("line used 91.8 %\n"));
}

void LimitPanelTest::tellsWhatWasMeasured()
{
    QVERIFY(labels().contains("Measured: nothing yet"));
    m_panel->setMeasured(106000);
    QVERIFY(labels().contains("Measured: 106.0 ms per cycle"));
}

void LimitPanelTest::tellsWhichLimitIsInForce()
{
    QVERIFY(labels().contains("In force: no line is open\n"));
    m_panel->setInForce(32, true);
    m_panel->setChosen(40); // applied only by its button
    QVERIFY2(labels().contains("In force: 32 register(s) at most\n"), qPrintable(labels()));
}

void LimitPanelTest::appliesWhatIsChosen()
{
    m_panel->setChosen(20);
    QTest::mouseClick(button("&Apply"), Qt::LeftButton);
    QCOMPARE(m_applied->count(), 1);
    QCOMPARE(m_applied->at(0).at(0).toInt(), 20);
    QCOMPARE(m_applied->at(0).at(1).toInt(), 320);
}

void LimitPanelTest::theBestIsKnownWhenAllArePredicted()
{
    QList<kx::PolledRange> scattered;
    for (int value = 0; value < 1000; ++value)
        scattered << kx::PolledRange{{findRegisterType(QString("D")), 7 * value, 1, 1}, 0};
    int early = 0;
    int appliedEarly = 0;
    connect(&m_costs, &LimitCosts::advanced, m_panel.get(), [&] {
        early += m_costs.isFinished() || m_costs.results().isEmpty() ? 0 : 1;
        appliedEarly += !m_costs.isFinished() && !button("Apply the &best") ? 1 : 0;
    });
    m_costs.start(scattered, AnswerPace());
    QTRY_VERIFY_WITH_TIMEOUT(m_costs.isFinished(), 60000);
    QVERIFY(early > 0);
    QCOMPARE(appliedEarly, 0);
}

void LimitPanelTest::appliesTheBestWithOneClick()
{
    QVERIFY(button("Apply the &best: 40"));
    QTest::mouseClick(button("Apply the &best: 40"), Qt::LeftButton);
    QCOMPARE(m_applied->count(), 1);
    QCOMPARE(m_applied->at(0).at(0).toInt(), 40);
    QCOMPARE(m_applied->at(0).at(1).toInt(), 640);
    QCOMPARE(m_panel->chosen(), 40);
}

void LimitPanelTest::leavesTheChoiceToTheRuntime()
{
    QTest::mouseClick(button("A&utomatic"), Qt::LeftButton);
    QCOMPARE(m_applied->at(0).at(0).toInt(), 0);
    QCOMPARE(m_applied->at(0).at(1).toInt(), 0);
}

void LimitPanelTest::nothingToApply()
{
    m_costs.start({}, AnswerPace());
    QVERIFY(!button("Apply the &best")->isEnabled());
    QVERIFY(labels().contains("Predicted: nothing yet"));
}

QTEST_MAIN(LimitPanelTest)

#include "tst_limit_panel.moc"
