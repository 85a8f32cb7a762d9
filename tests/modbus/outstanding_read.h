/// A read of D100 to D224 on the wire, while values, watched addresses, a write, a
/// condition read and a recipe wait in the driver.
#ifndef KX_TESTS_MODBUS_OUTSTANDING_READ_H
#define KX_TESTS_MODBUS_OUTSTANDING_READ_H

#include "support/driver_fixture.h"

class OutstandingRead
{
public:
    /// The reply brings `first` for D100, and `step` more for each next register.
    OutstandingRead(int first, int step);

    const QByteArray& good() const { return m_good; }

    /// Turns bits of the reply over, counted as on the line: bit `start` where
    /// `pattern` has its bit 0, and so on.
    void flipBits(int start, int pattern);

    /// Hands the reply over: to be sent again, and nothing changed?
    bool isRefused() { return refuses(m_reply); }
    bool refuses(const QByteArray& reply);

    /// The reply as it is by now is the good one, which is accepted and stored.
    bool endsWell();

    /// Addresses marked as unanswered, and whether the cache, those marks aside,
    /// and all queues but the rotated plan are as they were.
    int marksOfFailure() const;
    bool onlyMarksDiffer() const;

private:
    bool isUntouched() const;

    DriverFixture m_runtime;
    QByteArray m_good;
    QByteArray m_reply;
    QByteArray m_request;
    int m_refused;
    // Copies that share their contents with the driver's own lists until the
    // driver so much as asks for a way to change them.
    QList<_DATA_> m_cache;
    QList<VARIABLE> m_reads;
    QList<VARIABLE> m_writes;
    QList<VARIABLE> m_conditions;
    QVector<_RCP_VAR_PRO> m_recipe;
    QVector<_RCP_VAR_PRO> m_blocks;
    QList<int> m_starts;
};

#endif
