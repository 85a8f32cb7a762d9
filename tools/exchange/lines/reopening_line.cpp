#include "exchange/lines/reopening_line.h"

#include <utility>

namespace kx
{

namespace
{

const int RETRY_INTERVAL = 100; // milliseconds

} // namespace

ReopeningLine::ReopeningLine(std::unique_ptr<Line> line, int patience, QObject* parent)
    : Line(parent), m_line(std::move(line)), m_patience(patience)
{
    m_line->setParent(this);
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &ReopeningLine::open);
    connect(m_line.get(), &Line::bytesArrived, this, &Line::bytesArrived);
    connect(m_line.get(), &Line::opened, this, &ReopeningLine::onOpened);
    connect(m_line.get(), &Line::failed, this, &ReopeningLine::onFailure);
}

void ReopeningLine::close()
{
    m_retry.stop();
    m_wasOpened = false;
    m_lostSince.invalidate();
    m_line->close();
}

void ReopeningLine::onOpened()
{
    m_wasOpened = true;
    m_lostSince.invalidate();
    emit opened();
}

void ReopeningLine::onFailure(const QString& error)
{
    if (!m_wasOpened)
        return emit failed(error);
    const bool isNews = !m_lostSince.isValid();
    if (isNews)
        m_lostSince.start();
    else if (m_lostSince.hasExpired(m_patience)) {
        close();
        return emit failed(error);
    }
    m_retry.start(isNews ? 0 : RETRY_INTERVAL);
    if (isNews)
        emit interrupted();
}

} // namespace kx
