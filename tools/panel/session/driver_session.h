/// A driver at work on one line, with the resources that a panel lends it.
#ifndef KX_PANEL_SESSION_DRIVER_SESSION_H
#define KX_PANEL_SESSION_DRIVER_SESSION_H

#include "addresses/address_text.h"
#include "exchange/exchange_loop.h"

#include <QtCore/QMutex>
#include <QtCore/QVector>

#include <vector>

namespace kx
{

struct SessionSettings {
    int link = 1;
    bool writeLocalOnly = false;
    int retries = 3;   ///< bad replies in a row after which a request fails
    int maxWords = 32; ///< longest request, in registers
    ExchangeSettings exchange;
};

/// Initialises the driver, keeps the exchange loop going and turns the driver's
/// calls into signals. Thin: every method is one call of the driver.
///
/// The driver is one object per process and its value-change function is a plain
/// C function, so there is one session at a time: the one created last gets the
/// calls. Ranges and assignments must name their station.
class DriverSession : public QObject
{
    Q_OBJECT

public:
    /// The line stays the caller's and outlives the session, as does the clock;
    /// without one the system's is used.
    DriverSession(const DriverEntryPoints& entryPoints, Line* line, const SessionSettings& settings,
                  LoopClock* clock = nullptr, QObject* parent = nullptr);
    ~DriverSession() override;

    /// The line must be open.
    void start() { m_loop.start(); }
    void stop() { m_loop.stop(); }
    /// The job of the request that was in flight when the session stopped, or null.
    const VARIABLE* jobGivenUp() const { return m_loop.jobGivenUp(); }
    /// Discards every queued job and cached value; the recipe plan survives.
    void initialise();

    /// Replaces the cyclic reads; returns how many requests make one cycle. The
    /// driver joins ranges but cuts none: none may be longer than `maxWords`
    /// registers, or as many bits.
    int watch(const QList<AddressRange>& ranges);
    /// Queues a one-off read; conditionReadFinished() tells its end.
    void conditionRead(const AddressRange& range);
    /// Stores the values in the cache and queues the writes.
    void write(const Assignment& assignment);
    /// Cached values, one per address: 0 or 1, 0..65535, or 0..4294967295.
    QList<qint64> values(const AddressRange& range) const;

    /// Replaces the recipe; returns the number of variables kept.
    int setRecipe(const QVector<_RCP_VAR_PRO>& variables);
    /// Raises the recipe request; the driver clears it when the transfer ended.
    void requestRecipeWrite();
    void requestRecipeRead();
    bool isRecipePending();
    /// Withdraws both requests, as after a lost line.
    void cancelRecipe();
    /// 65536 words, all addressable by _RCP_VAR_PRO::bufOffset.
    std::vector<unsigned short>& recipeBuffer() { return m_recipeBuffer; }

    const DriverEntryPoints& entryPoints() const { return m_driver; }
    const SessionSettings& settings() const { return m_settings; }
    const Line* line() const { return m_line; }
    const Statistics& statistics() const { return m_loop.statistics(); }
    qint64 elapsed() const { return m_loop.elapsed(); }

signals:
    /// The first of the signals about a request; the others follow in this order.
    void exchanged(const ExchangeRecord& record);
    /// Sent after the driver stored the new value, so values() gives it. Bits may
    /// be reported without a change; addresses between watched ones, too.
    void valueChanged(int link, int station, const QString& name, int address);
    /// 0, or -1 after a failure. Not sent when an earlier piece of a split read
    /// failed: watch deviceFailed() too.
    void conditionReadFinished(int result);
    /// A recipe read filled this word of the recipe buffer.
    void recipeWordRead(int offset);
    /// A request failed for good.
    void deviceFailed(const QString& errorText, const VARIABLE& job);
    /// The driver has nothing to send; each time it is asked in vain.
    void idle();
    void lineFailed(const QString& error);

private:
    struct Report {
        int link;
        int station;
        QString name;
        int address;
    };

    static void valueChangeFunction(int link, int station, QString name, int address);
    void tell(const Report& report);
    void tellReports();
    void handleExchange(const ExchangeRecord& record);
    void setRecipeRequest(int byte, unsigned char value);

    DriverEntryPoints m_driver;
    Line* m_line;
    SessionSettings m_settings;
    std::vector<unsigned char> m_shared;
    std::vector<unsigned short> m_recipeBuffer;
    QMutex m_mutex;
    int m_status = 0;
    QByteArray m_parameters;
    QList<Report> m_reports;
    ExchangeLoop m_loop;
};

} // namespace kx

#endif
