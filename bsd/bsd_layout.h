// The order of the records' numbers and the line breaks between them, declared once for the reader
// and the writer. docs/bsd-file.md shows the layout.
#pragma once

#include <span>
#include <string_view>

#include "bsd/basic_ship_data.h"

namespace corvane {

// What follows a number in the file.
inline constexpr std::string_view kTab = "\t";
inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr std::string_view kTabAndLineEnd = "\t\r\n";

// A tab after every value, and a line end after every `perLine` of them. A list whose length is
// no multiple of `perLine` leaves its last line open.
template <class List, class Visit>
void VisitRows(List&& list, int perLine, Visit& visit) {
    int inLine = 0;
    for (auto& value : list) {
        ++inLine;
        visit(value, inLine == perLine ? kTabAndLineEnd : kTab);
        if (inLine == perLine) inLine = 0;
    }
}

// All on one line, tabs only between them.
template <class Visit, class... Numbers>
void VisitLine(Visit& visit, Numbers&... numbers) {
    size_t left = sizeof...(numbers);
    (visit(numbers, --left == 0 ? kLineEnd : kTab), ...);
}

template <class Visit>
void VisitTriples(BasicShipData& bsd, Visit& visit) {
    for (int k = 1; k <= 10; ++k) {
        visit(bsd.TripleA(k), kTab);
        visit(bsd.TripleB(k), kTab);
        visit(bsd.TripleC(k), k % 5 == 0 ? kTabAndLineEnd : kTab);
    }
}

// Calls visit(number, what follows it) for all numbers between the titles and the remark, in the
// order of the file.
template <class Visit>
void VisitNumbers(BasicShipData& bsd, Visit visit) {
    VisitRows(bsd.TypeCodes.elements, 5, visit);
    VisitRows(bsd.GeneralData.elements, 6, visit);
    VisitRows(bsd.MainData.elements, 5, visit);
    VisitRows(bsd.Table2x10.elements, 2, visit);
    VisitRows(bsd.Table6x5.elements, 6, visit);
    VisitRows(bsd.PartCodes.elements, 3, visit);
    VisitRows(bsd.PairCodes.elements, 2, visit);
    VisitRows(bsd.PairData.elements, 2, visit);
    VisitRows(bsd.Table3x2.elements, 3, visit);
    VisitRows(bsd.EndData.elements, 2, visit);
    VisitLine(visit, bsd.FrameZoneCount, bsd.FrameNumbers(0));
    VisitRows(std::span(bsd.FrameNumbers.elements).subspan(1), 5, visit);
    VisitLine(visit, bsd.FrameZeroX);
    VisitRows(bsd.ZoneSpacing.elements, 5, visit);
    VisitLine(visit, bsd.CountA, bsd.CountB, bsd.CodeList(0));
    VisitRows(std::span(bsd.CodeList.elements).subspan(1), 5, visit);
    VisitTriples(bsd, visit);
    VisitRows(bsd.List15.elements, 5, visit);
    VisitLine(visit, bsd.SingleA);
    VisitLine(visit, bsd.Block12(1), bsd.Block12(2), bsd.Block12(5), bsd.Block12(6));
    VisitLine(visit, bsd.Block12(7), bsd.Block12(11));
}

// The same for the numbers after the remark; ExtraData are in files from layout version 4 on.
template <class Visit>
void VisitReductionFactor(BasicShipData& bsd, Visit visit) {
    VisitLine(visit, bsd.ReductionFactor);
}

template <class Visit>
void VisitExtraData(BasicShipData& bsd, Visit visit) {
    VisitLine(visit, bsd.ExtraData(1), bsd.ExtraData(2), bsd.ExtraData(3), bsd.ExtraData(4));
}

}  // namespace corvane
