#include "tools/exchange/scripted_driver.h"

#include <cstring>

namespace kx
{

namespace
{

ScriptedDriver* current = nullptr;

} // namespace

ScriptedDriver::ScriptedDriver()
{
    current = this;
}

ScriptedDriver::~ScriptedDriver()
{
    current = nullptr;
}

DriverEntryPoints ScriptedDriver::entryPoints() const
{
    DriverEntryPoints entryPoints;
    entryPoints.getSendFrame = getSendFrame;
    entryPoints.dealRcvFrame = dealRcvFrame;
    return entryPoints;
}

void ScriptedDriver::request(const QByteArray& frame, int recvLen)
{
    FRAME_PRO request = FRAME_PRO();
    std::memcpy(request.frame, frame.constData(), static_cast<size_t>(frame.size()));
    request.sendLen = static_cast<int>(frame.size());
    request.recvLen = recvLen;
    m_requests << request;
}

int ScriptedDriver::getSendFrame(FRAME_PRO* out)
{
    ++current->polls;
    if (current->m_requests.isEmpty())
        return 0;
    *out = current->m_requests.first();
    return 1;
}

int ScriptedDriver::dealRcvFrame(QByteArray& reply, QString& errorText)
{
    current->replies << reply;
    const int result = current->results.isEmpty() ? 1 : current->results.takeFirst();
    errorText = result == 2 ? QString::fromLatin1("0,1,100,D") : QString();
    if (result != 8)
        current->m_requests.removeFirst();
    return result;
}

} // namespace kx
