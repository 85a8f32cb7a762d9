#include "kxpanel/grid/model/value_writer.h"

#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QSignalSpy>

using namespace kxpanel;

namespace
{

kx::Failure noReply()
{
    return kx::failureOf(kx::FailureKind::NoReply, QStringLiteral("no reply"));
}

} // namespace

class ValueWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void checksWhatIsTyped_data();
    void checksWhatIsTyped();
    void saysWhatCanOnlyBeRead_data();
    void saysWhatCanOnlyBeRead();
    void aWriteIsConfirmed();
    void aWriteIsToldAsItWillBeRead_data();
    void aWriteIsToldAsItWillBeRead();
    void aWriteEndsByTheClockOfTheLine();
    void aWriteFailsWithItsReason();
    void writesOneAfterTheOther();
    void theLatestOfWaitingWritesCounts();
    void aValueTypedWhileItIsWrittenWaits();
    void endsOfOtherJobsAreNoEnd();
    void forgetsWhatHasGoneOrIsOther();
    void tellsTheEndOfWhatHasGone();
    void tellsWhenAllHaveEnded();
    void callsOffWhatWaits();
    void endsMoveWithTheClock_data();
    void endsMoveWithTheClock();

private:
    void write(int number, const char* typed);
    ValueWrite::Phase phase(int number) const { return m_writer->writeOf(number)->phase; }

    TagList m_tags;
    QList<int> m_tickets;
    std::unique_ptr<ValueWriter> m_writer;
};

void ValueWriterTest::init()
{
    m_tags.setValues({{1, tagOf("D0", "Speed")},
                      {2, tagOf("D100/s16*0.1,min=0,max=16", "Pressure")},
                      {3, tagOf("D120.5")},
                      {4, tagOf("32CV200")}});
    m_tickets.clear();
    m_writer.reset(
        new ValueWriter(&m_tags, [this](int ticket, const JobMaker&) { m_tickets << ticket; }));
}

void ValueWriterTest::write(int number, const char* typed)
{
    kx::TagAssignment assignment;
    QString fault;
    QVERIFY2(
        ValueWriter::parse(*m_tags.find(number), QString::fromLatin1(typed), &assignment, &fault),
        qPrintable(fault));
    m_writer->write(number, assignment);
}

void ValueWriterTest::checksWhatIsTyped_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("fault");
    QTest::newRow("fits") << 1 << "65535"
                          << "";
    QTest::newRow("scaled") << 2 << "12.5"
                            << "";
    QTest::newRow("too large") << 1 << "70000"
                               << "Speed=70000: 70000 does not fit; D takes -32768 to 65535";
    QTest::newRow("above its max")
        << 2 << "17"
        << "Pressure=17: 17 is refused; it must be at least 0 and at most 16";
    QTest::newRow("two for one") << 1 << "1,2"
                                 << "Speed=1,2: 2 values for a count of 1";
}

void ValueWriterTest::checksWhatIsTyped()
{
    QFETCH(int, number);
    QFETCH(QString, typed);
    kx::TagAssignment assignment;
    QString fault;
    const bool fits = ValueWriter::parse(*m_tags.find(number), typed, &assignment, &fault);
    QTEST(fault, "fault");
    QCOMPARE(fits, fault.isEmpty());
    QVERIFY(m_tickets.isEmpty());
}

void ValueWriterTest::saysWhatCanOnlyBeRead_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an input") << "X17"
                              << "X17 is an input and can only be read";
    QTest::newRow("an output") << "Y10"
                               << "";
    QTest::newRow("a bit of a word") << "D120.5"
                                     << "";
    QTest::newRow("a bit of a word that changes by itself")
        << "CV5.5"
        << "Bits of CV change by themselves; write the whole word";
}

void ValueWriterTest::saysWhatCanOnlyBeRead()
{
    QFETCH(QString, address);
    QTEST(ValueWriter::readOnlyReason(tagOf(qPrintable(address))), "reason");
}

void ValueWriterTest::aWriteIsConfirmed()
{
    QSignalSpy ended(m_writer.get(), &ValueWriter::ended);
    QVERIFY(!m_writer->writeOf(2));
    write(2, "12.46");
    QCOMPARE(m_tickets.size(), 1);
    QCOMPARE(phase(2), ValueWrite::Writing);
    QCOMPARE(m_writer->writeOf(2)->text, QStringLiteral("12.5")); // the nearest step
    m_writer->onJobEnded(m_tickets.first(), kx::Failure());
    QCOMPARE(phase(2), ValueWrite::Confirmed);
    QCOMPARE(ended.size(), 1);
}

void ValueWriterTest::aWriteIsToldAsItWillBeRead_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << 1 << "65535"
                            << "65535";
    QTest::newRow("a word below 0") << 1 << "-32768"
                                    << "32768";
    QTest::newRow("a counter below 0") << 4 << "-1"
                                       << "4294967295";
    QTest::newRow("a word with a sign") << 2 << "12.46"
                                        << "12.5";
    QTest::newRow("a bit of a word") << 3 << "1"
                                     << "1";
}

void ValueWriterTest::aWriteIsToldAsItWillBeRead()
{
    QFETCH(int, number);
    QFETCH(QString, typed);
    write(number, qPrintable(typed));
    QTEST(m_writer->writeOf(number)->text, "text");
}

/// Else a system's clock that was set forward would hide all that is read after a write.
void ValueWriterTest::aWriteEndsByTheClockOfTheLine()
{
    m_writer->setClock([]() { return qint64(4000); });
    write(1, "5");
    write(2, "1");
    m_writer->callOff();
    QCOMPARE(m_writer->writeOf(2)->endedAt, qint64(4000));
    m_writer->onJobEnded(m_tickets.first(), kx::Failure());
    QCOMPARE(m_writer->writeOf(1)->endedAt, qint64(4000));
}

void ValueWriterTest::aWriteFailsWithItsReason()
{
    write(1, "5");
    m_writer->onJobEnded(m_tickets.first(), noReply());
    QCOMPARE(phase(1), ValueWrite::Failed);
    QCOMPARE(m_writer->writeOf(1)->reason, QStringLiteral("no reply"));
}

void ValueWriterTest::writesOneAfterTheOther()
{
    write(1, "5");
    write(2, "1");
    write(3, "1");
    QCOMPARE(m_tickets.size(), 1);
    QCOMPARE(phase(2), ValueWrite::Waiting);
    m_writer->onJobEnded(m_tickets.at(0), noReply());
    QCOMPARE(m_tickets.size(), 2);
    QCOMPARE(phase(2), ValueWrite::Writing);
    QCOMPARE(phase(3), ValueWrite::Waiting);
    m_writer->onJobEnded(m_tickets.at(1), kx::Failure());
    m_writer->onJobEnded(m_tickets.at(2), kx::Failure());
    QCOMPARE(phase(3), ValueWrite::Confirmed);
    QCOMPARE(m_tickets.size(), 3);
}

void ValueWriterTest::theLatestOfWaitingWritesCounts()
{
    write(1, "5");
    write(2, "1");
    write(2, "2");
    m_writer->onJobEnded(m_tickets.at(0), kx::Failure());
    QCOMPARE(m_writer->writeOf(2)->text, QStringLiteral("2.0"));
    m_writer->onJobEnded(m_tickets.at(1), kx::Failure());
    QCOMPARE(m_tickets.size(), 2);
}

void ValueWriterTest::aValueTypedWhileItIsWrittenWaits()
{
    write(1, "5");
    write(1, "6");
    QCOMPARE(phase(1), ValueWrite::Waiting);
    m_writer->onJobEnded(m_tickets.at(0), noReply()); // of 5
    QCOMPARE(phase(1), ValueWrite::Writing);
    QCOMPARE(m_writer->writeOf(1)->text, QStringLiteral("6"));
    m_writer->onJobEnded(m_tickets.at(1), kx::Failure());
    QCOMPARE(phase(1), ValueWrite::Confirmed);
}

void ValueWriterTest::endsOfOtherJobsAreNoEnd()
{
    write(1, "5");
    m_writer->onJobEnded(m_tickets.first() + 1, kx::Failure());
    m_writer->onJobEnded(0, kx::Failure());
    QCOMPARE(phase(1), ValueWrite::Writing);
}

void ValueWriterTest::forgetsWhatHasGoneOrIsOther()
{
    write(1, "5");
    write(2, "1");
    write(3, "1");
    m_tags.remove({2});
    kx::Tag renamed = m_tags.find(3)->tag;
    renamed.name = QStringLiteral("Alarm");
    m_tags.replace(3, renamed);
    m_tags.replace(1, tagOf("D1"));
    m_writer->follow();
    QVERIFY(!m_writer->writeOf(1));
    QVERIFY(!m_writer->writeOf(2));
    m_writer->onJobEnded(m_tickets.at(0), kx::Failure()); // of D0, which nobody watches
    QVERIFY(!m_writer->writeOf(1));
    QCOMPARE(m_tickets.size(), 2);
    QCOMPARE(phase(3), ValueWrite::Writing);
}

void ValueWriterTest::tellsTheEndOfWhatHasGone()
{
    QStringList ends;
    connect(m_writer.get(), &ValueWriter::ended, this, [&ends](const ValueWrite& write) {
        ends << write.name + QLatin1Char('=') + write.text + QLatin1String(": ") + write.reason;
    });
    write(1, "5");
    write(2, "1");
    m_tags.remove({1, 2});
    m_writer->follow();
    QCOMPARE(ends, QStringList{"Pressure=1.0: its row was removed or changed before it was sent"});
    m_writer->onJobEnded(m_tickets.at(0), noReply());
    QCOMPARE(ends.value(1), QStringLiteral("Speed=5: no reply"));
    QCOMPARE(m_tickets.size(), 1);
}

void ValueWriterTest::tellsWhenAllHaveEnded()
{
    QStringList ends;
    connect(m_writer.get(), &ValueWriter::allEnded, this,
            [&ends](int written, const QList<ValueWrite>& failed) {
                QStringList names = {QString::number(written)};
                for (const ValueWrite& write : failed)
                    names << write.name;
                ends << names.join(QLatin1Char(' '));
            });
    write(1, "5");
    write(2, "1");
    write(3, "1");
    m_writer->onJobEnded(m_tickets.at(0), noReply());
    m_writer->onJobEnded(m_tickets.at(1), kx::Failure());
    QCOMPARE(ends, QStringList());
    m_writer->onJobEnded(m_tickets.at(2), noReply());
    QCOMPARE(ends, QStringList{"1 Speed D120.5"});
    write(1, "5");
    m_writer->onJobEnded(m_tickets.at(3), kx::Failure());
    QCOMPARE(ends.last(), QStringLiteral("1"));
}

void ValueWriterTest::callsOffWhatWaits()
{
    write(1, "5");
    write(2, "1");
    write(3, "1");
    QCOMPARE(m_writer->waiting(), 2);
    m_writer->callOff();
    QCOMPARE(m_writer->waiting(), 0);
    QCOMPARE(phase(1), ValueWrite::Writing); // it is on the line
    QCOMPARE(phase(2), ValueWrite::Failed);
    QCOMPARE(m_writer->writeOf(3)->reason, QStringLiteral("called off before it was sent"));
    m_writer->onJobEnded(m_tickets.at(0), kx::Failure());
    QCOMPARE(phase(1), ValueWrite::Confirmed);
    QCOMPARE(m_tickets.size(), 1);
}

void ValueWriterTest::endsMoveWithTheClock_data()
{
    QTest::addColumn<qint64>("by");
    QTest::addColumn<qint64>("moved");
    QTest::newRow("back by an hour") << qint64(-3600000) << qint64(-3600000);
    QTest::newRow("on, before the write ended") << qint64(3600000) << qint64(0);
}

void ValueWriterTest::endsMoveWithTheClock()
{
    QFETCH(qint64, by);
    QFETCH(qint64, moved);
    write(1, "5");
    m_writer->onClockSet(by);
    QCOMPARE(m_writer->writeOf(1)->endedAt, qint64(0));
    m_writer->onJobEnded(m_tickets.first(), kx::Failure());
    const qint64 endedAt = m_writer->writeOf(1)->endedAt;
    m_writer->onClockSet(by);
    const qint64 off = m_writer->writeOf(1)->endedAt - endedAt - moved;
    QVERIFY2(off >= 0 && off < 1000, qPrintable(QString::number(off)));
}

QTEST_GUILESS_MAIN(ValueWriterTest)
#include "tst_value_writer.moc"
