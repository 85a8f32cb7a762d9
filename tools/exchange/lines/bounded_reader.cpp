#include "exchange/lines/bounded_reader.h"

namespace kx
{

namespace
{

const int PAUSE = 1; // milliseconds: 4 MB/s, far more than a serial line behind carries

} // namespace

BoundedReader::BoundedReader(QIODevice* device, QObject* parent) : QObject(parent), m_device(device)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &BoundedReader::read);
    connect(device, &QIODevice::readyRead, this, &BoundedReader::onReadyRead);
}

QByteArray BoundedReader::takeWaiting()
{
    if (!m_device->isOpen())
        return QByteArray();
    m_isTaking = true;
    if (m_device->bytesAvailable() < MOST_AT_ONCE)
        m_device->waitForReadyRead(0);
    m_isTaking = false;
    // Looking may have shown that the line is lost.
    return m_device->isOpen() ? m_device->read(MOST_AT_ONCE) : QByteArray();
}

void BoundedReader::onReadyRead()
{
    if (m_isTaking)
        return;
    if (m_device->bytesAvailable() < MOST_AT_ONCE)
        read();
    else if (!m_pause.isActive())
        m_pause.start(PAUSE);
}

void BoundedReader::read()
{
    const QByteArray bytes = m_device->read(MOST_AT_ONCE);
    if (!bytes.isEmpty())
        emit bytesArrived(bytes);
}

} // namespace kx
