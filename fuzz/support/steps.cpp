#include "support/steps.h"

#include <QtCore/QStringList>

#include <vector>

namespace
{

const int MOST_ENTRIES = 8;

bool isBit(const QString& regType)
{
    return QString::fromLatin1("X,Y,M,SM,S,T,C").split(QLatin1Char(',')).contains(regType);
}

// A byte per bit, two per word, four per whole 32CV value.
std::size_t bytesOf(const QString& regType, int count)
{
    if (count < 1 || !isKnown(regType))
        return 0;
    const bool isDouble = regType == QLatin1String("32CV");
    return static_cast<std::size_t>(isBit(regType) ? count : isDouble ? count / 2 * 4 : count * 2);
}

// One of the first `most` bytes is another.
QByteArray withAnyByte(QByteArray reply, int most, InputReader* input)
{
    const char byte = static_cast<char>(input->byte());
    const int index = input->below(most);
    if (!reply.isEmpty())
        reply[index % static_cast<int>(reply.size())] = byte;
    return reply;
}

} // namespace

void watch(InputReader* input)
{
    QList<KEY_ADDRESS> keys;
    for (int i = input->below(MOST_ENTRIES); i > 0; --i)
        keys << anyKey(input);
    intf_addrMerge(keys);
}

void askOnce(InputReader* input)
{
    KEY_ADDRESS key = anyKey(input);
    intf_addConditionRead(key, 3);
}

void write(InputReader* input)
{
    const int station = anyStation(input);
    const QString regType = anyType(input);
    const int address = anyNumber(input);
    const int count = countFor(input, regType);
    const bool isWhole = regType != QLatin1String("32CV") || count % 2 == 0;
    // The driver takes two bytes per register, also for half a 32CV value.
    std::vector<unsigned char> values(bytesOf(regType, count) + (isWhole || count < 1 ? 0 : 2), 1);
    const QByteArray given = input->text();
    for (std::size_t i = 0; i < values.size() && i < static_cast<std::size_t>(given.size()); ++i)
        values[i] = static_cast<unsigned char>(given.at(static_cast<int>(i)));
    intf_setData(station, regType, address, count, values.data(), 2);
}

// Exactly as many bytes as the values take.
void read(InputReader* input)
{
    const int station = anyStation(input);
    const QString regType = anyType(input);
    const int address = anyNumber(input);
    const int count = countFor(input, regType);
    std::vector<unsigned char> values(bytesOf(regType, count));
    intf_getData(station, regType, address, count, values.data());
}

void planRecipe(InputReader* input)
{
    QVector<_RCP_VAR_PRO> variables;
    for (int i = input->below(MOST_ENTRIES); i > 0; --i) {
        const KEY_ADDRESS place = anyKey(input);
        const int offset =
            input->flag() ? Panel::recipeOffset(anyNumber(input)) : input->byte() - 16;
        variables << _RCP_VAR_PRO{
            driver.linkId, place.station, place.regType, place.address, place.count, offset, {}};
    }
    intf_setRcpAddress(variables);
}

void requestRecipe(InputReader* input, Panel* panel)
{
    if (input->flag())
        panel->requestRecipeRead();
    else
        panel->requestRecipeWrite();
}

void tamperWithRequest(InputReader* input)
{
    if (driver.frameList.isEmpty())
        return;
    FRAME_PRO& request = driver.frameList.first();
    int* const fields[] = {&request.recvLen,  &request.dataLen,     &request.frameFunc,
                           &request.sendLen,  &request.job.station, &request.job.address,
                           &request.job.count};
    *fields[input->below(7)] = anyNumber(input);
    if (input->flag())
        request.job.regType = anyType(input);
}

QByteArray hostileReply(InputReader* input, const Panel& panel)
{
    const int kind = input->below(10);
    QByteArray reply = panel.goodReply(input->text());
    switch (kind) {
    case 0:
        return QByteArray();
    case 1: // another byte
        return withAnyByte(reply, 256, input);
    case 2: // too short
        reply.chop(1 + input->below(8));
        return reply;
    case 3: // too long
        return reply + input->text();
    case 4: // an exception reply
        return withCrc(reply.left(1) + '\x83' + '\2');
    case 5: // another station, function or byte count, with its CRC
        reply.chop(2);
        return withCrc(withAnyByte(reply, 3, input));
    case 6:
        return input->text();
    default:
        return reply;
    }
}
