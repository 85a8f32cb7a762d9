/// A runtime for benchmarks: hands the driver what a panel hands it, and polls
/// with replies made beforehand.
#ifndef KX_BENCH_SUPPORT_PANEL_H
#define KX_BENCH_SUPPORT_PANEL_H

#include "tarvelan_kx_series.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMutex>
#include <QtCore/QString>

#include <vector>

class Panel
{
public:
    /// Initialises the driver afresh, with `maxWords` as the longest request.
    explicit Panel(int maxWords);

    /// Empties the driver.
    ~Panel();

    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    /// One request built and `reply` dealt with; true when it was accepted.
    bool poll(QByteArray& reply)
    {
        return intf_getSendFrame(&m_frame) == 1 && intf_dealRcvFrame(reply, m_errorText) == 1;
    }

    /// Makes the value-change function read each reported value back.
    static void readChangesBack();

    /// Calls of the value-change function so far, of all panels.
    static long changes();

private:
    std::vector<unsigned char> m_shared;
    QMutex m_mutex;
    FRAME_PRO m_frame;
    QString m_errorText;
};

/// One address range to watch, as a runtime hands it over.
KEY_ADDRESS watched(int station, const QString& regType, int address, int count);

/// A good reply of `dataBytes` bytes, each `fill`, to function `function`.
QByteArray reply(int station, int function, int dataBytes, unsigned char fill);

#endif
