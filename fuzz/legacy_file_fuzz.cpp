// Any bytes as the file of a legacy database, and as the record of a section. What is read can be
// written, and what was read once more is the same.
#include "fuzz/fuzz.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "legacy/section_from_legacy.h"
#include "legacy/section_to_legacy.h"
#include "platform/system.h"

namespace corvane {
namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// ---- The file ----------------------------------------------------------------------------------

std::wstring WriteFile(std::string_view bytes) {
    static std::wstring path;
    if (path.empty()) system::NewTemporaryName(system::TemporaryDirectory(), L"leg", path);
    system::File file;
    Require(system::CreateForWriting(path, file) == system::kErrorNone);
    Require(system::WriteBytes(file, bytes.data(), bytes.size()) == system::kErrorNone);
    system::CloseFile(file);
    return path;
}

// FNV-1a over words of 32 bits, put behind them.
void SetSum(std::string& bytes, size_t begin, size_t end) {
    if (end + sizeof(uint32_t) > bytes.size()) return;
    uint32_t sum = 2166136261U;
    for (size_t i = begin; i < end; i += sizeof(uint32_t)) {
        uint32_t word = 0;
        std::memcpy(&word, bytes.data() + i, sizeof(word));
        sum = (sum ^ word) * 16777619U;
    }
    std::memcpy(bytes.data() + end, &sum, sizeof(sum));
}

// Without fitting sums nothing but the head would be reached.
std::string WithSums(std::string_view bytes) {
    constexpr size_t kHead = 32;
    constexpr size_t kShip = 1188;
    constexpr size_t kSlot = 16600;
    std::string fitting(bytes);
    SetSum(fitting, 0, kHead - 4);
    SetSum(fitting, kHead, kHead + kShip - 4);
    for (size_t slot = kHead + kShip; slot + kSlot <= fitting.size(); slot += kSlot) {
        SetSum(fitting, slot, slot + kSlot - 4);
    }
    return fitting;
}

bool IsStatus(int16_t status) {
    return status >= kLegacyDone && status <= kLegacyNoSection;
}

void UseFile(std::string_view bytes) {
    const std::wstring file = WriteFile(bytes);
    const std::string path = system::AnsiFromWide(file);
    std::array<LegacySectionEntry, kLegacyListedSections> entries;
    int16_t status = -1;
    int16_t count = -1;
    getvelksections(path.c_str(), &status, &count, entries.data());
    Require(IsStatus(status) && count >= 0 && count <= kLegacyListedSections);
    alignas(LegacyBsd) std::array<char, kLegacyBsdBufferSize> bsd;
    int16_t shipStatus = -1;
    importvelknavi(path.c_str(), reinterpret_cast<LegacyBsd*>(bsd.data()), &shipStatus);
    Require(shipStatus == status);
    LegacyMainSection main{};
    for (int16_t section = 0; section <= count + 1; ++section) {
        Require(IsStatus(importvelkmainsec(path.c_str(), section, &main)));
    }
    extendvelkdb(path.c_str(), &shipStatus);
    Require(status == kLegacyDone || shipStatus == status);
    const int16_t before = count;
    getvelksections(path.c_str(), &status, &count, entries.data());
    const int16_t after = shipStatus == kLegacyDone ? before + 1 : before;
    Require(status != kLegacyDone || count == std::min<int>(after, kLegacyListedSections));
    system::RemoveFile(file);
}

// ---- The record --------------------------------------------------------------------------------

void UseRecord(std::string_view bytes) {
    const auto record = std::make_unique<LegacySectionRecord>();
    const size_t size = std::min(bytes.size(), sizeof(*record));
    std::memcpy(reinterpret_cast<char*>(record.get()), bytes.data(), size);
    SectionModel section;
    FromLegacyRecord(*record, section);
    Require(section.panels.size() <= kLegacyStrakes);
    Require(section.compartments.size() <= kLegacyCompartments);
    for (const Panel& panel : section.panels) {
        Require(panel.nodes.size() <= kLegacyNodes);
        Require(panel.stiffeners.size() == panel.stiffenerDetails.size());
    }
    ToLegacyRecord(section, *record);
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(legacy_file) {
    if (bytes.size() > 64 * 1024) return;
    corvane::UseFile(bytes);
    corvane::UseFile(corvane::WithSums(bytes));
    corvane::UseRecord(bytes);
}
