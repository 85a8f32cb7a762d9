#ifndef KX_EXCHANGE_LINES_MBAP_LINE_H
#define KX_EXCHANGE_LINES_MBAP_LINE_H

#include "exchange/lines/line.h"

#include <memory>

namespace kx
{

/// A gateway, or a controller, that speaks Modbus TCP. RTU frames are written and arrive; between
/// this and the line inside they are frames of Modbus TCP.
///
/// Only the reply with the transaction of the latest request arrives. Others come too late: they
/// are what discardWaiting() returns. A peer that sends no such frame is lost, since nobody can
/// tell where its next frame would begin.
class MbapLine : public Line
{
    Q_OBJECT

public:
    /// @param line carries the bytes; becomes a child of this one
    explicit MbapLine(std::unique_ptr<Line> line, QObject* parent = nullptr);

    QString name() const override { return m_line->name(); }
    LineTiming timing() const override { return m_line->timing(); }
    void open() override;
    void close() override { m_line->close(); }
    bool isOpen() const override { return m_line->isOpen(); }
    /// One whole RTU frame; what is shorter than any is not sent.
    void write(const QByteArray& bytes) override;
    QByteArray takeWaiting() override;
    QByteArray discardWaiting() override;

private:
    void onBytes(const QByteArray& bytes);
    /// The replies to the latest request, as RTU frames.
    QByteArray replies(const QByteArray& bytes);
    void keepLate(const QByteArray& frame);
    void giveUp();

    std::unique_ptr<Line> m_line;
    quint16 m_transaction = 0; ///< of the latest request
    QByteArray m_received;     ///< of a frame that is not whole yet
    QByteArray m_late;         ///< frames, since the latest request
};

} // namespace kx

#endif
