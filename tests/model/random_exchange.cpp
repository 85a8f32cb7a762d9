#include "model/random_runtime.h"

#include <cstring>

namespace
{

const int RECIPE_WRITE_BYTE = 60115;
const int RECIPE_READ_BYTE = 60116;

/// A record that shows whether it was written to.
FRAME_PRO untouchedFrame()
{
    FRAME_PRO frame = FRAME_PRO();
    std::memset(frame.frame, 0xEE, sizeof frame.frame);
    frame.sendLen = -7;
    frame.reserved = -7;
    return frame;
}

} // namespace

void RandomRuntime::initialise()
{
    const QByteArray parameters = m_values.parameters();
    called(QString::fromLatin1("initialise with ") + QString::fromLatin1(parameters));
    m_library.status = -1;
    m_library.initialise(parameters.constData());
    m_plain.initProperty(m_plainShared.data(), m_plainRecipe.data(), parameters.constData());
    same("status", m_library.status, 0);
    m_values.changePool();
}

void RandomRuntime::poll()
{
    called(QString::fromLatin1("poll"));
    FRAME_PRO library = untouchedFrame();
    FRAME_PRO plain = untouchedFrame();
    same("result", intf_getSendFrame(&library), m_plain.sendFrame(&plain));
    same("frame handed out", library, plain);
}

void RandomRuntime::deal()
{
    const bool waits = !m_plain.frameList.isEmpty();
    if (waits && isTooLarge(m_plain.frameList.at(0)))
        return changeLists();
    const FRAME_PRO frame = waits ? m_plain.frameList.at(0) : FRAME_PRO();
    QByteArray reply = waits ? m_values.reply(frame) : QByteArray("\1\3", 2);
    const QByteArray before(reply.constData(), static_cast<int>(reply.size()));
    called(QString::fromLatin1("reply ") + shown(reply) + QString::fromLatin1(" to ")
           + (waits ? shown(frame) : QString()));
    QString libraryText = QString::fromLatin1("left");
    QString plainText = QString::fromLatin1("left");
    const int result = intf_dealRcvFrame(reply, libraryText);
    same("result", result, m_plain.dealReply(before, plainText));
    same("error text", libraryText, plainText);
    same("reply", reply, before);
}

void RandomRuntime::exchange()
{
    poll();
    deal();
}

void RandomRuntime::requestRecipe()
{
    const size_t byte = m_random.chance(50) ? RECIPE_WRITE_BYTE : RECIPE_READ_BYTE;
    const unsigned char value = m_random.oneOf<unsigned char>({1, 1, 1, 1, 0, 2});
    called(QString::fromLatin1("recipe request %1 = %2").arg(byte).arg(value));
    m_library.shared[byte] = value;
    m_plainShared[byte] = value;
    const size_t word = static_cast<size_t>(m_random.below(2600));
    const unsigned short content = static_cast<unsigned short>(m_random.below(65536));
    m_library.recipe[word] = content;
    m_plainRecipe[word] = content;
    if (m_random.chance(3)) { // until it is initialised again
        called(QString::fromLatin1("no recipe buffer"));
        driver.recipeBuffer = nullptr;
        m_plain.recipeBuffer = nullptr;
    }
}

void RandomRuntime::getData()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int count = m_values.count();
    called(
        QString::fromLatin1("get data %1 %2 %3 %4").arg(station).arg(type).arg(address).arg(count));
    QByteArray library(2500, '\xEE');
    QByteArray plain(2500, '\xEE');
    intf_getData(station, type, address, count, reinterpret_cast<unsigned char*>(library.data()));
    m_plain.getData(station, type, address, count, reinterpret_cast<unsigned char*>(plain.data()));
    same("values", library, plain);
}

void RandomRuntime::setData()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int count = m_values.count();
    const int kind = m_values.kind();
    QByteArray data = m_values.payload();
    called(
        QString::fromLatin1("set data %1 %2 %3 %4").arg(station).arg(type).arg(address).arg(count)
        + shown(data.left(16)));
    unsigned char* bytes = reinterpret_cast<unsigned char*>(data.data());
    const int result = intf_setData(station, type, address, count, bytes, kind);
    same("result", result, m_plain.setData(station, type, address, count, bytes, kind));
}
