#include "kxhost/listen/capture_file.h"

#include "listen/capture_format.h"

namespace kx
{

bool CaptureFile::open(const QString& name, QString* error)
{
    m_file.setFileName(name);
    if (m_file.open(QIODevice::WriteOnly) && write(captureHeader()))
        return true;
    *error = QStringLiteral("%1: cannot write the capture: %2").arg(name, m_file.errorString());
    return false;
}

void CaptureFile::add(const HeardPiece& piece, qint64 time)
{
    if (!m_file.isOpen() || write(capturePacket(piece, time)))
        return;
    m_failure = QStringLiteral("%1: cannot write the capture: %2")
                    .arg(m_file.fileName(), m_file.errorString());
    m_file.close();
}

bool CaptureFile::write(const QByteArray& bytes)
{
    return m_file.write(bytes) == bytes.size() && m_file.flush();
}

} // namespace kx
