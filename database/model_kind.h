// The kinds of models in a database.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

enum class ModelKind : int16_t { kSection = 0, kBulkhead = 1, kTorsion = 2 };

inline constexpr std::string_view kSectionKeyword = "SECTION";
inline constexpr std::string_view kBulkheadKeyword = "BHA";
inline constexpr std::string_view kTorsionKeyword = "TORSION";

// The kind of a keyword line, compared exactly; any unknown keyword is a section.
ModelKind KindOfKeyword(std::string_view keyword);
std::string_view KeywordOfKind(ModelKind kind);

// "Section", "Bulkhead", "Torsion".
std::wstring KindName(ModelKind kind);

}  // namespace corvane
