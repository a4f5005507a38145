#include "database/model_kind.h"

namespace corvane {

ModelKind KindOfKeyword(std::string_view keyword) {
    if (keyword == kBulkheadKeyword) return ModelKind::kBulkhead;
    if (keyword == kTorsionKeyword) return ModelKind::kTorsion;
    return ModelKind::kSection;
}

std::string_view KeywordOfKind(ModelKind kind) {
    switch (kind) {
        case ModelKind::kBulkhead:
            return kBulkheadKeyword;
        case ModelKind::kTorsion:
            return kTorsionKeyword;
        case ModelKind::kSection:
            break;
    }
    return kSectionKeyword;
}

std::wstring KindName(ModelKind kind) {
    switch (kind) {
        case ModelKind::kBulkhead:
            return L"Bulkhead";
        case ModelKind::kTorsion:
            return L"Torsion";
        case ModelKind::kSection:
            break;
    }
    return L"Section";
}

}  // namespace corvane
