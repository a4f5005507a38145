#include "tests/database/block_sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "database/scanning.h"
#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

float RandomSingle(Chance& chance) {
    const double mantissa = static_cast<int32_t>(chance.Below(2000001u)) - 1000000;
    return static_cast<float>(mantissa * std::pow(10.0, static_cast<int>(chance.Below(16u)) - 10));
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

std::string WithLineAfterEach(std::string_view text, std::string_view line) {
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

std::wstring RandomName(Chance& chance) {
    // The last letters are those of the system's code page.
    static const std::wstring characters =
        system::WideFromAnsi("ABCxyz 0123456789-*_.,;()\xE9\xB0'\"");
    std::wstring name;
    const uint32_t length = chance.Below(41u);
    for (uint32_t i = 0; i < length; ++i) {
        name += characters[chance.Below(static_cast<uint32_t>(characters.size()))];
    }
    return name;
}

float Draw(Chance& chance, float) {
    return RandomSingle(chance);
}
int16_t Draw(Chance& chance, int16_t) {
    return static_cast<int16_t>(chance.Below(65536u));
}
int32_t Draw(Chance& chance, int32_t) {
    return chance.shortIntegers ? Draw(chance, int16_t{}) : static_cast<int32_t>(chance.engine());
}

void FillProfile(Chance& chance, Scantlings& profile) {
    Fill(chance, profile.type, profile.webHeight_mm, profile.webThickness_mm,
         profile.flangeBreadth_mm, profile.flangeThickness_mm);
}

Node RandomNode(Chance& chance) {
    Node node{};
    Fill(chance, node.givenY, node.givenZ, node.inter, node.onStrake, node.onNode, node.shape,
         node.tangentY, node.tangentZ, node.radius, node.number);
    node.relative = static_cast<int16_t>(chance.Below(2u) == 0 ? 0 : -1);
    node.kind = static_cast<int32_t>(chance.Below(6u));
    if (node.kind == kNodeIntersection) {
        for (float& value : node.extension) Fill(chance, value);
        Fill(chance, node.extensionStrake);
    }
    return node;
}

Compartment RandomCompartment(Chance& chance) {
    Compartment compartment;
    compartment.name = RandomName(chance);
    Fill(chance, compartment.contents, compartment.kind, compartment.symmetric, compartment.hold,
         compartment.loadCase, compartment.closing);
    for (int16_t& flag : compartment.flags.elements) Fill(chance, flag);
    for (int16_t& end : compartment.ends.elements) Fill(chance, end);
    FillAll(chance, compartment.designValues);
    FillAll(chance, compartment.stillWaterPressure_kPa);
    FillAll(chance, compartment.wavePressure_kPa);
    compartment.levels.resize(chance.Below(9u));
    for (FillingLevel& level : compartment.levels) {
        Fill(chance, level.level_m, level.surfaceLength_m, level.surfaceBreadth_m);
    }
    return compartment;
}

}  // namespace corvane::test
