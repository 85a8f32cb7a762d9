// Loads and unloads the driver so many times, in a process that has Qt already, and
// prints the microseconds that one time takes.
//   loads LIBRARY TIMES
#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: loads LIBRARY TIMES\n");
        return 2;
    }
    const int times = std::atoi(argv[2]);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < times; ++i) {
        void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        if (!library) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        dlclose(library);
    }
    std::printf("%.1f\n", timer.nsecsElapsed() / 1000.0 / times);
    return 0;
}
