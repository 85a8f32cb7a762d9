/// Frames of a page that draws at most 20 times a second.
#ifndef KX_TESTS_TOOLS_KXPANEL_FRAMES_H
#define KX_TESTS_TOOLS_KXPANEL_FRAMES_H

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

namespace kxpanel
{

/// Until pages that draw every 50 ms have done so since. A timer that is due earlier comes first,
/// also where the machine stood still until both were, which waiting for a time alone does not
/// give.
inline void passFrames(int frames)
{
    for (int frame = 0; frame < frames; ++frame) {
        QEventLoop loop;
        QTimer::singleShot(60, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

} // namespace kxpanel

#endif
