// Every line of numbers of the ship record against its code letters: I integer of 16 bits, S
// single; "+" for a tab at the end of the line. Which field a column is the golden file shows
// (bsd_records_reader_test.cpp).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/bsd/bsd_support.h"

namespace corvane {
namespace {

constexpr int kTextLinesBefore = 6;  // version and titles
constexpr const char* kTripleLine = "SSSSSSSSSSSSSSS+";

std::vector<std::string> NumberLines() {
    std::vector<std::string> lines;
    const auto add = [&lines](int count, const char* codes) {
        lines.insert(lines.end(), count, codes);
    };
    add(2, "IIIII+");   // TypeCodes
    add(1, "SSSSSS+");  // GeneralData
    add(6, "SSSSS+");   // MainData
    add(10, "SS+");     // Table2x10
    add(5, "SSSSSS+");  // Table6x5
    add(1, "III+");     // PartCodes
    add(1, "II+");      // PairCodes
    add(1, "SS+");      // PairData
    add(2, "SSS+");     // Table3x2
    add(1, "SS+");      // EndData
    add(1, "II");       // FrameZoneCount, FrameNumbers(0)
    add(8, "IIIII+");   // FrameNumbers(1..40)
    add(1, "S");        // FrameZeroX
    add(8, "SSSSS+");   // ZoneSpacing
    add(1, "III");      // CountA, CountB, CodeList(0)
    add(5, "IIIII+");   // CodeList(1..25)
    add(2, kTripleLine);
    add(3, "SSSSS+");  // List15
    add(1, "S");       // SingleA
    add(1, "SSSS");    // Block12(1, 2, 5, 6)
    add(1, "SS");      // Block12(7, 11)
    add(1, "remark");
    add(1, "S");     // ReductionFactor
    add(1, "SSSS");  // ExtraData
    return lines;
}

// What is read and what is written of it, with another value in each column; integers are too
// large for 16 bits in `given` when asked for.
struct Texts {
    std::string given;
    std::string expected;
};
Texts TextsOf(bool tooLarge) {
    std::string head = "5\r\n";
    for (int i = 1; i <= 5; ++i) head += std::string(30, static_cast<char>('a' + i)) + "\r\n";
    Texts texts{head, head};
    int number = 0;
    for (const std::string& codes : NumberLines()) {
        std::string given;
        std::string expected;
        for (const char code : codes) {
            if (code == '+' || codes == "remark") break;
            const char* tab = given.empty() ? "" : "\t";
            const std::string whole = std::to_string(++number);
            const bool isInteger = code == 'I';
            given += tab + (isInteger ? (tooLarge ? "100" : "20") + std::to_string(100 + number)
                                      : whole + ".5");
            expected +=
                tab + (isInteger ? (tooLarge ? "32767" : "20" + std::to_string(100 + number))
                                 : whole + ".5");
        }
        if (codes == "remark") given = expected = std::string(50, 'r');
        if (codes.ends_with('+')) given += '\t', expected += '\t';
        texts.given += given + "\r\n";
        texts.expected += expected + "\r\n";
    }
    return texts;
}

TEST(BsdRows, AreReadAndWrittenWithTheirLetters) {
    ASSERT_EQ(NumberLines().size() + kTextLinesBefore, 71u);
    for (const bool tooLarge : {false, true}) {
        const Texts texts = TextsOf(tooLarge);
        BasicShipData bsd;
        EXPECT_EQ(test::ReadRecords(texts.given, bsd), 279);
        EXPECT_EQ(test::RecordsWritten(bsd), texts.expected);
    }
}

}  // namespace
}  // namespace corvane
