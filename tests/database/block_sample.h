// What tests of section blocks and of bulkhead arrangements share: texts of blocks, and values at
// random.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "database/section.h"
#include "files/text_file.h"
#include "tests/support/chance.h"

namespace corvane::test {

// What the procedure writes.
std::string WrittenText(const std::function<void(TextWriter&)>& write);
// Lets the procedure read the text.
void ReadFromText(std::string_view text, const std::function<void(TextReader&)>& read);

// The text from the line after the name label on.
std::string BodyOf(std::string_view text);
// The text with the first `from` replaced; a test fails when it has none.
std::string Replaced(std::string_view text, std::string_view from, std::string_view to);
// The text with another line after every line.
std::string WithLineAfterEach(std::string_view text, std::string_view line);
// The block cut into its pieces, label lines first: the file's head, its own, and its tables.
std::vector<std::string> Tables(std::string_view text);
// Of both golden files: file head, block head, eleven tables.
inline constexpr size_t kBlockParts = 13;
// The text with its tables in the opposite order; and without one of those pieces.
std::string WithTablesReversed(std::string_view text);
std::string WithoutPart(std::string_view text, size_t piece);

// ---- At random ---------------------------------------------------------------------------------

std::wstring RandomName(Chance& chance);
float Draw(Chance& chance, float);
int16_t Draw(Chance& chance, int16_t);
int32_t Draw(Chance& chance, int32_t);

template <class... Fields>
void Fill(Chance& chance, Fields&... fields) {
    ((fields = Draw(chance, fields)), ...);
}
template <int last>
void FillAll(Chance& chance, Array<float, 1, last>& array) {
    for (float& element : array.elements) Fill(chance, element);
}
void FillProfile(Chance& chance, Scantlings& profile);
Node RandomNode(Chance& chance);
// Without an outline.
Compartment RandomCompartment(Chance& chance);

}  // namespace corvane::test
