#ifndef KX_TESTS_WHOLE_FRAMES_H
#define KX_TESTS_WHOLE_FRAMES_H

#include <QtCore/QByteArray>

/// Frames with their CRC in the bytes, wherever they begin.
int wholeFramesIn(QByteArray bytes);

#endif
