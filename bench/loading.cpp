// Loading and unloading the driver in a program that has Qt loaded already.
#include <benchmark/benchmark.h>

#include <QtCore/qglobal.h>

#include <dlfcn.h>

namespace
{

void loadAndUnload(benchmark::State& state)
{
    for (auto _ : state) {
        void* const library = dlopen(KX_LIBRARY, RTLD_NOW);
        if (!library)
            return state.SkipWithError(dlerror());
        dlclose(library);
    }
    if (dlopen(KX_LIBRARY, RTLD_NOW | RTLD_NOLOAD))
        state.SkipWithError("the library stays loaded");
}

BENCHMARK(loadAndUnload)->Name("load_and_unload");

} // namespace

int main(int argc, char** argv)
{
    if (!qVersion()) // keeps Qt linked, and so loaded
        return 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
