#include "exchange/lines/reopening_line.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

/// A line that fails and opens as told.
class FragileLine : public Line
{
public:
    QString name() const override { return QString::fromLatin1("fragile"); }
    LineTiming timing() const override { return {4800, 8, 0, 1}; }
    void open() override
    {
        ++attempts;
        if (attempts <= failingAttempts)
            return emit failed(QString::fromLatin1("fragile: not there"));
        isUp = true;
        emit opened();
    }
    void close() override { isUp = false; }
    bool isOpen() const override { return isUp; }
    void write(const QByteArray& bytes) override { written += bytes; }
    QByteArray takeWaiting() override { return QByteArray("w"); }
    QByteArray discardWaiting() override { return QByteArray("x"); }

    void lose()
    {
        isUp = false;
        emit failed(QString::fromLatin1("fragile: gone"));
    }

    bool isUp = false;
    int attempts = 0;
    int failingAttempts = 0;
    QByteArray written;
};

} // namespace

class ReopeningLineTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theLineInsideIsUsed();
    void theFirstOpeningIsTriedOnce();
    void aLostLineIsOpenedAgain();
    void aLineThatStaysAwayIsGivenUp();
    void aClosedLineStaysClosed();

private:
    FragileLine* m_inside = nullptr;
    std::unique_ptr<ReopeningLine> m_line;
};

void ReopeningLineTest::init()
{
    auto inside = std::make_unique<FragileLine>();
    m_inside = inside.get();
    m_line = std::make_unique<ReopeningLine>(std::move(inside), 300);
}

void ReopeningLineTest::theLineInsideIsUsed()
{
    QSignalSpy opened(m_line.get(), &Line::opened);
    QSignalSpy arrived(m_line.get(), &Line::bytesArrived);
    m_line->open();
    QCOMPARE(opened.size(), 1);
    QVERIFY(m_line->isOpen());
    QCOMPARE(m_line->name(), QString::fromLatin1("fragile"));
    QCOMPARE(m_line->timing().baud, 4800);
    m_line->write(QByteArray("abc"));
    QCOMPARE(m_inside->written, QByteArray("abc"));
    QCOMPARE(m_line->takeWaiting(), QByteArray("w"));
    QCOMPARE(m_line->discardWaiting(), QByteArray("x"));
    emit m_inside->bytesArrived(QByteArray("def"));
    QCOMPARE(arrived.size(), 1);
}

void ReopeningLineTest::theFirstOpeningIsTriedOnce()
{
    m_inside->failingAttempts = 1;
    QSignalSpy failed(m_line.get(), &Line::failed);
    QSignalSpy interrupted(m_line.get(), &Line::interrupted);
    m_line->open();
    QCOMPARE(failed.size(), 1);
    QTest::qWait(150);
    QCOMPARE(m_inside->attempts, 1);
    QCOMPARE(interrupted.size(), 0);
}

void ReopeningLineTest::aLostLineIsOpenedAgain()
{
    QSignalSpy failed(m_line.get(), &Line::failed);
    QSignalSpy interrupted(m_line.get(), &Line::interrupted);
    m_line->open();
    for (int loss = 1; loss <= 2; ++loss) {
        // The first attempt comes at once, the second 100 ms later.
        m_inside->failingAttempts = m_inside->attempts + 1;
        m_inside->lose();
        QVERIFY(!m_line->isOpen());
        QCOMPARE(interrupted.size(), loss);
        QTRY_VERIFY(m_line->isOpen());
        QCOMPARE(interrupted.size(), loss);
    }
    QCOMPARE(m_inside->attempts, 5);
    QCOMPARE(failed.size(), 0);
}

void ReopeningLineTest::aLineThatStaysAwayIsGivenUp()
{
    QSignalSpy failed(m_line.get(), &Line::failed);
    m_line->open();
    m_inside->failingAttempts = 1000;
    QElapsedTimer lost;
    lost.start();
    m_inside->lose();
    QTRY_COMPARE(failed.size(), 1);
    QVERIFY(lost.elapsed() >= 300);
    QCOMPARE(failed.first().first().toString(), QString::fromLatin1("fragile: not there"));
    const int attempts = m_inside->attempts;
    QTest::qWait(250);
    QCOMPARE(m_inside->attempts, attempts);
}

void ReopeningLineTest::aClosedLineStaysClosed()
{
    m_line->open();
    m_inside->lose();
    m_line->close();
    QTest::qWait(150);
    QCOMPARE(m_inside->attempts, 1);
}

QTEST_GUILESS_MAIN(ReopeningLineTest)
#include "tst_reopening_line.moc"
