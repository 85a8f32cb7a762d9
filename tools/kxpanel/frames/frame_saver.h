#ifndef KX_KXPANEL_FRAMES_FRAME_SAVER_H
#define KX_KXPANEL_FRAMES_FRAME_SAVER_H

#include "kxpanel/machine/machine_events.h"

#include <QtCore/QMutex>
#include <QtCore/QObject>
#include <QtCore/QQueue>
#include <QtCore/QThreadPool>

namespace kxpanel
{

/// Saves exchanges in a thread of its own: of 20,000 it takes half a second or more.
class FrameSaver : public QObject
{
    Q_OBJECT

public:
    explicit FrameSaver(QObject* parent = nullptr);
    /// Waits until what is being written is whole; what went wrong and was not told goes to
    /// stderr.
    ~FrameSaver() override;

    /// As saveFrames(), after what is being saved; ended() comes once for each.
    void save(const QString& path, const QVector<Exchange>& exchanges);

signals:
    /// @param exchanges as saveFrames() returns
    /// @param error one line that names the file; empty when all is saved
    void ended(const QString& path, int exchanges, const QString& error);

private:
    struct Saved {
        QString path;
        int exchanges;
        QString error;
    };

    void tell();

    QMutex m_mutex;         ///< of what is untold
    QQueue<Saved> m_untold; ///< in the order in which they were saved
    QThreadPool m_pool;     ///< one thread
};

} // namespace kxpanel

#endif
