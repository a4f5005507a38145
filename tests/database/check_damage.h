// What the tests of the check share: databases as lines, damaged, and the report on them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "database/check.h"
#include "tests/support/support.h"

namespace corvane::test {

// The lines of a text, each with its end.
inline std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (size_t begin = 0; begin < text.size();) {
        const size_t feed = text.find('\n', begin);
        const size_t end = feed == std::string_view::npos ? text.size() : feed + 1;
        lines.emplace_back(text.substr(begin, end - begin));
        begin = end;
    }
    return lines;
}

inline std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line;
    return text;
}

struct CheckedFile {
    bool isDone = false;
    CheckResult result;
    std::vector<Finding> findings;
};

inline CheckedFile Checked(const std::wstring& path) {
    CheckedFile checked;
    const auto keep = [&](const Finding& finding) { checked.findings.push_back(finding); };
    checked.isDone = CheckDatabase(path, keep, checked.result);
    return checked;
}

inline std::vector<std::string> ReportOf(const CheckedFile& checked) {
    std::vector<std::string> lines;
    for (const Finding& finding : checked.findings) lines.push_back(Narrow(ReportLineOf(finding)));
    return lines;
}

// The database in which the check finds nothing: a section, a bulkhead arrangement, a torsion
// model, a bare section.
inline std::string SoundDatabase() {
    return ReadFileBytes(DataPath("golden/checked.ve2"));
}

}  // namespace corvane::test
