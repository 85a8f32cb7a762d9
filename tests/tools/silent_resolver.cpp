#include "tools/silent_resolver.h"

#include <condition_variable>
#include <cstring>
#include <dlfcn.h>
#include <mutex>
#include <netdb.h>

namespace
{

struct Resolver {
    std::mutex lock;
    std::condition_variable changed;
    bool answers = false;
};

/// Never deleted: lookups may outlive all else.
Resolver& resolver()
{
    static auto* const only = new Resolver;
    return *only;
}

} // namespace

void letResolverAnswer()
{
    const std::lock_guard<std::mutex> lock(resolver().lock);
    resolver().answers = true;
    resolver().changed.notify_all();
}

/// Instead of the C library's, which a name server of the tests would have to be set up for.
extern "C" __attribute__((visibility("default"))) int
getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result)
{
    if (node && std::strcmp(node, "nobody.example") == 0)
        return EAI_NONAME;
    if (node && std::strcmp(node, "silent.example") == 0) {
        std::unique_lock<std::mutex> lock(resolver().lock);
        resolver().changed.wait(lock, [] { return resolver().answers; });
        return EAI_AGAIN;
    }
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const Function original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return original(node, service, hints, result);
}
