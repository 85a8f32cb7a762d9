#ifndef KX_KXHOST_RECORD_RECORD_RUN_H
#define KX_KXHOST_RECORD_RECORD_RUN_H

#include "kxhost/options/record_options.h"
#include "kxhost/record/fresh_reads.h"
#include "panel/watch/watch.h"

#include <QtCore/QTimer>

namespace kx
{

/// Polls tags and records them from start() until its time is over, somebody ends it, the line is
/// lost or the file takes no more; prints what happens meanwhile.
class RecordRun : public QObject
{
    Q_OBJECT

public:
    /// @param session stays the caller's and outlives the run
    RecordRun(Session* session, const RecordOptions& options);

    /// Opens the file and starts polling. False, and one line in `*error`, when the file cannot
    /// be written.
    bool start(QString* error);
    /// Stops polling, closes the file and prints the summary, once.
    void finish();

    /// A tag has no value at the end, the line was lost or not all could be recorded.
    bool hasFailed() const;
    /// One line; empty when the run came to its end.
    QString failure() const { return m_failure; }

signals:
    void finished();

private:
    void onEntries(const QList<int>& indexes);
    void onLink(const LinkEvent& event);
    void onCycle(qint64 cycles);
    void onLineLost(const Failure& failure);
    void loseLine();
    void noticeRest();
    void onServe();
    void onSample();
    void takeNews(qint64 now);
    void takeReads();
    void takeReturns();
    void startSampling();
    void announce() const;
    void printSummary() const;
    void fail(const QString& failure);

    Session* m_session;
    RecordOptions m_options;
    Watch m_watch;
    Recorder m_recorder;
    QTimer m_serve{this};
    QTimer m_sample{this};
    bool m_isLineLost = false;
    bool m_mayBeBack = false; ///< values may be read again after the line was lost, or a rest
    qint64 m_awake = 0;       ///< milliseconds since 1970, when it was at work last
    FreshReads m_fresh;
    bool m_isFinished = false;
    QString m_failure;
};

} // namespace kx

#endif
