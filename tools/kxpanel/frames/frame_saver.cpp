#include "kxpanel/frames/frame_saver.h"

#include "kxpanel/frames/saved_frames.h"

namespace kxpanel
{

FrameSaver::FrameSaver(QObject* parent) : QObject(parent)
{
    m_pool.setMaxThreadCount(1);
}

FrameSaver::~FrameSaver()
{
    m_pool.waitForDone();
}

void FrameSaver::save(const QString& path, const QVector<Exchange>& exchanges)
{
    m_pool.start([this, path, exchanges] {
        QString error;
        saveFrames(path, exchanges, &error);
        const int count = static_cast<int>(exchanges.size());
        QMetaObject::invokeMethod(
            this, [this, path, count, error] { emit ended(path, count, error); },
            Qt::QueuedConnection);
    });
}

} // namespace kxpanel
