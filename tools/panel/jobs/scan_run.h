#ifndef KX_PANEL_JOBS_SCAN_RUN_H
#define KX_PANEL_JOBS_SCAN_RUN_H

#include "panel/jobs/scan_reply.h"
#include "panel/session/driver_session.h"

#include <QtCore/QSet>

namespace kx
{

/// Asks every station once for one register. The session allows one bad reply, so
/// that a silent station makes room for the next.
class ScanRun : public QObject
{
    Q_OBJECT

public:
    ScanRun(DriverSession* session, const QList<int>& stations, QObject* parent = nullptr);

    void start();
    /// Ends early, as the user wishes.
    void abort(const QString& reason);

    int asked() const { return m_asked; }
    int answered() const { return static_cast<int>(m_answered.size()); }
    /// Why the line was lost; empty when it was not.
    QString failure() const { return m_failure; }

signals:
    /// At most once per station.
    void stationAnswered(const ScanReply& reply);
    void stationAsked();
    void finished();

private:
    void loseLine(const QString& reason);
    void handleExchange(const ExchangeRecord& record);
    void finish();

    DriverSession* m_session;
    QList<int> m_stations;
    QSet<int> m_answered;
    int m_asked = 0;
    bool m_finished = false;
    QString m_failure;
};

} // namespace kx

#endif
