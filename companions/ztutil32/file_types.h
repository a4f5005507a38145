// The list of file types that the file prompt is given: "description|pattern|description|pattern".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::ztutil {

struct FileType {
    std::wstring description;
    std::wstring pattern;
};

// Takes the text up to the next bar off the front of `list`.
inline std::wstring TakePiece(std::wstring_view& list) {
    const size_t bar = list.find(L'|');
    std::wstring piece(list.substr(0, bar));
    list.remove_prefix(bar == std::wstring_view::npos ? list.size() : bar + 1);
    return piece;
}

// The types of a list. A description without a pattern gets that of `defaultExtension`, a pattern
// without a description describes itself; an empty list gives one type.
inline std::vector<FileType> FileTypesOf(std::wstring_view list,
                                         const std::wstring& defaultExtension) {
    const std::wstring defaultPattern =
        L"*." + (defaultExtension.empty() ? L"*" : defaultExtension);
    std::vector<FileType> types;
    do {
        FileType type{TakePiece(list), TakePiece(list)};
        if (type.pattern.empty()) type.pattern = defaultPattern;
        if (type.description.empty()) type.description = type.pattern;
        types.push_back(type);
    } while (!list.empty());
    return types;
}

// The types in the form of the system's prompt: every text closed by a NUL, the list by
// one more.
inline std::wstring FilterOf(const std::vector<FileType>& types) {
    std::wstring filter;
    for (const FileType& type : types) {
        filter += type.description + L'\0' + type.pattern + L'\0';
    }
    return filter + L'\0';
}

}  // namespace corvane::ztutil
