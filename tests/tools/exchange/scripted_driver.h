/// A driver whose requests and results are written down beforehand.
#ifndef KX_TESTS_TOOLS_EXCHANGE_SCRIPTED_DRIVER_H
#define KX_TESTS_TOOLS_EXCHANGE_SCRIPTED_DRIVER_H

#include "exchange/driver_library.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

namespace kx
{

/// One at a time, since the driver's functions know no object.
class ScriptedDriver
{
public:
    ScriptedDriver();
    ~ScriptedDriver();

    DriverEntryPoints entryPoints() const;

    /// Adds a request; it stays the one to send until a result other than 8.
    void request(const QByteArray& frame, int recvLen);
    /// Of the request added last; else the frame's length.
    void setSendLenOfLast(int sendLen) { m_requests.last().sendLen = sendLen; }
    /// The results of the next replies; 1 when there are none left.
    QList<int> results;

    int polls = 0;
    QList<QByteArray> replies; ///< handed over, in order

private:
    static int getSendFrame(FRAME_PRO* out);
    static int dealRcvFrame(QByteArray& reply, QString& errorText);

    QList<FRAME_PRO> m_requests;
};

} // namespace kx

#endif
