/// A line to the controllers: bytes out, bytes in, never blocking.
#ifndef KX_EXCHANGE_LINES_LINE_H
#define KX_EXCHANGE_LINES_LINE_H

#include "addresses/export.h"
#include "exchange/lines/line_timing.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kx
{

class KXRUNTIME_EXPORT Line : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// What a person calls the line: "/dev/ttyUSB0", "192.168.0.5:8888".
    virtual QString name() const = 0;
    virtual LineTiming timing() const = 0;

    /// Ends in opened() or failed(), possibly before it returns.
    virtual void open() = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;

    /// Hands the bytes to the system at once, and what it does not take then, later. A
    /// fault comes as failed() or interrupted(), possibly before this returns.
    virtual void write(const QByteArray& bytes) = 0;
    /// What has arrived and was not reported, at most a few kilobytes; it is not reported
    /// then. Looks into the port, too, which a busy program may not have come to. That the
    /// line is lost may come out before this returns.
    virtual QByteArray takeWaiting() = 0;
    /// Throws away what has arrived and was not yet reported; returns what is known
    /// of it.
    virtual QByteArray discardWaiting() = 0;

    /// While a reply cannot be whole yet its bytes need not be reported one by one: with false
    /// they wait in the port until takeWaiting(), with true what waits is reported. A line starts
    /// with true after open(), and may go on reporting all the same.
    virtual void setReporting(bool reports) { Q_UNUSED(reports) }

    /// What the line was switched to beside its character format, for people: "low latency"; and
    /// rows about what it took otherwise than it was asked. Of the latest opening.
    virtual QString modeText() const { return QString(); }
    virtual QStringList remarks() const { return QStringList(); }

signals:
    void opened();
    /// At most a few kilobytes at once, however many a line brings.
    void bytesArrived(const QByteArray& bytes);
    /// The line is lost and is being opened again; opened() or failed() follows.
    void interrupted();
    /// The line cannot be opened, or is lost; it is closed then. `error` is one
    /// line that begins with the line's name.
    void failed(const QString& error);
};

} // namespace kx

#endif
