#include <dlfcn.h>
#include <unistd.h>

#include <string>

#include "platform/companion.h"
#include "platform/host/native.h"

namespace corvane {
namespace {

// "GrVelk.dll" is GrVelk.so beside the program.
std::string CompanionFile(const std::string& library) {
    std::string program;
    system::NativePath(system::ProgramPath(), program);
    return program.substr(0, program.rfind('/') + 1) + library.substr(0, library.rfind('.')) +
           ".so";
}

}  // namespace

void RestrictLibrarySearch() {}

void* FindLibraryFunction(const char* library, const char* function, uint32_t& error) {
    constexpr uint32_t kBadImage = 193;
    const std::string file = CompanionFile(library);
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        error = access(file.c_str(), F_OK) == 0 ? kBadImage : system::kErrorModuleNotFound;
        return nullptr;
    }
    void* address = dlsym(module, function);
    error = address == nullptr ? system::kErrorProcedureNotFound : 0;
    return address;
}

}  // namespace corvane
