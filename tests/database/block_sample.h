// What tests of section blocks and of bulkhead arrangements share: texts of blocks, and values at
// random.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "database/section.h"
#include "files/text_file.h"

namespace corvane::test {

// What the procedure writes.
std::string WrittenText(const std::function<void(TextWriter&)>& write);
// Lets the procedure read the text.
void ReadFromText(std::string_view text, const std::function<void(TextReader&)>& read);

// The text from the line behind the name label on.
std::string BodyOf(std::string_view text);
// The text with the first `from` replaced; a test fails when it has none.
std::string Replaced(std::string_view text, std::string_view from, std::string_view to);
// The text with a line of its own behind every line.
std::string WithLineBehindEach(std::string_view text, std::string_view line);
// The block cut into its pieces, label lines first: the file's head, its own, and its tables.
std::vector<std::string> Tables(std::string_view text);
// The text with its tables in the opposite order; and without one of those pieces.
std::string WithTablesReversed(std::string_view text);
std::string WithoutPart(std::string_view text, size_t piece);

// The first compartment of both golden files, but for its name and outline.
Compartment SampleCompartment();

// ---- At random ---------------------------------------------------------------------------------

struct RandomRow {
    std::mt19937 numbers;
    uint32_t Below(uint32_t bound) { return static_cast<uint32_t>(numbers() % bound); }
};

std::wstring RandomName(RandomRow& row);
float Draw(RandomRow& row, float);
int16_t Draw(RandomRow& row, int16_t);
int32_t Draw(RandomRow& row, int32_t);

template <class... Fields>
void Fill(RandomRow& row, Fields&... fields) {
    ((fields = Draw(row, fields)), ...);
}
template <int last>
void FillAll(RandomRow& row, Array<float, 1, last>& array) {
    for (float& element : array.elements) Fill(row, element);
}
void FillProfile(RandomRow& row, Scantlings& profile);
Node RandomNode(RandomRow& row);
// Without an outline.
Compartment RandomCompartment(RandomRow& row);

}  // namespace corvane::test
