/// A line whose answers are written down beforehand.
#ifndef KX_TESTS_TOOLS_EXCHANGE_SCRIPTED_LINE_H
#define KX_TESTS_TOOLS_EXCHANGE_SCRIPTED_LINE_H

#include "exchange/lines/line.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QList>

#include <functional>

namespace kx
{

class VirtualClock;

/// Bytes that arrive so many milliseconds after a request.
struct Arrival {
    int after;
    QByteArray bytes;
};

class ScriptedLine : public Line
{
public:
    /// @param clock the time of the answers; it outlives the line. None: the system's
    explicit ScriptedLine(VirtualClock* clock = nullptr);

    QString name() const override { return QString::fromLatin1("script"); }
    LineTiming timing() const override { return characters; }
    void open() override { emit opened(); }
    void close() override {}
    bool isOpen() const override { return m_isOpen; }
    void write(const QByteArray& bytes) override;
    QByteArray takeWaiting() override;
    QByteArray discardWaiting() override;
    void setReporting(bool reports) override { isReporting = reports; }

    /// The answer to the next request that has none yet; after the last answer,
    /// requests get none.
    void answer(const QList<Arrival>& arrivals) { m_answers << arrivals; }

    void lose() { emit failed(QString::fromLatin1("script: the port is lost: unplugged")); }

    void interrupt();
    void reopen();

    /// Milliseconds since the clock, or the line, was made.
    qint64 now() const;

    LineTiming characters = {0, 8, 0, 1}; ///< a network unless a test says otherwise
    QList<QByteArray> written;
    QList<qint64> writtenAt; ///< milliseconds, as now()
    QByteArray waiting;      ///< arrived and not reported; found when looked for
    QByteArray unseen;       ///< arrives after that, right before the next request
    QByteArray unreported;   ///< lies in the port after the next request
    std::function<void()> whenLookedInto;
    bool isReporting = true;
    int discards = 0;
    bool isLostWhenDiscarding = false;

private:
    VirtualClock* m_clock;
    QElapsedTimer m_sinceMade;
    bool m_isOpen = true;
    QList<QList<Arrival>> m_answers;
};

} // namespace kx

#endif
