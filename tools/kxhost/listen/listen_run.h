#ifndef KX_KXHOST_LISTEN_LISTEN_RUN_H
#define KX_KXHOST_LISTEN_LISTEN_RUN_H

#include "exchange/lines/serial_line.h"
#include "kxhost/listen/capture_file.h"
#include "kxhost/listen/listen_summary.h"
#include "kxhost/options/listen_options.h"
#include "listen/line_listener.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

namespace kx
{

/// Hears a line from start() until its time is over, somebody ends it or the line is lost,
/// and prints what was heard. The port is opened for reading alone.
class ListenRun : public QObject
{
    Q_OBJECT

public:
    /// @param capture stays the caller's and outlives the run
    ListenRun(const ListenOptions& options, CaptureFile* capture);

    /// Opens the line; ends in listening or finished().
    void start();
    /// Prints the summary, once.
    void finish();

    bool wasOpen() const { return m_wasOpen; }
    /// Why it ended before its time, or heard nothing; empty when all went well.
    QString failure() const { return m_failure; }

signals:
    void finished();

private:
    void onOpened();
    void onBytes(const QByteArray& bytes);
    void onSilence();
    void onFailure(const QString& error);
    void show(const Heard& heard);
    void print(const HeardExchange& exchange, const QDateTime& time) const;
    void printSummary();

    ListenOptions m_options;
    SerialLine m_line;
    LineListener m_listener;
    CaptureFile* m_capture;
    QElapsedTimer m_clock;
    QTimer m_silence{this}; ///< nothing was heard for as long as LineListener::silence()
    QTimer m_noReply{this}; ///< nothing was heard for the reply time-out
    QTimer m_end{this};
    bool m_wasOpen = false;
    bool m_isFinished = false;
    QString m_failure;
};

} // namespace kx

#endif
