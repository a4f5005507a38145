#include "bsd/legacy_form.h"

#include <algorithm>
#include <cstring>

#include "platform/system.h"
#include "text/text.h"

namespace corvane {
namespace {

// Calls copy(field, legacy field) for every number and list of numbers.
template <class Bsd, class Legacy, class Copy>
void EachNumberField(Bsd& bsd, Legacy& legacy, Copy copy) {
    copy(bsd.TypeCodes.elements, legacy.TypeCodes);
    copy(bsd.GeneralData.elements, legacy.GeneralData);
    copy(bsd.MainData.elements, legacy.MainData);
    copy(bsd.Table2x10.elements, legacy.Table2x10);
    copy(bsd.Table6x5.elements, legacy.Table6x5);
    copy(bsd.PartCodes.elements, legacy.PartCodes);
    copy(bsd.PairCodes.elements, legacy.PairCodes);
    copy(bsd.PairData.elements, legacy.PairData);
    copy(bsd.Table3x2.elements, legacy.Table3x2);
    copy(bsd.EndData.elements, legacy.EndData);
    copy(bsd.FrameZoneCount, legacy.FrameZoneCount);
    copy(bsd.FrameNumbers.elements, legacy.FrameNumbers);
    copy(bsd.FrameZeroX, legacy.FrameZeroX);
    copy(bsd.ZoneSpacing.elements, legacy.ZoneSpacing);
    copy(bsd.CountA, legacy.CountA);
    copy(bsd.CountB, legacy.CountB);
    copy(bsd.CodeList.elements, legacy.CodeList);
    copy(bsd.TripleA.elements, legacy.TripleA);
    copy(bsd.TripleB.elements, legacy.TripleB);
    copy(bsd.TripleC.elements, legacy.TripleC);
    copy(bsd.List15.elements, legacy.List15);
    copy(bsd.SingleA, legacy.SingleA);
    copy(bsd.Block12.elements, legacy.Block12);
    copy(bsd.ReductionFactor, legacy.ReductionFactor);
    copy(bsd.ExtraData.elements, legacy.ExtraData);
}

// Both forms keep their numbers in the same order and size.
template <class From, class To>
void CopyNumbers(const From& from, To& to) {
    static_assert(sizeof(From) == sizeof(To));
    std::memcpy(&to, &from, sizeof(To));
}

template <int length>
void CopyText(const FixedText<length>& from, char (&to)[length]) {
    const std::string bytes = system::AnsiFromWide(from.Whole());
    std::copy_n(bytes.begin(), length, to);
}

template <int length>
void CopyText(const char (&from)[length], FixedText<length>& to) {
    to.Assign(CutAtNul(system::WideFromAnsi({from, length})));
}

}  // namespace

void ToLegacyForm(const BasicShipData& bsd, LegacyBsd& legacy) {
    CopyText(bsd.FormatVersion, legacy.FormatVersion);
    for (int i = 1; i <= 5; ++i) CopyText(bsd.Titles(i), legacy.Titles[i - 1]);
    CopyText(bsd.Remark, legacy.Remark);
    EachNumberField(bsd, legacy, [](const auto& from, auto& to) { CopyNumbers(from, to); });
}

void FromLegacyForm(const LegacyBsd& legacy, BasicShipData& bsd) {
    CopyText(legacy.FormatVersion, bsd.FormatVersion);
    for (int i = 1; i <= 5; ++i) CopyText(legacy.Titles[i - 1], bsd.Titles(i));
    CopyText(legacy.Remark, bsd.Remark);
    EachNumberField(bsd, legacy, [](auto& to, const auto& from) { CopyNumbers(from, to); });
}

}  // namespace corvane
