/// An exchange loop between a scripted driver and a scripted line.
#ifndef KX_TESTS_TOOLS_EXCHANGE_EXCHANGE_LOOP_FIXTURE_H
#define KX_TESTS_TOOLS_EXCHANGE_EXCHANGE_LOOP_FIXTURE_H

#include "exchange/exchange_loop.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_driver.h"
#include "tools/exchange/scripted_line.h"

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
        m_line = std::make_unique<ScriptedLine>();
        m_settings = {3000, 100, 5, -1, 0};
        m_records.clear();
    }

protected:
    void start()
    {
        m_loop = std::make_unique<ExchangeLoop>(m_driver->entryPoints(), m_line.get(), m_settings);
        connect(m_loop.get(), &ExchangeLoop::exchanged, this,
                [this](const ExchangeRecord& record) { m_records << record; });
        m_loop->start();
    }

    bool waitForRecords(int count)
    {
        return QTest::qWaitFor([&] { return m_records.size() >= count; }, 5000);
    }

    std::unique_ptr<ScriptedDriver> m_driver;
    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<ExchangeLoop> m_loop;
    ExchangeSettings m_settings;
    QList<ExchangeRecord> m_records;
};

} // namespace kx

#endif
