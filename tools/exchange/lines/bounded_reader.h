#ifndef KX_EXCHANGE_LINES_BOUNDED_READER_H
#define KX_EXCHANGE_LINES_BOUNDED_READER_H

#include <QtCore/QIODevice>
#include <QtCore/QTimer>

namespace kx
{

/// Reads a device so that one that never stops sending leaves the event loop time for
/// timers, signals and output. Replies, far shorter than MOST_AT_ONCE, come at once.
class BoundedReader : public QObject
{
    Q_OBJECT

public:
    /// Bytes of one pass of the event loop. The device's own buffer must be set to this
    /// size, so that the rest waits in the system, and with the sender.
    static const int MOST_AT_ONCE = 4096;

    /// The device stays the caller's, lives in the same thread and outlives the reader.
    explicit BoundedReader(QIODevice* device, QObject* parent = nullptr);

    /// What has arrived, up to MOST_AT_ONCE, without bytesArrived(). Waits for nothing.
    QByteArray takeWaiting();

signals:
    void bytesArrived(const QByteArray& bytes);

private:
    void onReadyRead();
    void read();

    QIODevice* m_device;
    QTimer m_pause{this};    ///< while a full buffer waits
    bool m_isTaking = false; ///< bytes are being taken and must not be reported
};

} // namespace kx

#endif
