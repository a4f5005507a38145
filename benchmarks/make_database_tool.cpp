// make_database_tool PATH MEGABYTES [--sections]: writes a big database and prints how many models
// it has; with --sections these are whole sections.
#include <cstdio>
#include <cstdlib>

#include "benchmarks/measured_database.h"

int main(int count, char** arguments) {
    using namespace corvane;
    if (count < 3) {
        std::fputs("make_database_tool PATH MEGABYTES [--sections]\n", stderr);
        return 2;
    }
    const std::wstring path = system::WideFromAnsi(arguments[1]);
    const int64_t bytes = std::atoll(arguments[2]) * 1'000'000;
    const int models = count > 3 ? benchmarks::MakeSoundDatabase(path, bytes)
                                 : benchmarks::MakeDatabase(path, bytes);
    if (models < 0) {
        std::fprintf(stderr, "%s can't be written\n", arguments[1]);
        return 1;
    }
    std::printf("%d\n", models);
    return 0;
}
