#include "kxhost/listen/capture_file.h"

#include "listen/capture_format.h"

namespace kx
{

bool CaptureFile::open(const QString& name, QString* error)
{
    m_file.setFileName(name);
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && write(captureHeader()))
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
    qint64 written = 0;
    // A disk that fills up takes a part first, and says why it takes no more when asked again.
    while (written < bytes.size()) {
        const qint64 taken = m_file.write(bytes.constData() + written, bytes.size() - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    return true;
}

} // namespace kx
