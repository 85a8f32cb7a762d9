/// An exchange loop between a scripted driver and a scripted line, in virtual time: how busy the
/// machine is changes nothing.
#ifndef KX_TESTS_TOOLS_EXCHANGE_EXCHANGE_LOOP_FIXTURE_H
#define KX_TESTS_TOOLS_EXCHANGE_EXCHANGE_LOOP_FIXTURE_H

#include "exchange/exchange_loop.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_driver.h"
#include "tools/exchange/scripted_line.h"
#include "tools/exchange/virtual_clock.h"

#include <QtTest/QTest>

#include <memory>

namespace kx
{

// Station 1, function 3, address 100, quantity 2.
const char* const READ = "01 03 00 64 00 02";
// Station 1, function 3, byte count 4, registers 1234 and 5678.
const char* const GOOD = "01 03 04 04 D2 16 2E";
const int GOOD_LENGTH = 9;

class ExchangeLoopFixture : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_loop.reset();
        m_driver.reset();
        m_driver = std::make_unique<ScriptedDriver>();
        m_line.reset();
        m_clock = std::make_unique<VirtualClock>();
        m_line = std::make_unique<ScriptedLine>(m_clock.get());
        m_settings = {3000, 100, 5, -1, 0};
        m_records.clear();
    }

protected:
    void start()
    {
        m_loop = std::make_unique<ExchangeLoop>(m_driver->entryPoints(), m_line.get(), m_settings,
                                                m_clock.get());
        connect(m_loop.get(), &ExchangeLoop::exchanged, this,
                [this](const ExchangeRecord& record) { m_records << record; });
        m_loop->start();
    }

    /// Goes on for five seconds at most.
    /// @return whether it came to that
    template <typename Condition>
    bool passUntil(const Condition& isMet)
    {
        const qint64 end = m_clock->now() + 5000 * MICROSECONDS_PER_MILLISECOND;
        while (!isMet() && m_clock->now() < end && m_clock->step()) {
        }
        return isMet();
    }

    bool waitForRecords(int count)
    {
        return passUntil([&] { return m_records.size() >= count; });
    }

    bool waitForRequests(int count)
    {
        return passUntil([&] { return m_line->written.size() >= count; });
    }

    void pass(int milliseconds) { m_clock->pass(milliseconds * MICROSECONDS_PER_MILLISECOND); }

    /// Milliseconds from one request to the next.
    qint64 betweenRequests(int first) const
    {
        return m_line->writtenAt.at(first + 1) - m_line->writtenAt.at(first);
    }

    std::unique_ptr<VirtualClock> m_clock;
    std::unique_ptr<ScriptedDriver> m_driver;
    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<ExchangeLoop> m_loop;
    ExchangeSettings m_settings;
    QList<ExchangeRecord> m_records;
};

} // namespace kx

#endif
