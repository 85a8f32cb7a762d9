#include "modbus/recipe_requests.h"

#include "driver/tarvelan.h"

#include <QtCore/QMutexLocker>

namespace
{

const int WRITE_REQUEST_BYTE = 60115;
const int READ_REQUEST_BYTE = 60116;
const unsigned char REQUESTED = 1;

void clearRequest(int byte)
{
    if (!driver.hostShared)
        return;
    const QMutexLocker locker(driver.hostMutex);
    driver.hostShared[byte] = 0;
}

} // namespace

RecipeRequests recipeRequests()
{
    RecipeRequests requests = {false, false};
    if (!driver.hostShared)
        return requests;
    const QMutexLocker locker(driver.hostMutex);
    requests.write = driver.hostShared[WRITE_REQUEST_BYTE] == REQUESTED;
    requests.read = driver.hostShared[READ_REQUEST_BYTE] == REQUESTED;
    return requests;
}

void clearRecipeWriteRequest()
{
    clearRequest(WRITE_REQUEST_BYTE);
}

void clearRecipeReadRequest()
{
    clearRequest(READ_REQUEST_BYTE);
}
