// Files that have stamps, for tests that compare them with golden files.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane::test {

// The text without the stamp lines that say who wrote it and when.
inline std::string WithoutStamps(std::string_view text) {
    std::string kept;
    while (!text.empty()) {
        const size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string_view line = text.substr(0, length);
        text.remove_prefix(length);
        bool isStamp = false;
        for (const std::string_view begin : {"* Program : ", "* Written by : ", "* User : "}) {
            isStamp = isStamp || line.starts_with(begin);
        }
        if (!isStamp) kept += line;
    }
    return kept;
}

}  // namespace corvane::test
