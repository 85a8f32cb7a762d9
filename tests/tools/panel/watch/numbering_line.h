/// A line to a numbering controller, in virtual time.
#ifndef KX_TESTS_TOOLS_PANEL_WATCH_NUMBERING_LINE_H
#define KX_TESTS_TOOLS_PANEL_WATCH_NUMBERING_LINE_H

#include "exchange/lines/line.h"
#include "tools/exchange/virtual_clock.h"
#include "tools/panel/watch/numbering_controller.h"

#include <QtCore/QSet>

namespace kx
{

class NumberingLine : public Line
{
public:
    explicit NumberingLine(VirtualClock* clock) : m_clock(clock) {}

    QString name() const override { return QStringLiteral("numbers"); }
    LineTiming timing() const override { return {0, 8, 0, 1}; }
    void open() override { emit opened(); }
    void close() override {}
    bool isOpen() const override { return true; }
    void write(const QByteArray& bytes) override
    {
        ++requests;
        if (changesAtOnce)
            controller.held = (controller.held + 1) & 0x7FFF;
        const bool isSilent = silentStations.contains(bytes.at(0));
        const QByteArray reply = isSilent ? noise : controller.replyTo(bytes);
        if (reply.isEmpty())
            return;
        m_clock->after(1000, [this, reply] { emit bytesArrived(reply); });
    }
    QByteArray takeWaiting() override { return QByteArray(); }
    QByteArray discardWaiting() override { return QByteArray(); }

    void lose() { emit failed(QStringLiteral("numbers: the port is lost")); }
    void interrupt() { emit interrupted(); }

    NumberingController controller;
    QSet<int> silentStations; ///< answer nothing
    QByteArray noise;         ///< what comes instead
    /// Each request finds the same new value in all registers, never two values in one reply.
    bool changesAtOnce = false;
    int requests = 0;

private:
    VirtualClock* m_clock;
};

} // namespace kx

#endif
