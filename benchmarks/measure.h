// What a small program reports of its own run.
#pragma once

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

#include "platform/grvelk.h"
#include "platform/ztutil32.h"

namespace corvane::benchmarks {

// The most memory that this process held; -1 where the system does not say.
inline long PeakMemoryKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    }
    return -1;
}

// The bytes that this process has read, from files of any kind; -1 where the system does not say.
inline long long BytesRead() {
    std::ifstream counts("/proc/self/io");
    for (std::string line; std::getline(counts, line);) {
        if (line.rfind("rchar:", 0) == 0) return std::stoll(line.substr(6));
    }
    return -1;
}

// The microseconds that the procedure takes. The shell has long loaded its libraries when it works:
// loading is not measured.
template <class Work>
long long Microseconds(Work work) {
    GetGrVelkDataVersion.Resolve();
    GetZTUtilVersion.Resolve();
    const auto begin = std::chrono::steady_clock::now();
    work();
    const auto end = std::chrono::steady_clock::now();
    return std::chrono::duration_cast<std::chrono::microseconds>(end - begin).count();
}

}  // namespace corvane::benchmarks
