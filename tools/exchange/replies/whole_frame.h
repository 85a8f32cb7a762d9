/// What may be transmitted of a request.
#ifndef KX_EXCHANGE_REPLIES_WHOLE_FRAME_H
#define KX_EXCHANGE_REPLIES_WHOLE_FRAME_H

#include "driver/records.h"

#include <QtCore/QByteArray>

namespace kx
{

/// Recipes and writes of absurd counts make frames longer than the record holds, or of
/// negative length.
inline bool isWholeFrame(const FRAME_PRO& request)
{
    return request.sendLen >= 1 && request.sendLen <= FRAME_SIZE;
}

/// Of a whole frame.
inline QByteArray bytesOf(const FRAME_PRO& request)
{
    return QByteArray(reinterpret_cast<const char*>(request.frame), request.sendLen);
}

} // namespace kx

#endif
