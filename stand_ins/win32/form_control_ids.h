// Identifiers of a stand-in's controls, by which tests and screen readers find them. Save is IDOK,
// Close is IDCANCEL.
#pragma once

namespace corvane::stand_ins {

inline constexpr int kNoteId = 1000;
inline constexpr int kStatusId = 1001;
inline constexpr int kLineId = 1002;
inline constexpr int kFactId = 1100;        // + 2 * index: the label; + 1: the value
inline constexpr int kFieldId = 1200;       // + index
inline constexpr int kFieldLabelId = 1300;  // + index
inline constexpr int kFieldUnitId = 1400;   // + index

inline constexpr wchar_t kStandInClass[] = L"CorvaneStandIn";

}  // namespace corvane::stand_ins
