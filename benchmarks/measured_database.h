// A believable big database: file head, Basic Ship Data, and models whose bodies are tables of
// numbers as sections have them, about 30 KB each.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "benchmarks/measured_section.h"
#include "database/copying.h"
#include "database/creating.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/text_file.h"
#include "text/numbers.h"

namespace corvane::benchmarks {

inline constexpr int kRowsOfABody = 275;

// The same numbers in every run.
inline uint32_t NextRandom(uint32_t& state) {
    state = state * 1664525u + 1013904223u;
    return state >> 8;
}

// A row of a node table: a few small integers, coordinates in millimetres, thicknesses.
inline void WriteRow(TextWriter& writer, uint32_t& state) {
    std::array<char, 16 * kLongestNumber> row;
    char* end = row.data();
    for (int column = 0; column < 13; ++column) {
        const uint32_t random = NextRandom(state);
        if (column % 3 == 0) {
            end = AppendPrintForm(end, static_cast<int32_t>(random % 200));
        } else {
            end = AppendPrintForm(end, static_cast<float>(random % 40'000'000) / 1000.0f - 9000);
        }
        *end++ = '\t';
    }
    WriteLine(writer, {row.data(), static_cast<size_t>(end - row.data())});
}

inline void WriteBody(TextWriter& writer, uint32_t& state) {
    for (int row = 0; row < kRowsOfABody; ++row) {
        if (row % 60 == 0) {
            WriteLine(writer, "*");
            WriteLine(writer, "------------------ NODES ------------------");
            WriteLine(writer, "* Panel\ty\tz\tabs\tinter\tpanel\tnode\tcurve");
        }
        WriteRow(writer, state);
    }
}

inline void WriteModel(TextWriter& writer, int32_t number, const Stamp& stamp, uint32_t& state) {
    const auto kind = static_cast<ModelKind>(number % 10 == 9 ? 2 : number % 5 == 4 ? 1 : 0);
    WriteBlockHead(writer, number, kind, stamp);
    WriteLine(writer, "* Name");
    WriteLine(writer, "Frame " + std::to_string(number));
    WriteLine(writer, PrintForm(static_cast<float>(number) * 0.75f) + "\t 1 \t 0 ");
    WriteBody(writer, state);
}

// Opens a new database and writes its head.
inline bool BeginDatabase(TextWriter& writer, const std::wstring& path) {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"Sample ship");
    bsd.TypeCodes(1) = 1;
    bsd.MainData(1) = 180.5f;
    bsd.MainData(2) = 32.25f;
    bsd.MainData(3) = 19.6f;
    bsd.MainData(9) = 0.8f;
    const std::wstring headPath = path + L".head";
    if (!CreateDatabaseFile(headPath, bsd)) return false;
    TextReader head;
    if (!OpenText(head, headPath) || !CreateText(writer, path)) return false;
    CopyFileHead(head, writer);
    system::CloseFile(head.file);
    KillFile(headPath);
    return true;
}

// Writes a database of about `bytes`; the number of its models, -1 when it cannot be written.
inline int MakeDatabase(const std::wstring& path, int64_t bytes) {
    TextWriter writer;
    if (!BeginDatabase(writer, path)) return -1;
    const Stamp stamp = CurrentStamp();
    uint32_t state = 2026;
    int32_t number = 0;
    constexpr int64_t kBytesOfAModel = 33'000;
    for (int64_t written = 0; written < bytes; written += kBytesOfAModel) {
        WriteModel(writer, ++number, stamp, state);
    }
    return CloseText(writer) ? number : -1;
}

// The same, of whole sections, in which the check finds nothing.
inline int MakeSoundDatabase(const std::wstring& path, int64_t bytes) {
    TextWriter writer;
    if (!BeginDatabase(writer, path)) return -1;
    SectionModel section = MeasuredSection();
    int32_t number = 0;
    constexpr int64_t kBytesOfAModel = 55'000;
    for (int64_t written = 0; written < bytes; written += kBytesOfAModel) {
        section.identifier = "ID" + std::to_string(++number);
        WriteSectionBlock(writer, section, number);
    }
    return CloseText(writer) ? number : -1;
}

}  // namespace corvane::benchmarks
