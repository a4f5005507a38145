#include "tests/database/block_sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "database/scanning.h"
#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

float RandomSingle(RandomRow& row) {
    const double mantissa = static_cast<int32_t>(row.Below(2000001)) - 1000000;
    return static_cast<float>(mantissa * std::pow(10.0, static_cast<int>(row.Below(16)) - 10));
}

}  // namespace

std::string WrittenText(const std::function<void(TextWriter&)>& write) {
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"block.ve2");
    TextWriter writer;
    CreateText(writer, path);
    write(writer);
    EXPECT_TRUE(CloseText(writer));
    return ReadFileBytes(path);
}

void ReadFromText(std::string_view text, const std::function<void(TextReader&)>& read) {
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"block.ve2");
    WriteFileBytes(path, text);
    TextReader reader;
    EXPECT_TRUE(OpenText(reader, path));
    read(reader);
}

std::string BodyOf(std::string_view text) {
    const std::string label = FetchStructuralLines().nameLabel + "\r\n";
    const size_t place = text.find(label);
    if (place == std::string_view::npos) {
        ADD_FAILURE() << "no name label";
        return {};
    }
    return std::string(text.substr(place + label.size()));
}

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
    const size_t place = text.find(from);
    if (place == std::string_view::npos) {
        ADD_FAILURE() << "the text has no " << from;
        return std::string(text);
    }
    return std::string(text.substr(0, place)).append(to).append(text.substr(place + from.size()));
}

std::string WithLineBehindEach(std::string_view text, std::string_view line) {
    std::string result;
    for (const char character : text) {
        result += character;
        if (character == '\n') result.append(line).append("\r\n");
    }
    return result;
}

std::vector<std::string> Tables(std::string_view text) {
    std::vector<std::string> tables;
    size_t begin = 0;
    for (size_t at = text.find("\r\n------"); at != std::string_view::npos;
         at = text.find("\r\n------", at + 1)) {
        tables.emplace_back(text.substr(begin, at + 2 - begin));
        begin = at + 2;
    }
    tables.emplace_back(text.substr(begin));
    return tables;
}

std::string WithTablesReversed(std::string_view text) {
    std::vector<std::string> tables = Tables(text);
    std::reverse(tables.begin() + 2, tables.end());
    std::string result;
    for (const std::string& table : tables) result += table;
    return result;
}

std::string WithoutPart(std::string_view text, size_t piece) {
    std::vector<std::string> tables = Tables(text);
    tables.at(piece).clear();
    std::string result;
    for (const std::string& table : tables) result += table;
    return result;
}

Compartment SampleCompartment() {
    Compartment compartment;
    compartment.contents = 1;
    compartment.kind = 2;
    compartment.symmetric = 1;
    compartment.hold = 3;
    compartment.designValues(1) = 1.025f;
    compartment.designValues(2) = 0.76f;
    compartment.designValues(20) = -20;
    compartment.loadCase = 4;
    compartment.stillWaterPressure_kPa = {{10, 20, 30, 0, 0, 0, 0, 0, 0, 0.5f}};
    compartment.wavePressure_kPa = {{1, 2, 3, 0, 0, 0, 0, 0, 0, -4}};
    compartment.levels = {{0.5f, 12, 6.25f}, {1.6f, 12.8f, 16}};
    compartment.flags = {{1, 2, 3}};
    compartment.ends = {{120, 152}};
    compartment.closing = -1;
    return compartment;
}

std::wstring RandomName(RandomRow& row) {
    // The last letters are those of the system's code page.
    static const std::wstring characters =
        system::WideFromAnsi("ABCxyz 0123456789-*_.,;()\xE9\xB0'\"");
    std::wstring name;
    const uint32_t length = row.Below(41);
    for (uint32_t i = 0; i < length; ++i)
        name += characters[row.Below(static_cast<uint32_t>(characters.size()))];
    return name;
}

float Draw(RandomRow& row, float) {
    return RandomSingle(row);
}
int16_t Draw(RandomRow& row, int16_t) {
    return static_cast<int16_t>(row.Below(65536));
}
int32_t Draw(RandomRow& row, int32_t) {
    return static_cast<int32_t>(row.numbers());
}

void FillProfile(RandomRow& row, Scantlings& profile) {
    Fill(row, profile.type, profile.webHeight_mm, profile.webThickness_mm, profile.flangeBreadth_mm,
         profile.flangeThickness_mm);
}

Node RandomNode(RandomRow& row) {
    Node node{};
    Fill(row, node.givenY, node.givenZ, node.inter, node.onStrake, node.onNode, node.shape,
         node.tangentY, node.tangentZ, node.radius, node.number);
    node.relative = static_cast<int16_t>(row.Below(2) == 0 ? 0 : -1);
    node.kind = static_cast<int32_t>(row.Below(6));
    if (node.kind == kNodeIntersection) {
        for (float& value : node.extension) Fill(row, value);
        Fill(row, node.extensionStrake);
    }
    return node;
}

Compartment RandomCompartment(RandomRow& row) {
    Compartment compartment;
    compartment.name = RandomName(row);
    Fill(row, compartment.contents, compartment.kind, compartment.symmetric, compartment.hold,
         compartment.loadCase, compartment.closing, compartment.flags(2), compartment.ends(1));
    FillAll(row, compartment.designValues);
    FillAll(row, compartment.stillWaterPressure_kPa);
    FillAll(row, compartment.wavePressure_kPa);
    compartment.levels.resize(row.Below(9));
    for (FillingLevel& level : compartment.levels) {
        Fill(row, level.level_m, level.surfaceLength_m, level.surfaceBreadth_m);
    }
    return compartment;
}

}  // namespace corvane::test
