#include "driver/setup.h"

#include "driver/clear_data_areas.h"
#include "driver/number_text.h"
#include "driver/wrapping.h"

#include <QtCore/QStringList>

namespace
{

const int PARAMETER_COUNT = 5;
const int DECIMAL = 10;
const int BITS_PER_REGISTER_OF_LIMIT = 8;

// Fewer than five items leave the parameters of an earlier call in force.
void takeParameters(const QString& parameters)
{
    const QStringList items = parameters.split(QLatin1Char('#'));
    if (items.size() < PARAMETER_COUNT)
        return;
    driver.linkId = numberIn(items.at(0), DECIMAL);
    driver.writeLocalOnly = numberIn(items.at(1), DECIMAL);
    driver.param2 = numberIn(items.at(2), DECIMAL);
    driver.retryLimit = numberIn(items.at(3), DECIMAL);
    driver.maxWords = numberIn(items.at(4), DECIMAL);
}

} // namespace

void intf_getProtocolType(int* out)
{
    *out = 0;
}

void intf_getDriverParameter(QString& out)
{
    // SM stands before M on purpose, unlike in REG_LIST.
    out = QString::fromLatin1("0,9600,8,NONE,1,0,1,192.168.1.10,8888,tarvelan,"
                              "X,Y,SM,M,S,T,C,D,SD,CV,32CV,TV,Z");
}

void intf_getDriverPropertyPage(QString& out)
{
    out = QString::fromLatin1("0_0");
}

void intf_SetDriverPropertyPage(QString& out)
{
    out = QString::fromLatin1("");
}

void intf_setAddrValueChangeCallBack(ValueChangeCallBack callBack)
{
    driver.valueChangeCallBack = callBack;
}

int intf_initProperty(unsigned char* shared, void* hostValue, unsigned short* recipeBuffer,
                      int* status, const char* parameters, QMutex* mutex)
{
    if (status)
        *status = 0;
    takeParameters(QString::fromLatin1(parameters));

    driver.hostShared = shared;
    driver.hostArg1 = hostValue;
    driver.recipeBuffer = recipeBuffer;
    driver.hostMutex = mutex;

    driver.readList.clear();
    driver.writeList.clear();
    driver.condList.clear();
    clearDataAreas();
    driver.currentKind = NO_JOB;
    driver.burstCount = 0;
    driver.aux1 = 0;
    driver.errorCount = 0;
    driver.maxWordsPerJob = driver.maxWords;
    driver.maxBitsPerJob = wrapMul(driver.maxWords, BITS_PER_REGISTER_OF_LIMIT);
    driver.commFailed = 0;
    driver.frameList.clear();
    driver.aux2 = 0;
    driver.aux3 = 1;
    return 1;
}
