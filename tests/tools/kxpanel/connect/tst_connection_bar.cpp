#include "kxpanel/connect/connection_bar.h"
#include "panel/jobs/scan_job.h"
#include "tools/kxpanel/machine_fixture.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

using namespace kxpanel;

class ConnectionBarTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void connectsAndDisconnects();
    void aWrongFieldIsSaidBelow();
    void aPortThatCannotBeOpenedIsSaidBelow();
    void aLostLineShowsAtOnce();
    void aLostLineMovesNothing();
    void aScanFindsStations();
    void aScanGivesTheLineBack();
    void aCancelledScanGivesTheLineBack();
    void whoDisconnectsDoesNotGetTheLineBack();
    void aScanEndsNothingElse();
    void aScanLeavesTheValuesAlone();
    void whatIsWrongIsNoMarkup();
    void aScanOfNoStations();
    void limitsAreKeptForTheNextTime();

private:
    template <class Widget>
    Widget* named(const char* name) const
    {
        for (Widget* const found : m_bar->findChildren<Widget*>()) {
            if (found->accessibleName() == QLatin1String(name))
                return found;
        }
        qFatal("no %s", name);
    }
    const QLabel* label(const char* name) const
    {
        return m_bar->findChild<QLabel*>(QLatin1String(name));
    }
    QString state() const { return label("lineState")->text().mid(2); }
    QString fault() const { return label("lineFault")->text(); }
    QString result() const { return label("scanResult")->text(); }
    void scan(const char* stations, int milliseconds);
    QStringList found() const;

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<MachineLog> m_log;
    std::unique_ptr<ConnectionBar> m_bar;
};

void ConnectionBarTest::init()
{
    m_machine = std::make_unique<Machine>();
    m_log = std::make_unique<MachineLog>(m_machine.get());
    m_bar = std::make_unique<ConnectionBar>(m_machine.get());
    kx::ConnectionOptions options = simulated();
    options.simulatedStations = {3, 12};
    m_bar->setOptions(options);
    m_bar->show();
}

void ConnectionBarTest::cleanup()
{
    m_bar.reset();
    m_log.reset();
    m_machine.reset();
}

void ConnectionBarTest::connectsAndDisconnects()
{
    QCOMPARE(state(), QStringLiteral("not connected"));
    QCOMPARE(m_bar->connectAction()->text(), QStringLiteral("&Connect"));
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("connected"));
    QCOMPARE(m_bar->connectAction()->text(), QStringLiteral("Dis&connect"));
    QVERIFY(!named<QComboBox>("Line")->isEnabled());
    m_bar->connectLine(); // is connected already
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("not connected"));
    QVERIFY(named<QComboBox>("Line")->isEnabled());
    QCOMPARE(m_log->states, (QStringList{"opening", "open", "closed"}));
}

void ConnectionBarTest::aWrongFieldIsSaidBelow()
{
    named<QComboBox>("Speed")->setEditText(QStringLiteral("fast"));
    m_bar->connectAction()->trigger();
    QCOMPARE(fault(), QStringLiteral("Speed 'fast': must be 1 to 4000000 bits per second"));
    QVERIFY(label("lineFault")->isVisible());
    named<QComboBox>("Speed")->setEditText(QStringLiteral("9600"));
    QVERIFY(!label("lineFault")->isVisible());
    QCOMPARE(m_log->states, QStringList());
}

void ConnectionBarTest::aPortThatCannotBeOpenedIsSaidBelow()
{
    m_bar->setOptions(serialPort(QStringLiteral("/dev/none")));
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("failed"));
    QCOMPARE(fault(), QStringLiteral("/dev/none: cannot open the port: No such file or directory"));
    QCOMPARE(m_bar->connectAction()->text(), QStringLiteral("&Connect"));
}

void ConnectionBarTest::aLostLineShowsAtOnce()
{
    emit m_machine->lineChanged({LineState::Open, QStringLiteral("/dev/ttyS0"), QString(), {}});
    QCOMPARE(state(), QStringLiteral("connected"));
    emit m_machine->lineChanged(
        {LineState::Interrupted, QStringLiteral("/dev/ttyS0"), QStringLiteral("line lost"), {}});
    QCOMPARE(state(), QStringLiteral("lost, reopening"));
    QCOMPARE(fault(), QStringLiteral("line lost"));
    QCOMPARE(m_bar->connectAction()->text(), QStringLiteral("Dis&connect"));
    emit m_machine->lineChanged({LineState::Open, QStringLiteral("/dev/ttyS0"), QString(), {}});
    QCOMPARE(fault(), QString());
}

// Whoever is about to press a bit's switch below would hit that of another row.
void ConnectionBarTest::aLostLineMovesNothing()
{
    const int height = m_bar->sizeHint().height();
    emit m_machine->lineChanged(
        {LineState::Interrupted, QStringLiteral("/dev/ttyS0"), QStringLiteral("line lost"), {}});
    QVERIFY(label("lineFault")->isVisible());
    QCOMPARE(m_bar->sizeHint().height(), height);
    emit m_machine->lineChanged({LineState::Open, QStringLiteral("/dev/ttyS0"), QString(), {}});
    QCOMPARE(m_bar->sizeHint().height(), height);
}

void ConnectionBarTest::scan(const char* stations, int milliseconds)
{
    m_bar->scanAction()->setChecked(true);
    named<QLineEdit>("Stations to ask")->setText(QString::fromLatin1(stations));
    named<QSpinBox>("Time for a reply")->setValue(milliseconds);
    QTest::keyClick(named<QLineEdit>("Stations to ask"), Qt::Key_Return);
}

QStringList ConnectionBarTest::found() const
{
    const auto* const list = named<QListWidget>("Stations found");
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text();
    return texts;
}

void ConnectionBarTest::aScanFindsStations()
{
    scan("1-3,12", 250);
    QTRY_COMPARE(result(), QStringLiteral("found: 2"));
    QTRY_COMPARE(state(), QStringLiteral("not connected")); // as it was before
    QCOMPARE(found(), (QStringList{"Station 3", "Station 12"}));
    QCOMPARE(named<QProgressBar>("Stations asked")->value(), 4);
    QSignalSpy chosen(m_bar.get(), &ConnectionBar::stationChosen);
    auto* const list = named<QListWidget>("Stations found");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(chosen.value(0).value(0).toInt(), 12);
}

void ConnectionBarTest::aScanGivesTheLineBack()
{
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("connected"));
    scan("3", 250);
    QTRY_COMPARE(result(), QStringLiteral("found: 1"));
    QTRY_COMPARE(m_log->states, (QStringList{"opening", "open", "closed", "opening", "open",
                                             "closed", "opening", "open"}));
}

void ConnectionBarTest::aCancelledScanGivesTheLineBack()
{
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("connected"));
    scan("20-247", 2000);
    QTRY_COMPARE(result(), QStringLiteral("none yet"));
    m_bar->scanAction()->setChecked(false); // hides it, too
    QTRY_COMPARE(m_log->states.size(), 8);
    QCOMPARE(m_log->states.last(), QStringLiteral("open"));
    QCOMPARE(m_log->ends, 1);
}

void ConnectionBarTest::whoDisconnectsDoesNotGetTheLineBack()
{
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("connected"));
    scan("20-247", 2000);
    QTRY_COMPARE(result(), QStringLiteral("none yet"));
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("closed"));
    QTest::qWait(50);
    QCOMPARE(m_log->states.last(), QStringLiteral("closed"));
}

void ConnectionBarTest::aScanEndsNothingElse()
{
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(state(), QStringLiteral("connected"));
    m_machine->startJob(Machine::newTicket(), [](kx::Session* session) {
        return std::make_unique<kx::ScanJob>(session, QList<int>{20, 21, 22, 23});
    });
    scan("3", 250);
    QCOMPARE(result(),
             QStringLiteral("something is being written or transferred; try again after it"));
    QTest::qWait(50);
    QCOMPARE(m_log->ends, 0);
    QCOMPARE(m_log->states, (QStringList{"opening", "open"}));
}

// A station that takes longer than the scan waits would seem to be gone.
void ConnectionBarTest::aScanLeavesTheValuesAlone()
{
    m_machine->setValues({watched(1, "D110@3"), watched(2, "D110@5")});
    kx::ConnectionOptions options = simulated();
    options.simulatedStations = {3};
    m_bar->setOptions(options);
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(m_log->readings.value(1).state, kx::WatchState::Ok);
    scan("20-24", 100);
    QTRY_COMPARE(result(), QStringLiteral("no station answers"));
    QTRY_COMPARE(m_log->readings.value(1).state, kx::WatchState::Ok); // read again
    QList<int> asked;
    for (const Exchange& exchange : qAsConst(m_log->exchanges))
        asked << exchange.range.station;
    asked = asked.mid(asked.indexOf(20));
    asked = asked.mid(0, asked.lastIndexOf(24) + 1);
    QVERIFY(asked.size() >= 5);
    for (const int station : qAsConst(asked))
        QVERIFY2(station >= 20, "of a value");
}

void ConnectionBarTest::aScanOfNoStations()
{
    scan("0-5", 250);
    QVERIFY2(result().contains(QStringLiteral("1 to 247")), qPrintable(result()));
    QCOMPARE(m_log->states, QStringList());
}

// They are the project's, like all else of the line.
void ConnectionBarTest::limitsAreKeptForTheNextTime()
{
    m_machine->setValues({watched(1, "D110@3")});
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(m_log->status.longestRequest, 125);
    QSignalSpy edited(m_bar.get(), &ConnectionBar::edited);
    m_machine->setLimits(40, 640);
    QCOMPARE(edited.size(), 1);
    QCOMPARE(m_bar->options().session.maxWords, 40);
    QCOMPARE(m_bar->options().session.maxBits, 640);
    QTRY_COMPARE(m_log->status.longestRequest, 40);
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("closed"));
    m_bar->connectAction()->trigger();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("open"));
    QCOMPARE(m_log->status.longestRequest, 40);
    scan("3", 250);
    m_machine->setLimits(20, 320); // meanwhile
    QTRY_COMPARE(result(), QStringLiteral("found: 1"));
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("open"));
    QTRY_COMPARE(m_log->status.longestRequest, 20);
    m_bar->setOptions(simulated()); // another project
    QCOMPARE(m_bar->options().session.maxWords, 125);
}

void ConnectionBarTest::whatIsWrongIsNoMarkup()
{
    QCOMPARE(label("lineFault")->textFormat(), Qt::PlainText);
}

QTEST_MAIN(ConnectionBarTest)
#include "tst_connection_bar.moc"
