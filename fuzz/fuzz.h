// A fuzz target: a procedure over bytes that must neither crash nor hang nor break what it asserts.
// In the fuzz build each target is a libFuzzer program; in the tests it replays its corpus, the
// files of fuzz/corpus/<name>, as a unit test.
//
//     CORVANE_FUZZ_TARGET(number_row) { ... uses the std::string_view `bytes` ... }
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#if defined(CORVANE_FUZZER)

#define CORVANE_FUZZ_TARGET(name)                                             \
    static void name##Target(std::string_view bytes);                         \
    extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) { \
        name##Target({reinterpret_cast<const char*>(data), size});            \
        return 0;                                                             \
    }                                                                         \
    static void name##Target(std::string_view bytes)

#else

#include <gtest/gtest.h>

#include "tests/support/support.h"

#define CORVANE_FUZZ_TARGET(name)                                                             \
    static void name##Target(std::string_view bytes);                                         \
    TEST(FuzzCorpus, name) {                                                                  \
        const std::wstring folder = corvane::test::DataPath("../fuzz/corpus/" #name) + L"\\"; \
        const auto files = corvane::test::FilesIn(folder);                                    \
        ASSERT_FALSE(files.empty());                                                          \
        for (const auto& file : files) {                                                      \
            name##Target(corvane::test::ReadFileBytes(folder + file));                        \
        }                                                                                     \
    }                                                                                         \
    static void name##Target(std::string_view bytes)

#endif
