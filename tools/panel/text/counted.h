#ifndef KX_PANEL_TEXT_COUNTED_H
#define KX_PANEL_TEXT_COUNTED_H

#include <QtCore/QString>

namespace kx
{

/// "1 request", "2 requests".
inline QString counted(qint64 count, const char* one, const char* many)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

} // namespace kx

#endif
