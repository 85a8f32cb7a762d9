#ifndef KX_TESTS_TOOLS_FAULTS_WHOLE_FRAMES_H
#define KX_TESTS_TOOLS_FAULTS_WHOLE_FRAMES_H

#include <QtCore/QByteArray>

namespace kx
{

/// Frames with their CRC in the bytes, wherever they begin.
int wholeFramesIn(QByteArray bytes);

} // namespace kx

#endif
