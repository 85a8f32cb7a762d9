#include "calls/calls.h"

#include "support/require.h"

namespace
{

const char* const PARAMETERS[] = {
    "1#0#0#3#32",  "1#0#0#1#1",    "1#1#0#3#32",          "-1#0#0#0#125", "1#0#0#3#0",
    "1#0#0#3#-5",  "1#0#0#3#512",  "0#0#0#3#513",         "1#0#0#3#1024", "",
    "1#0#0#-1#7",  "1#0#0#2#8",    "1#0#0#2147483647#16", "####",         "1#0#0#3",
    "1#0#0#3#128", "5#-1#x#1#124",
};
const int PARAMETER_CHOICES = static_cast<int>(sizeof PARAMETERS / sizeof PARAMETERS[0]);

void initialise(InputReader* input, Panel* panel)
{
    const int choice = input->byte();
    if (choice < 0xE0)
        panel->initialise(PARAMETERS[choice % PARAMETER_CHOICES], choice % 8 != 7);
    else
        panel->initialise(input->text().constData());
}

void watchAddresses(InputReader* input, Panel*)
{
    watch(input);
}

void askForRead(InputReader* input, Panel*)
{
    KEY_ADDRESS key = anyKey(input);
    const int kind = anyNumber(input);
    require(intf_addConditionRead(key, kind) == 1, "a condition read gives 1");
}

void setRecipe(InputReader* input, Panel*)
{
    planRecipe(input);
    require(driver.rcpVarsA.isEmpty() == driver.rcpVars.isEmpty(), "variables make blocks");
}

void startRecipe(InputReader* input, Panel* panel)
{
    requestRecipe(input, panel);
}

void poll(InputReader*, Panel* panel)
{
    panel->poll();
}

void answer(InputReader* input, Panel* panel)
{
    if (panel->poll())
        panel->deal(panel->goodReply(input->text()));
}

void answerBadly(InputReader* input, Panel* panel)
{
    panel->deal(hostileReply(input, *panel));
}

void failRequest(InputReader*, Panel* panel)
{
    if (!panel->poll())
        return;
    const int retries = 8;
    for (int i = 0; i < retries && panel->deal(QByteArray()) == 8; ++i) {
    }
}

void readValues(InputReader* input, Panel*)
{
    read(input);
}

void writeValues(InputReader* input, Panel*)
{
    write(input);
}

void checkAddress(InputReader* input, Panel*)
{
    const QString regType = anyType(input);
    const QString text = QString::fromLatin1(input->text());
    const int length = anyNumber(input);
    int address = 0;
    intf_checkAddrValidity(regType, text, &address, length, input->byte());
    intf_checkAddr(regType, text, &address, anyNumber(input), length, anyNumber(input));
}

void copyAddress(InputReader* input, Panel*)
{
    const QString regType = anyType(input);
    QVector<QString> texts;
    QVector<int> addresses;
    const int start = anyNumber(input);
    const int count = countFor(input, regType);
    intf_multiCopy(regType, start, count, anyNumber(input), texts, addresses);
    require(texts.size() == addresses.size(), "a text for each address");
}

void askForTexts(InputReader* input, Panel*)
{
    QList<QString> names;
    intf_getRegListByType(anyNumber(input), names);
    intf_getRegDiscription(anyType(input), names);
    QString text;
    intf_getDriverParameter(text);
    intf_getDriverPropertyPage(text);
    intf_SetDriverPropertyPage(text);
    int protocol = -1;
    intf_getProtocolType(&protocol);
    require(protocol == 0, "the protocol type is 0");
}

} // namespace

const Call ENTRY_POINTS[] = {
    initialise,  watchAddresses, askForRead, setRecipe,   startRecipe, poll,        answer,
    answerBadly, failRequest,    readValues, writeValues, askForTexts, copyAddress, checkAddress,
};
const int ENTRY_POINT_COUNT = static_cast<int>(sizeof ENTRY_POINTS / sizeof ENTRY_POINTS[0]);
