// Starting a program and waiting for its end.
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "companions/ztutil32/boolean.h"
#include "companions/ztutil32/program_name.h"
#include "platform/host/native.h"
#include "platform/ztutil32.h"

namespace {

// The words of the rest of a command line; what is in quotes is one word.
std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    bool inWord = false;
    bool inQuotes = false;
    for (const char character : text) {
        if (character == ' ' && !inQuotes) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (character == '"') {
            inQuotes = !inQuotes;
        } else {
            words.back() += character;
        }
    }
    return words;
}

bool IsProgram(std::string_view name) {
    std::string native;
    struct stat status;
    return corvane::system::NativePath(corvane::system::WideFromAnsi(name), native) ==
               corvane::system::kErrorNone &&
           stat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// An errno value, 0 on success.
int Start(std::string_view commandLine, pid_t& child) {
    const std::string name = corvane::ztutil::ProgramName(commandLine, IsProgram);
    std::string program;
    if (corvane::system::NativePath(corvane::system::WideFromAnsi(name), program) !=
        corvane::system::kErrorNone) {
        return ENOENT;
    }
    std::vector<std::string> words =
        WordsOf(commandLine.substr(corvane::ztutil::ProgramNameLength(commandLine, IsProgram)));
    std::vector<char*> arguments{program.data()};
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    return posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ);
}

}  // namespace

// The window style means nothing here.
CORVANE_EXPORT int16_t CORVANE_STDCALL ShellAndWait(const char* commandLine, int16_t) {
    if (commandLine == nullptr) return corvane::ztutil::Boolean(false);
    pid_t child = 0;
    const int error = Start(commandLine, child);
    if (error != 0) {
        errno = error;
        return corvane::ztutil::Boolean(false);
    }
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) continue;
    return WIFSIGNALED(status) ? corvane::kProgramCrashed : corvane::ztutil::Boolean(true);
}
