// list_models_tool PATH [--measure]: lists the models of a database and prints how many there are;
// with --measure also the microseconds that the listing took by this process's own clock and, on
// the host, the most memory that the process held, in KiB (under Wine the figure is the server's).
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

#include "database/database_file.h"
#include "platform/grvelk.h"
#include "platform/system.h"
#include "platform/ztutil32.h"

namespace {

// The figure of the host's kernel; -1 where there is none.
long PeakMemoryKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    }
    return -1;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("list_models_tool PATH [--measure]\n", stderr);
        return 2;
    }
    // The shell has long loaded its libraries when it lists models: loading is not measured.
    corvane::GetGrVelkDataVersion.Resolve();
    corvane::GetZTUtilVersion.Resolve();
    const auto begin = std::chrono::steady_clock::now();
    const auto entries =
        corvane::ListModelsWithPositions(corvane::system::WideFromAnsi(arguments[1]));
    const auto end = std::chrono::steady_clock::now();
    std::printf("%zu", entries.size());
    if (count > 2) {
        const auto elapsed = std::chrono::duration_cast<std::chrono::microseconds>(end - begin);
        std::printf(" %lld %ld", static_cast<long long>(elapsed.count()), PeakMemoryKiB());
    }
    std::printf("\n");
    return 0;
}
