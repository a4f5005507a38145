// The hooks of Windows. The libraries kernel32 and kernelbase, whose functions the program calls,
// reach the file system through a few functions of ntdll: their import tables get our replacements.
#include <array>
#include <cstdlib>
#include <cstring>
#include <set>
#include <vector>

#include "platform/win32/win32.h"
#include "tests/faults/injection.h"
#include "tests/faults/win32/set_times.h"

namespace corvane::faults {
namespace {

using Status = LONG;

struct StatusBlock {
    Status status;
    ULONG_PTR information;
};

Status StatusOf(system::ErrorNumber error) {
    switch (error) {
        case system::kErrorAccessDenied:
            return static_cast<Status>(0xC0000022);
        case system::kErrorSharingViolation:
            return static_cast<Status>(0xC0000043);
        case system::kErrorDiskFull:
            return static_cast<Status>(0xC000007F);
        default:
            return static_cast<Status>(0xC0000185);  // I/O device error
    }
}

// The handles of files: the other ones that are closed meanwhile are no business of ours.
std::set<HANDLE>& OpenFiles() {
    static std::set<HANDLE> files;
    return files;
}

// ---- The functions -----------------------------------------------------------------------------
// A table of names, which are also the kinds of calls, and for each an object with the function
// itself and its replacement. Arguments are passed on as they come.

constexpr std::array kNames = {
    "NtCreateFile",
    "NtOpenFile",
    "NtReadFile",
    "NtWriteFile",
    "NtFlushBuffersFile",
    "NtSetInformationFile",
    "NtQueryInformationFile",
    "NtQueryAttributesFile",
    "NtQueryFullAttributesFile",
    "NtQueryDirectoryFile",
    "NtQueryVolumeInformationFile",
    "NtFsControlFile",
    "NtDeleteFile",
    "NtClose",
};

using Argument = ULONG_PTR;

template <size_t kName, class... Arguments>
struct Hook {
    static inline Status (*real)(Arguments...) = nullptr;

    static Status Replacement(Arguments... arguments) {
        if (BeforeCall(kNames[kName]) == Step::kFail) return StatusOf(PlannedError());
        const Status status = real(arguments...);
        AfterCall();
        return status;
    }
};

// Opening a file: the handle that comes out is remembered.
template <size_t kName, class... Arguments>
struct OpeningHook {
    static inline Status (*real)(HANDLE*, Arguments...) = nullptr;

    static Status Replacement(HANDLE* handle, Arguments... arguments) {
        if (BeforeCall(kNames[kName]) == Step::kFail) return StatusOf(PlannedError());
        const Status status = real(handle, arguments...);
        if (status >= 0) OpenFiles().insert(*handle);
        AfterCall();
        return status;
    }
};

struct WritingHook {
    static inline Status (*real)(HANDLE, HANDLE, void*, void*, StatusBlock*, const void*, ULONG,
                                 void*, void*) = nullptr;

    static Status Replacement(HANDLE file, HANDLE event, void* routine, void* context,
                              StatusBlock* result, const void* bytes, ULONG count, void* offset,
                              void* key) {
        const Step step = BeforeCall("NtWriteFile");
        if (step == Step::kFail) return StatusOf(PlannedError());
        const ULONG length = step == Step::kHalf ? count / 2 : count;
        const Status status =
            real(file, event, routine, context, result, bytes, length, offset, key);
        if (step == Step::kHalf) AfterHalf();
        AfterCall();
        return status;
    }
};

// One of the many things that are set is the name.
struct SettingHook {
    static inline Status (*real)(HANDLE, StatusBlock*, void*, ULONG, ULONG) = nullptr;

    static Status Replacement(HANDLE file, StatusBlock* result, void* value, ULONG size,
                              ULONG what) {
        constexpr ULONG kRename = 10;
        constexpr ULONG kRenameEx = 65;
        const bool isRename = what == kRename || what == kRenameEx;
        const char* const kind = isRename ? kRenameForWindows : "NtSetInformationFile";
        if (BeforeCall(kind) == Step::kFail) return StatusOf(PlannedError());
        constexpr ULONG kBasic = 4;  // its first field is the time of creation; 0 leaves that
        if (what == kBasic && *static_cast<int64_t*>(value) > 0) {
            CreationTimesSet().push_back(*static_cast<int64_t*>(value));
        }
        const Status status = real(file, result, value, size, what);
        AfterCall();
        return status;
    }
};

// Closing fails only after the fact.
struct ClosingHook {
    static inline Status (*real)(HANDLE) = nullptr;

    static Status Replacement(HANDLE handle) {
        if (OpenFiles().erase(handle) == 0) return real(handle);
        const bool fails = BeforeCall("NtClose") == Step::kFail;
        const Status status = real(handle);
        AfterCall();
        return fails ? StatusOf(PlannedError()) : status;
    }
};

struct Replacement {
    const char* name;
    void* replacement;
    void (*keep)(void* real);
};

template <class Hooked>
Replacement Replaced(const char* name) {
    return {name, reinterpret_cast<void*>(&Hooked::Replacement), [](void* real) {
                if (Hooked::real == nullptr) {
                    Hooked::real = reinterpret_cast<decltype(Hooked::real)>(real);
                }
            }};
}

// All arguments fit a register, and nobody here distinguishes them.
using A = Argument;
const std::array kReplacements = {
    Replaced<OpeningHook<0, A, A, A, A, A, A, A, A, A, A>>(kNames[0]),
    Replaced<OpeningHook<1, A, A, A, A, A>>(kNames[1]),
    Replaced<Hook<2, A, A, A, A, A, A, A, A, A>>(kNames[2]),
    Replaced<WritingHook>(kNames[3]),
    Replaced<Hook<4, A, A>>(kNames[4]),
    Replaced<SettingHook>(kNames[5]),
    Replaced<Hook<6, A, A, A, A, A>>(kNames[6]),
    Replaced<Hook<7, A, A>>(kNames[7]),
    Replaced<Hook<8, A, A>>(kNames[8]),
    Replaced<Hook<9, A, A, A, A, A, A, A, A, A, A, A>>(kNames[9]),
    Replaced<Hook<10, A, A, A, A, A>>(kNames[10]),
    Replaced<Hook<11, A, A, A, A, A, A, A, A, A, A>>(kNames[11]),
    Replaced<Hook<12, A>>(kNames[12]),
    Replaced<ClosingHook>(kNames[13]),
};

// ---- Import tables -----------------------------------------------------------------------------

void ReplaceEntry(void** entry, const char* name) {
    for (const Replacement& replacement : kReplacements) {
        if (std::strcmp(replacement.name, name) != 0) continue;
        replacement.keep(*entry);
        DWORD protection = 0;
        VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection);
        *entry = replacement.replacement;
        VirtualProtect(entry, sizeof *entry, protection, &protection);
    }
}

void ReplaceImports(const wchar_t* library) {
    auto* const base = reinterpret_cast<char*>(GetModuleHandleW(library));
    if (base == nullptr) return;
    const auto at = [base](DWORD offset) { return base + offset; };
    const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* imported = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(at(directory.VirtualAddress));
    for (; imported->Name != 0; ++imported) {
        auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(at(imported->OriginalFirstThunk));
        auto* entries = reinterpret_cast<void**>(at(imported->FirstThunk));
        for (; names->u1.AddressOfData != 0; ++names, ++entries) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto offset = static_cast<DWORD>(names->u1.AddressOfData);
            ReplaceEntry(entries, reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(at(offset))->Name);
        }
    }
}

}  // namespace

std::vector<int64_t>& CreationTimesSet() {
    static std::vector<int64_t> times;
    return times;
}

const int kCallsOfAnOpening = 1;
const int kCallsOfARename = 7;

void InstallHooks() {
    ReplaceImports(L"kernel32.dll");
    ReplaceImports(L"kernelbase.dll");
}

void KillThisProcess() {
    TerminateProcess(GetCurrentProcess(), kKilledStatus);
    std::abort();
}

void SetTemporaryFolder(const std::wstring& folder) {
    SetEnvironmentVariableW(L"TMP", folder.c_str());
}

}  // namespace corvane::faults
