#ifndef KX_KXPANEL_LINE_LIMIT_LIMIT_COSTS_H
#define KX_KXPANEL_LINE_LIMIT_LIMIT_COSTS_H

#include "kxpanel/line/limit/request_cost.h"
#include "panel/plan/plan_lengths.h"
#include "panel/polling/polled_range.h"

#include <QtCore/QObject>
#include <QtCore/QThreadPool>

#include <atomic>
#include <memory>

namespace kxpanel
{

/// Works out what a cycle costs under each limit, in a thread of its own: of 10,000 scattered tags
/// it takes seconds.
class LimitCosts : public QObject
{
    Q_OBJECT

public:
    explicit LimitCosts(QObject* parent = nullptr);
    /// Gives up what is not known yet.
    ~LimitCosts() override;

    /// Begins anew, unless it is what it works on, or has worked out. When the pace alone is
    /// another, what is known stays until all of the new is.
    /// @param watched with the intervals at which they are read
    /// @return it begins
    bool start(const QList<kx::PolledRange>& watched, const AnswerPace& pace);

    /// By rising limit from 1 on; as many as are known so far.
    const QList<kx::LengthResult>& results() const { return m_results; }
    bool isFinished() const { return m_isFinished; }
    /// As when it is not finished, or on others that are to take the place of what is known.
    bool isWorking() const { return m_isWorking; }
    /// The limit of the shortest cycle, as kx::bestOf(); 0 until all are known, and when nothing is
    /// watched.
    int best() const;
    /// Of a limit; null while it is not known.
    const kx::LengthResult* of(int maxWords) const;

signals:
    /// There are more results.
    void advanced();

private:
    using Stop = std::shared_ptr<std::atomic<bool>>;

    void work(const QList<kx::PolledRange>& watched, const AnswerPace& pace, const Stop& stop);
    void take(const QList<kx::LengthResult>& results, const Stop& stop);

    QList<kx::PolledRange> m_watched;
    AnswerPace m_pace;
    QList<kx::LengthResult> m_results;
    QList<kx::LengthResult> m_coming; ///< while what is known stays
    bool m_isFinished = true;
    bool m_isWorking = false;
    Stop m_stop;        ///< of the work that goes on, or went on last
    QThreadPool m_pool; ///< one thread; the last to be made, so that it ends first
};

} // namespace kxpanel

#endif
