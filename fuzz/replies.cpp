// Hostile replies: good ones with any values, right ones in wrong places, bits
// turned over, bytes missing or too many, or anything, to requests of every kind,
// some of which the runtime has tampered with.

#include "support/panel.h"
#include "support/require.h"
#include "support/values.h"

#include <algorithm>

namespace
{

const char* const PARAMETERS[] = {"1#0#0#3#32",   "1#0#0#1#125", "0#0#0#2#1",
                                  "-1#0#0#0#512", "7#1#0#3#32",  "1#0#0#3#0"};
const int PARAMETER_CHOICES = 6;
const int MOST_ENTRIES = 4;

void watch(InputReader* input)
{
    QList<KEY_ADDRESS> keys;
    for (int i = input->below(MOST_ENTRIES); i >= 0; --i)
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
    const int count = affordableCount(input);
    QByteArray values = input->text().leftJustified(2 * std::max(count, 0), '\1', true);
    intf_setData(station, regType, address, count, reinterpret_cast<unsigned char*>(values.data()),
                 2);
}

void transferRecipe(InputReader* input, Panel* panel)
{
    QVector<_RCP_VAR_PRO> variables;
    for (int i = input->below(MOST_ENTRIES); i >= 0; --i) {
        const KEY_ADDRESS place = anyKey(input);
        const int offset = Panel::recipeOffset(anyNumber(input));
        variables << _RCP_VAR_PRO{
            driver.linkId, place.station, place.regType, place.address, place.count, offset, {}};
    }
    intf_setRcpAddress(variables);
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
    case 1: // a bit turned over
        reply[input->below(static_cast<int>(std::min<qsizetype>(reply.size(), 256)))] =
            static_cast<char>(input->byte());
        return reply;
    case 2: // too short
        reply.chop(1 + input->below(8));
        return reply;
    case 3: // too long
        return reply + input->text();
    case 4: // an exception reply
        return withCrc(reply.left(1) + '\x83' + '\2');
    case 5: // another station, function or byte count, with its CRC
        reply.chop(2);
        reply[input->below(3)] = static_cast<char>(input->byte());
        return withCrc(reply);
    case 6:
        return input->text();
    default:
        return reply;
    }
}

void exchange(InputReader* input, Panel* panel)
{
    if (!panel->poll())
        return;
    if (input->below(8) == 0)
        tamperWithRequest(input);
    panel->deal(hostileReply(input, *panel));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    InputReader input(bytes, size);
    Panel panel(PARAMETERS[input.below(PARAMETER_CHOICES)]);
    while (!input.isEmpty()) {
        const int step = input.below(16);
        if (step == 0)
            watch(&input);
        else if (step == 1)
            askOnce(&input);
        else if (step == 2)
            write(&input);
        else if (step == 3)
            transferRecipe(&input, &panel);
        else
            exchange(&input, &panel);
        panel.check();
    }
    return 0;
}
