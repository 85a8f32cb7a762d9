/// Who may open a serial port.
#ifndef KX_SYSTEM_PORT_ACCESS_H
#define KX_SYSTEM_PORT_ACCESS_H

#include <QtCore/QString>

namespace kx
{

/// What to do when this process may not open a device for reading and writing:
/// "; it is for members of the group dialout: sudo usermod -aG dialout $USER, then log in
/// again". Empty when it may, or when there is no such device. Looks at the device now,
/// so ask right after the opening failed.
QString accessAdvice(const QString& device);

} // namespace kx

#endif
