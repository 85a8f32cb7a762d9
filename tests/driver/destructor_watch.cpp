#include "driver/destructor_watch.h"

#include "driver/export.h"

#include <cstring>

#include <dlfcn.h>

namespace
{

using Destructor = void (*)(void*);
using RegisterFunction = int (*)(Destructor, void*, void*);

struct Registration {
    Destructor destructor;
    void* object;
};

// Libraries register before any object of this program exists: plain data only.
DestructorWatch* currentWatch = nullptr;

void runWatched(void* registration)
{
    const Registration watched = *static_cast<Registration*>(registration);
    delete static_cast<Registration*>(registration);
    watched.destructor(watched.object);
    if (currentWatch)
        currentWatch->destructorRan();
}

int registerWithTheSystem(Destructor destructor, void* object, void* libraryHandle)
{
    static RegisterFunction next = nullptr;
    if (!next)
        next = reinterpret_cast<RegisterFunction>(dlsym(RTLD_NEXT, "__cxa_atexit"));
    return next(destructor, object, libraryHandle);
}

} // namespace

// Takes the place of the system's function for the whole process.
extern "C" KX_EXPORT int __cxa_atexit(Destructor destructor, void* object,
                                      void* libraryHandle) noexcept
{
    if (!currentWatch || !currentWatch->watches(libraryHandle))
        return registerWithTheSystem(destructor, object, libraryHandle);
    auto* const registration = new Registration{destructor, object};
    const int result = registerWithTheSystem(runWatched, registration, libraryHandle);
    currentWatch->destructorRegistered();
    return result;
}

DestructorWatch::DestructorWatch(const char* libraryName) : m_libraryName(libraryName)
{
    currentWatch = this;
}

DestructorWatch::~DestructorWatch()
{
    currentWatch = nullptr;
}

bool DestructorWatch::watches(const void* libraryHandle) const
{
    Dl_info info;
    return libraryHandle && dladdr(libraryHandle, &info)
           && std::strstr(info.dli_fname, m_libraryName);
}
