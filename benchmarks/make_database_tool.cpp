// make_database_tool PATH MEGABYTES: writes a big database and prints how many models it has.
#include <cstdio>
#include <cstdlib>

#include "benchmarks/measured_database.h"

int main(int count, char** arguments) {
    using namespace corvane;
    if (count != 3) {
        std::fputs("make_database_tool PATH MEGABYTES\n", stderr);
        return 2;
    }
    const std::wstring path = system::WideFromAnsi(arguments[1]);
    const int models = benchmarks::MakeDatabase(path, std::atoll(arguments[2]) * 1'000'000);
    if (models < 0) {
        std::fprintf(stderr, "%s can't be written\n", arguments[1]);
        return 1;
    }
    std::printf("%d\n", models);
    return 0;
}
