#ifndef KX_KXHOST_LISTEN_CAPTURE_FILE_H
#define KX_KXHOST_LISTEN_CAPTURE_FILE_H

#include "listen/heard_piece.h"

#include <QtCore/QFile>

namespace kx
{

/// A pcap file that grows while somebody may read it.
class CaptureFile
{
public:
    /// Replaces the file of that name. False, and one line in `*error`, when that fails.
    bool open(const QString& name, QString* error);

    /// Nothing happens while none is open.
    /// @param time as of capturePacket()
    void add(const HeardPiece& piece, qint64 time);

    /// Why not all could be written, one line; empty when all went well.
    QString failure() const { return m_failure; }

private:
    bool write(const QByteArray& bytes);

    QFile m_file;
    QString m_failure;
};

} // namespace kx

#endif
