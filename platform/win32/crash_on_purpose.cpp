// Crashes for the tests of what a crash leaves behind.
#include <cxxabi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string_view>

#include "platform/crash.h"
#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

void WriteNowhere() {
    static volatile int* volatile address = nullptr;
    *address = 1;  // NOLINT(clang-analyzer-core.NullDereference): that is what it is for
}

// Calls itself by an address that the compiler does not know.
void FillStack(volatile char* before) {
    static void (*volatile again)(volatile char*) = FillStack;
    volatile char room[4096];
    room[0] = before == nullptr ? '\0' : *before;
    again(room);
    room[1] = room[0];
}

struct Way {
    std::wstring_view name;
    void (*crash)();
};
constexpr Way kWays[] = {{L"memory", WriteNowhere},
                         {L"stack", [] { FillStack(nullptr); }},
                         {L"abort", [] { std::abort(); }},
                         {L"terminate", [] { std::terminate(); }},
                         {L"pure", [] { abi::__cxa_pure_virtual(); }}};

}  // namespace

void CrashIfAsked() {
    wchar_t name[32] = L"";
    GetEnvironmentVariableW(L"CORVANE_CRASH", name, 32);
    for (const Way& way : kWays) {
        if (way.name == name) way.crash();
    }
}

}  // namespace corvane::system
