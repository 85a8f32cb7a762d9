#include "kxpanel/frames/frame_saver.h"

#include "kxpanel/frames/saved_frames.h"

#include <QtCore/QMutexLocker>

namespace kxpanel
{

FrameSaver::FrameSaver(QObject* parent) : QObject(parent)
{
    m_pool.setMaxThreadCount(1);
}

FrameSaver::~FrameSaver()
{
    m_pool.waitForDone();
    const QMutexLocker locker(&m_mutex);
    for (const Saved& saved : m_untold) {
        if (!saved.error.isEmpty()) // there is no window to say it in any more
            qWarning("%s", qPrintable(saved.error));
    }
}

void FrameSaver::save(const QString& path, const QVector<Exchange>& exchanges)
{
    m_pool.start([this, path, exchanges] {
        Saved saved{path, 0, QString()};
        saved.exchanges = saveFrames(path, exchanges, &saved.error);
        const QMutexLocker locker(&m_mutex);
        m_untold.enqueue(saved);
        QMetaObject::invokeMethod(this, &FrameSaver::tell, Qt::QueuedConnection);
    });
}

/// Once for each that is saved.
void FrameSaver::tell()
{
    QMutexLocker locker(&m_mutex);
    const Saved saved = m_untold.dequeue();
    locker.unlock();
    emit ended(saved.path, saved.exchanges, saved.error);
}

} // namespace kxpanel
