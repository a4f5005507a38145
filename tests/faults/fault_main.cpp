// The tests; with "--edit EDIT FOLDER TEMPORARIES FAULT CALL", one edit with one fault; with
// "--wait MILLISECONDS", nothing for that time.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/faults/scene.h"
#include "tests/support/support.h"

int main(int count, char** arguments) {
    const std::string mode = count > 2 ? arguments[1] : "";
    if (mode == "--wait") {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(arguments[2])));
        return 0;
    }
    corvane::faults::InstallHooks();
    if (mode == "--edit") return corvane::faults::RunAsChild({arguments + 2, arguments + count});
    testing::InitGoogleTest(&count, arguments);
    // A file that has just been written is read with other calls than an older one.
    const corvane::test::FreshSettingsFile settings;
    // A disk would be asked some ten thousand times to keep what is thrown away.
    const corvane::test::TemporaryFilesInMemory memory;
    return RUN_ALL_TESTS();
}
