#include "tests/tools/run_program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "files/paths.h"
#include "platform/host/native.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

std::string NativeName(const std::wstring& path) {
    std::string native;
    system::NativePath(path, native);
    return native;
}

// In the child: the program instead of this one.
[[noreturn]] void Become(const std::vector<std::string>& texts, const char* out, const char* err) {
    std::vector<char*> arguments;
    for (const std::string& text : texts) arguments.push_back(const_cast<char*>(text.c_str()));
    arguments.push_back(nullptr);
    dup2(open("/dev/null", O_RDONLY), 0);
    dup2(open(out, O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
    dup2(open(err, O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

std::string Program() {
    return NativeName(DirectoryOf(system::ProgramPath()) + L"corvane");
}

ProgramRun Run(const std::string& program, const std::vector<std::wstring>& arguments,
               const char* where) {
    const TemporaryFolder folder;
    const std::string out = where == nullptr ? NativeName(folder.File(L"out")) : where;
    const std::string err = NativeName(folder.File(L"err"));
    std::vector<std::string> texts{program};
    for (const std::wstring& argument : arguments) {
        texts.push_back(system::Utf8FromWide(argument));
    }
    const pid_t child = fork();
    if (child == 0) Become(texts, out.c_str(), err.c_str());
    ProgramRun run;
    int status = 0;
    if (child == -1 || waitpid(child, &status, 0) != child) return run;
    if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
    if (where == nullptr) run.out = ReadFileBytes(folder.File(L"out"));
    run.err = ReadFileBytes(folder.File(L"err"));
    return run;
}

}  // namespace

ProgramRun RunProgram(const std::vector<std::wstring>& arguments) {
    return Run(Program(), arguments, nullptr);
}

ProgramRun RunProgramAlone(const std::vector<std::wstring>& arguments) {
    const TemporaryFolder folder;
    const std::string copy = NativeName(folder.File(L"corvane"));
    std::filesystem::copy_file(Program(), copy);
    return Run(copy, arguments, nullptr);
}

ProgramRun RunProgramOnFullDisk(const std::vector<std::wstring>& arguments) {
    return Run(Program(), arguments, "/dev/full");
}

}  // namespace corvane::test
