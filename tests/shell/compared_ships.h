// Two states of the sample ship, for tests of what compares them: each kind of difference once.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/shell/sample_models.h"
#include "tests/support/support.h"

namespace corvane::test {

// The head of a database, and its blocks.
inline std::vector<std::string> PartsOf(const std::string& text) {
    constexpr std::string_view kMarker = "====== CORVANE MODEL ======";
    std::vector<std::string> parts;
    for (size_t begin = 0; begin != std::string::npos;) {
        const size_t end = text.find(kMarker, begin + 1);
        parts.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return parts;
}

inline void Change(std::string& text, std::string_view from, std::string_view to) {
    const size_t place = text.find(from);
    ASSERT_NE(place, std::string::npos) << from;
    text.replace(place, from.size(), to);
}

inline std::string ShipBefore() {
    return ReadFileBytes(SamplePath());
}

// Rows of the box of their comparison.
enum ComparedRow {
    kShipChanged,
    kSectionChanged,   // 1: the deck at side is 2 m higher
    kSectionRenamed,   // 5
    kBulkheadRenamed,  // 12
    kSectionAdded,     // 15: the one that was 9 again, under another name and identifier
    kSectionRemoved,   // 3
    kTorsionRemoved,   // 14
    kComparedRows
};

inline std::string ShipNow() {
    std::vector<std::string> parts = PartsOf(ShipBefore());
    EXPECT_EQ(parts.size(), 15U);
    Change(parts[0], "Aurora Bay   ", "Aurora Bay II");
    Change(parts[1], " 5 \t14.8\t19.6", " 5 \t14.8\t21.6");
    Change(parts[5], "\r\nMidship section, hold 4\r\n", "\r\nMidship section\r\n");
    Change(parts[12], "\r\nCollision bulkhead, frame 254\r\n", "\r\nCollision bulkhead\r\n");
    std::string added = parts[9];
    Change(added, "\r\n 9 \r\n", "\r\n 15 \r\n");
    Change(added, "\r\nFore peak, frame 270\r\n", "\r\nFore peak, frame 280\r\n");
    Change(added, "AURORABAY-0009", "AURORABAY-0015");
    std::string text;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (i != 3 && i != 14) text += parts[i];
    }
    return text + added;
}

}  // namespace corvane::test
