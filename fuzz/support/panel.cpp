#include "support/panel.h"

#include "support/require.h"

namespace
{

const int SHARED_BLOCK_SIZE = 60117;
const int MOST_RECIPE_OFFSET = 2000;
const int QUEUE_LIMIT = 513;
const int SHORTEST_FRAME = 5;
const int LONGEST_REPLY = 4096;

Panel* current = nullptr;

void forgetEverything()
{
    driver.linkId = 0;
    driver.writeLocalOnly = 0;
    driver.param2 = 0;
    driver.retryLimit = 0;
    driver.maxWords = 0;
    driver.rcpVarsA.clear();
    driver.rcpVars.clear();
    driver.intList.clear();
    driver.condVar = VARIABLE();
    driver.currentJob = VARIABLE();
    driver.rcpIndex = 0;
}

} // namespace

Panel::Panel(const char* parameters)
    : m_shared(SHARED_BLOCK_SIZE, 0),
      // A block of MOST_MARKS register bytes, read from the last offset on.
      m_recipe(MOST_RECIPE_OFFSET + MOST_MARKS / 2, 0),
      m_request(FRAME_PRO())
{
    current = this;
    forgetEverything();
    registerFunction(false);
    initialise(parameters);
}

Panel::~Panel()
{
    onReport = nullptr;
    int status = 0;
    intf_initProperty(nullptr, nullptr, nullptr, &status, "", nullptr);
    intf_setAddrValueChangeCallBack(nullptr);
    current = nullptr;
}

void Panel::initialise(const char* parameters, bool withResources)
{
    int status = -1;
    if (withResources)
        intf_initProperty(m_shared.data(), nullptr, m_recipe.data(), &status, parameters, &m_mutex);
    else
        intf_initProperty(nullptr, nullptr, nullptr, nullptr, parameters, nullptr);
    require(!withResources || status == 0, "initialising sets the status to 0");
}

int Panel::recipeOffset(int wish)
{
    return wish > MOST_RECIPE_OFFSET ? wish % MOST_RECIPE_OFFSET : wish;
}

bool Panel::poll()
{
    FRAME_PRO polled = FRAME_PRO();
    const int result = intf_getSendFrame(&polled);
    require(result == 0 || result == 1, "a poll gives 0 or 1");
    require(result == (driver.frameList.isEmpty() ? 0 : 1), "a poll gives the first request");
    if (result == 1)
        m_request = polled;
    return result == 1;
}

QByteArray Panel::goodReply(const QByteArray& values) const
{
    const int length = m_request.recvLen;
    if (length < SHORTEST_FRAME || length > LONGEST_REPLY)
        return withCrc(values);
    QByteArray reply(reinterpret_cast<const char*>(m_request.frame), 2);
    if (m_request.dataLen == 0) {
        reply = QByteArray(reinterpret_cast<const char*>(m_request.frame), 6);
    } else {
        reply += static_cast<char>(length - SHORTEST_FRAME);
        reply += values;
    }
    reply = reply.leftJustified(length - 2, '\0', true);
    return withCrc(reply);
}

bool Panel::isAffordable(const FRAME_PRO& request)
{
    return request.dataLen <= MOST_MARKS && request.job.count <= MOST_MARKS;
}

int Panel::deal(QByteArray reply)
{
    if (!driver.frameList.isEmpty() && !isAffordable(driver.frameList.first())) {
        driver.frameList.clear();
        return 0;
    }
    const bool isIdle = driver.frameList.isEmpty();
    const QByteArray sent = reply;
    QString error = QString::fromLatin1("left over");
    const int result = intf_dealRcvFrame(reply, error);
    require(result == 0 || result == 1 || result == 2 || result == 8, "a reply gives 0, 1, 2 or 8");
    require(!isIdle || result == 0, "without a request every reply is ignored");
    require(error.isEmpty() == (result != 2), "the error text is for a final failure");
    require(reply == sent, "a reply is not changed");
    return result;
}

void Panel::check() const
{
    require(driver.writeList.size() <= QUEUE_LIMIT, "at most 513 writes wait");
    require(driver.condList.size() <= QUEUE_LIMIT, "at most 513 condition reads wait");
    QMutex& mutex = const_cast<QMutex&>(m_mutex);
    require(mutex.tryLock(), "the mutex is free between two calls");
    mutex.unlock();
}

void Panel::registerFunction(bool isSecond)
{
    m_isSecond = isSecond;
    intf_setAddrValueChangeCallBack(isSecond ? secondFunction : firstFunction);
}

void Panel::firstFunction(int, int, QString name, int)
{
    valueChanged(false, name);
}

void Panel::secondFunction(int, int, QString name, int)
{
    valueChanged(true, name);
}

void Panel::valueChanged(bool isSecond, const QString& name)
{
    require(isSecond == current->m_isSecond, "reports come to the function registered last");
    require(!name.isNull(), "a report has a name");
    require(current->m_mutex.tryLock(), "the mutex is free inside the value-change function");
    current->m_mutex.unlock();
    if (current->onReport)
        current->onReport();
}

QByteArray withCrc(QByteArray frame)
{
    unsigned int crc = 0xFFFF;
    for (const char byte : frame) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0xA001 : crc >> 1;
    }
    frame.append(static_cast<char>(crc & 0xFF));
    frame.append(static_cast<char>(crc >> 8));
    return frame;
}
