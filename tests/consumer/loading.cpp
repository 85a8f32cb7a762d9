// Loads the library as a panel does and prints the driver's parameters. The types of the
// entry points come from the headers.
#include <tarvelan_kx_series.h>

#include <cstdio>

#include <dlfcn.h>

int main()
{
    void* const library = dlopen("libtarvelan_kx_series.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    const auto getDriverParameter = reinterpret_cast<decltype(&intf_getDriverParameter)>(
        dlsym(library, "intf_getDriverParameter"));
    if (!getDriverParameter)
        return 1;
    QString parameters;
    getDriverParameter(parameters);
    std::printf("%s\n", qPrintable(parameters));
    parameters.clear(); // before its code goes
    return dlclose(library);
}
