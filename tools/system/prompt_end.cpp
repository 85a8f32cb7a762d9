#include "system/prompt_end.h"

#include <chrono>
#include <cstdio>
#include <thread>
#include <unistd.h>

namespace kx
{

void endSoon(int exitCode)
{
    std::thread([exitCode] {
        std::this_thread::sleep_for(std::chrono::seconds(2));
        std::fflush(nullptr);
        _exit(exitCode);
    }).detach();
}

} // namespace kx
