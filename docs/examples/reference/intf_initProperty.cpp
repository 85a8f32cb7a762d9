// Initialises the driver twice; the second text is too short to change anything.
#include <tarvelan_kx_series.h>

#include <cstdio>
#include <vector>

int main()
{
    std::vector<unsigned char> shared(60117, 0);
    std::vector<unsigned short> recipe(1000, 0);
    QMutex mutex;
    int status = -1;
    const int result =
        intf_initProperty(shared.data(), nullptr, recipe.data(), &status, "1#0#0#3#32", &mutex);
    std::printf("result %d, status %d\n", result, status);
    std::printf("link %d, %d bad replies fail, at most %d registers\n", driver.linkId,
                driver.retryLimit, driver.maxWords);

    intf_initProperty(shared.data(), nullptr, recipe.data(), &status, "2#0", &mutex);
    std::printf("link %d still\n", driver.linkId);
}
