#include "database/model_kind.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "database/column_names.h"
#include "database/describing.h"
#include "database/editing.h"
#include "report/messages.h"

namespace corvane {
namespace {

constexpr std::array kKinds = {
    KindFacts{.kind = ModelKind::kSection,
              .keyword = kSectionKeyword,
              .name = L"Section",
              .icon = 1,
              .menuCaption = L"&Section",
              .exchangeSuffix = L"",
              .formatVersion = kSectionFormatVersion,
              .hasPosition = true,
              .identifierLine = 10,
              .inputProgram = {.message = kMsgSectionProgram},
              .ruleProgram = {.message = kMsgRuleProgram},
              .csrProgram = {.fixedName = L"CsrCheck.exe"},
              .isCopiedWithBackup = true,
              .writeCopy = WriteCopyOfSection,
              .describe = DescribeSection,
              .names = SectionNames},
    KindFacts{.kind = ModelKind::kBulkhead,
              .keyword = kBulkheadKeyword,
              .name = L"Bulkhead",
              .icon = 2,
              .menuCaption = L"Bul&khead",
              .exchangeSuffix = L" (bulkhead)",
              .formatVersion = kBulkheadFormatVersion,
              .hasPosition = true,
              .identifierLine = 4,
              .inputProgram = {.fixedName = L"BhdInput.exe"},
              .ruleProgram = {.fixedName = L"BhdCheck.exe"},
              .csrProgram = {.fixedName = L"BhdCheck.exe"},
              .isCopiedWithBackup = true,
              .writeCopy = WriteCopyOfBulkhead,
              .describe = DescribeBulkhead,
              .names = BulkheadNames},
    KindFacts{.kind = ModelKind::kTorsion,
              .keyword = kTorsionKeyword,
              .name = L"Torsion",
              .icon = 3,
              .menuCaption = L"&Torsion",
              .exchangeSuffix = L" (torsion)",
              .formatVersion = kSectionFormatVersion,
              .hasPosition = false,
              .identifierLine = 0,
              .inputProgram = {.fixedName = L"TorModel.exe"},
              .ruleProgram = {.fixedName = L"TorModel.exe"},
              .csrProgram = {.fixedName = L"TorModel.exe"},
              .isCopiedWithBackup = false,
              .writeCopy = WriteCopyOfTorsion,
              .describe = DescribeTorsion,
              .names = TorsionNames},
};

}  // namespace

std::wstring ProgramFileName(const ProgramFile& program) {
    return program.fixedName != nullptr ? program.fixedName : GetMessage(program.message);
}

std::span<const KindFacts> Kinds() {
    return kKinds;
}

const KindFacts& FactsOf(ModelKind kind) {
    const auto index = static_cast<size_t>(kind);
    assert(index < kKinds.size() && kKinds[index].kind == kind);
    return kKinds[index];
}

ModelKind KindOfKeyword(std::string_view keyword) {
    const auto found = std::ranges::find(kKinds, keyword, &KindFacts::keyword);
    return found == kKinds.end() ? ModelKind::kSection : found->kind;
}

std::string_view KeywordOfKind(ModelKind kind) {
    return FactsOf(kind).keyword;
}

std::wstring KindName(ModelKind kind) {
    return FactsOf(kind).name;
}

}  // namespace corvane
