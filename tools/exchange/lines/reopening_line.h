#ifndef KX_EXCHANGE_LINES_REOPENING_LINE_H
#define KX_EXCHANGE_LINES_REOPENING_LINE_H

#include "exchange/lines/line.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <memory>

namespace kx
{

/// A line that is opened again after it was lost: an adapter plugged out and in, a
/// gateway that dropped the connection. The first opening is tried once.
class ReopeningLine : public Line
{
    Q_OBJECT

public:
    /// @param line     becomes a child of this one
    /// @param patience milliseconds after which a lost line is given up
    ReopeningLine(std::unique_ptr<Line> line, int patience, QObject* parent = nullptr);

    QString name() const override { return m_line->name(); }
    LineTiming timing() const override { return m_line->timing(); }
    void open() override { m_line->open(); }
    void close() override;
    bool isOpen() const override { return m_line->isOpen(); }
    void write(const QByteArray& bytes) override { m_line->write(bytes); }
    QByteArray takeWaiting() override { return m_line->takeWaiting(); }
    QByteArray discardWaiting() override { return m_line->discardWaiting(); }
    void setReporting(bool reports) override { m_line->setReporting(reports); }
    QString modeText() const override { return m_line->modeText(); }
    QStringList remarks() const override { return m_line->remarks(); }

private:
    void onOpened();
    void onFailure(const QString& error);

    std::unique_ptr<Line> m_line;
    int m_patience;
    bool m_wasOpened = false;
    QElapsedTimer m_lostSince; ///< invalid while the line is open
    QTimer m_retry{this};
};

} // namespace kx

#endif
