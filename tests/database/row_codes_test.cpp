// Every row of a section block and of a bulkhead arrangement against its code letters: as many
// columns as letters, each in its letter's form, and each of them another field.
#include "tests/database/row_codes.h"

#include <gtest/gtest.h>

#include "database/scanning.h"
#include "report/messages.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/section_sample.h"

namespace corvane {
namespace {

using test::CodedText;
using test::Columns;
using test::Filling;

using SectionLine = test::CodedLine<SectionModel>;
using ArrangementLine = test::CodedLine<BulkheadArrangement>;
using Fixed = std::map<size_t, std::string>;

std::string Label(MessageNumber number) {
    return GetMessageBytes(number);
}

template <int last>
void Append(Columns& columns, const Array<float, 1, last>& list) {
    columns.insert(columns.end(), list.elements.begin(), list.elements.end());
}

void Append(Columns& columns, const Scantlings& profile) {
    columns.insert(columns.end(),
                   {double(profile.type), profile.webHeight_mm, profile.webThickness_mm,
                    profile.flangeBreadth_mm, profile.flangeThickness_mm});
}

// In the file a node is absolute, in the record relative; the code is kept beside it.
template <class Owner>
Columns NodeColumns(const Owner& owner, size_t index) {
    const Node& node = owner.nodes.at(index);
    return {node.givenY,        node.givenZ,           double(owner.absoluteCodes.at(index)),
            double(node.inter), double(node.onStrake), double(node.onNode),
            double(node.shape), node.tangentY,         node.tangentZ,
            node.radius};
}

// ---- Section -----------------------------------------------------------------------------------

const Panel& PanelOf(const SectionModel& section) {
    return section.panels.at(0);
}
const Span& SpanOf(const SectionModel& section, size_t index) {
    return PanelOf(section).stiffenerDetails.at(0).spans.at(index);
}

Columns SpanColumns(const Span& span) {
    Columns columns;
    Append(columns, span.scantlings);
    columns.insert(columns.end(), {span.length_m, double(span.material), span.aftLength_m,
                                   double(span.aftConnection), span.foreLength_m,
                                   double(span.foreConnection), span.reduction_m, span.spacing_m});
    if (span.bracket.present) {
        columns.insert(columns.end(), {double(span.bracket.kind), span.bracket.length_m});
        Append(columns, span.bracket.scantlings);
        columns.push_back(span.bracket.material);
    }
    columns.push_back(span.position);
    return columns;
}

std::vector<SectionLine> HeadOfSection() {
    std::vector<SectionLine> lines = {
        {"Name", {}},
        {"SSSSIIISS",
         [](const SectionModel& s) -> Columns {
             return {s.x_m,
                     s.breadth_m,
                     s.depth_m,
                     s.draught_m,
                     double(s.shipType),
                     double(s.classCode),
                     double(s.navigationCode),
                     s.frameSpacing_m,
                     s.webSpacing_m};
         }},
    };
    for (int k = 1; k <= 3; ++k) {
        lines.push_back({"FFF", [k](const SectionModel& s) -> Columns {
                             return {s.stillWaterMoment_kNm(k), s.waveMoment_kNm(k),
                                     s.shearForce_kN(k)};
                         }});
    }
    const std::vector<SectionLine> rest = {
        {"SS",
         [](const SectionModel& s) -> Columns { return {s.deckModulus_m3, s.bottomModulus_m3}; }},
        {"SSLL",
         [](const SectionModel& s) -> Columns {
             return {s.bottomSlope_deg, s.sideSlope_deg, double(s.stressRule),
                     double(s.bucklingRule)};
         }},
        {"LI",
         [](const SectionModel& s) -> Columns {
             return {double(s.momentsAbsent), double(s.moduliAbsent)};
         }},
        {"SSS",
         [](const SectionModel& s) -> Columns {
             return {s.tolerance_m, s.ballastDraught_m, s.cargoHeight_m};
         }},
        {"LIISS",
         [](const SectionModel& s) -> Columns {
             return {double(s.symmetryMode), double(s.materialGroup), double(s.corrosionRule),
                     s.holdLength_m, s.holdAft_m};
         }},
        {"Identifier", {}},
        {"", {}},
        {" 0 \t 0 ", {}},
        {" 0 \t 0 ", {}},
        {"SSSSIIIIB",
         [](const SectionModel& s) -> Columns {
             return {s.neutralAxis_m,
                     s.area_m2,
                     s.inertiaY_m4,
                     s.inertiaZ_m4,
                     double(s.resultCodes(1)),
                     double(s.resultCodes(2)),
                     double(s.resultCodes(3)),
                     double(s.resultCodes(4)),
                     double(s.resultsValid)};
         },
         Fixed(), "", 5},
    };
    lines.insert(lines.end(), rest.begin(), rest.end());
    return lines;
}

std::vector<SectionLine> PanelsOfSection() {
    const auto node = [](const SectionModel& s, size_t i) {
        Columns columns = NodeColumns(PanelOf(s), i);
        columns.push_back(PanelOf(s).nodes.at(i).number);
        if (PanelOf(s).nodes.at(i).kind == kNodeIntersection) {
            for (const float value : PanelOf(s).nodes.at(i).extension) columns.push_back(value);
            columns.push_back(PanelOf(s).nodes.at(i).extensionStrake);
        }
        return columns;
    };
    return {
        {Label(kMsgPanelTable), {}},
        {"TSSSIIIIIII",
         [](const SectionModel& s) -> Columns {
             const Panel& p = PanelOf(s);
             return {p.spacing_m,
                     p.span_m,
                     p.thickness_mm,
                     double(p.kind),
                     double(p.material),
                     double(p.countExcess(1)) + double(p.nodes.size()),
                     double(p.countExcess(2)) + double(p.plates.size()),
                     double(p.countExcess(3)) + double(p.stiffeners.size()),
                     double(p.countExcess(4)) + double(p.brackets.size())};
         },
         Fixed{{7, " 1 "}}},
        {Label(kMsgNodeTable), {}},
        {"ITTILIILSSSLI", [node](const SectionModel& s) { return node(s, 0); },
         Fixed{{1, " 1 "}, {12, " 1 "}}},
        {"ITTILIILSSSLISSSSSI", [node](const SectionModel& s) { return node(s, 1); },
         Fixed{{1, " 1 "}, {12, " 5 "}}},
        {Label(kMsgPlateTable), {}},
        {"ITSLSSI",
         [](const SectionModel& s) -> Columns {
             const Plate& p = PanelOf(s).plates.at(0);
             return {p.end_m,     p.thickness_mm, double(p.material),
                     p.spacing_m, p.span_m,       double(p.corrosionSide)};
         },
         Fixed{{1, " 1 "}}},
        {Label(kMsgStiffenerTable), {}},
        // The library's side has 16 bits.
        {"IIIISLSLLL",
         [](const SectionModel& s) -> Columns {
             const Stiffener& f = PanelOf(s).stiffeners.at(0);
             const StiffenerDetail& d = PanelOf(s).stiffenerDetails.at(0);
             return {double(f.onStrake),
                     double(f.onNode),
                     double(f.count),
                     f.offset,
                     f.spacing,
                     double(d.spanCountExcess) + double(d.spans.size()),
                     double(d.connection),
                     double(d.mirrored)};
         },
         Fixed{{1, " 1 "}, {6, "-1 "}}},
        {Label(kMsgSpanTable), {}},
        {"ILSSSSTITITITSL", [](const SectionModel& s) { return SpanColumns(SpanOf(s, 0)); },
         Fixed{{1, " 1 "}}},
        {"", {}},
        {"ILSSSSTITITITSLSLSSSSIL", [](const SectionModel& s) { return SpanColumns(SpanOf(s, 1)); },
         Fixed{{1, " 1 "}}},
        {"", {}},
    };
}

// The lines that a compartment and a hold have alike.
template <class Record>
std::vector<test::CodedLine<Record>> ValuesOfCompartment(
    std::function<const Compartment&(const Record&)> of) {
    return {
        {"LLII",
         [of](const Record& r) -> Columns {
             const Compartment& c = of(r);
             return {double(c.contents), double(c.kind), double(c.symmetric), double(c.hold)};
         }},
        {"FFFFFFFFFFFFFFFFFFFF",
         [of](const Record& r) {
             Columns columns;
             Append(columns, of(r).designValues);
             return columns;
         }},
        {"L", [of](const Record& r) -> Columns { return {double(of(r).loadCase)}; }},
        {"FFFFFFFFFFFFFFFFFFFF",
         [of](const Record& r) {
             Columns columns;
             Append(columns, of(r).stillWaterPressure_kPa);
             Append(columns, of(r).wavePressure_kPa);
             return columns;
         }},
        {"LTTTTTT",
         [of](const Record& r) {
             const Compartment& c = of(r);
             Columns columns = {double(c.levelCountExcess) + double(c.levels.size())};
             for (const FillingLevel& level : c.levels) {
                 columns.insert(columns.end(),
                                {level.level_m, level.surfaceLength_m, level.surfaceBreadth_m});
             }
             return columns;
         }},
    };
}

Columns LastColumns(const Compartment& c) {
    return {double(c.flags(1)), double(c.flags(2)), double(c.flags(3)),
            double(c.ends(1)),  double(c.ends(2)),  double(c.closing)};
}

std::vector<SectionLine> CompartmentsOfSection() {
    const auto of = [](const SectionModel& s) -> const Compartment& {
        return s.compartments.at(0);
    };
    std::vector<SectionLine> lines = {
        {Label(kMsgCompartmentSizeTable), {}},
        {" 8 ", {}},
        {Label(kMsgCompartmentTable), {}},
        {"Compartment", {}},
        {"IIIIII",
         [of](const SectionModel& s) -> Columns {
             const std::vector<NodeReference>& o = of(s).outline;
             return {double(o.at(0).strake), double(o.at(0).node), double(o.at(1).strake),
                     double(o.at(1).node), double(of(s).outlineEnd.strake)};
         },
         Fixed{{6, " 0 "}}},
    };
    const std::vector<SectionLine> values = ValuesOfCompartment<SectionModel>(of);
    lines.insert(lines.end(), values.begin(), values.end());
    lines.push_back({"IIIIII", [of](const SectionModel& s) { return LastColumns(of(s)); }});
    return lines;
}

std::vector<SectionLine> FurtherItemsOfSection() {
    const auto scantlings = [](int k) {
        return [k](const SectionModel& s) {
            const PrimaryBracket& b = PanelOf(s).brackets.at(0);
            Columns columns;
            Append(columns, b.scantlings(k));
            if (k == 2) columns.push_back(b.middleLength_m);
            if (k == 3) columns.push_back(b.toeLength_m);
            return columns;
        };
    };
    return {
        {Label(kMsgBracketTable), {}},
        {"IIIIIIIIISLIL",
         [](const SectionModel& s) -> Columns {
             const PrimaryBracket& b = PanelOf(s).brackets.at(0);
             return {double(b.item),      double(b.from.strake), double(b.from.node),
                     double(b.to.strake), double(b.to.node),     double(b.aftFrame),
                     double(b.foreFrame), double(b.side),        b.armLength_m,
                     double(b.kind),      double(b.material),    double(b.endType)};
         },
         Fixed{{1, " 1 "}}, "\t"},
        {"LSSSS", scantlings(1), {}, "\t"},
        {"LSSSSS", scantlings(2)},
        {"LSSSSS", scantlings(3)},
        {Label(kMsgOpeningTable), {}},
        {"IIIIIIIIISS",
         [](const SectionModel& s) -> Columns {
             const Opening& o = PanelOf(s).openings.at(0);
             return {double(o.item),  double(o.at.strake),  double(o.at.node),  double(o.shape),
                     double(o.count), double(o.reinforced), double(o.aftFrame), double(o.foreFrame),
                     o.length_m,      o.breadth_m};
         },
         Fixed{{1, " 1 "}}},
        {Label(kMsgPillarTable), {}},
        {"IIIIILS",
         [](const SectionModel& s) -> Columns {
             const Pillar& p = PanelOf(s).pillars.at(0);
             return {double(p.item),  double(p.to.strake), double(p.to.node),
                     double(p.count), double(p.kind),      p.length_m};
         },
         Fixed{{1, " 1 "}}},
        {"TILSILSLSI",
         [](const SectionModel& s) -> Columns {
             const Pillar& p = PanelOf(s).pillars.at(0);
             return {double(p.material),        double(p.profile),         p.area_cm2,
                     double(p.lowerConnection), double(p.upperConnection), p.webHeight_mm,
                     double(p.slenderness),     p.webThickness_mm,         double(p.corrosion)};
         },
         Fixed{{1, "0.75"}}},
        {Label(kMsgFatigueTable), {}},
        {"III", [](const SectionModel&) { return Columns(); },
         Fixed{{1, " 1 "}, {2, " 1 "}, {3, " 2 "}}},
        {"SILLSII",
         [](const SectionModel& s) -> Columns {
             const FatigueTable& f = SpanOf(s, 1).fatigue;
             return {f.length_m, double(f.detail), double(f.weld), double(f.environment),
                     f.gap_mm,   double(f.grade)};
         },
         Fixed{{7, " 0 "}}},
        {"I", [](const SectionModel&) { return Columns(); }, Fixed{{1, " 9 "}}},
        {"SSSSSSSSS",
         [](const SectionModel& s) {
             Columns columns;
             Append(columns, SpanOf(s, 1).fatigue.stress_MPa);
             return columns;
         }},
    };
}

std::vector<SectionLine> LinesOfSection() {
    std::vector<SectionLine> lines = HeadOfSection();
    for (const auto& part : {PanelsOfSection(), CompartmentsOfSection(), FurtherItemsOfSection()}) {
        lines.insert(lines.end(), part.begin(), part.end());
    }
    return lines;
}

// ---- Bulkhead arrangement ----------------------------------------------------------------------

const Bulkhead& BulkheadOf(const BulkheadArrangement& arrangement) {
    return arrangement.bulkheads.at(0);
}
const SecondaryStiffener& StiffenerOf(const BulkheadArrangement& arrangement) {
    return BulkheadOf(arrangement).secondaryStiffeners.at(0);
}

std::vector<ArrangementLine> HeadOfArrangement() {
    return {
        {"Name", {}},
        {"SSL",
         [](const BulkheadArrangement& a) -> Columns {
             return {a.x_m, a.stoolVolume_m3, double(a.symmetric)};
         }},
        {"SSSS",
         [](const BulkheadArrangement& a) -> Columns {
             return {a.aftHopper.breadth_m, a.aftHopper.top_m, a.foreHopper.breadth_m,
                     a.foreHopper.top_m};
         }},
        {"LI",
         [](const BulkheadArrangement& a) -> Columns {
             return {double(a.stateType), double(a.stateIndex)};
         }},
        {"Identifier", {}},
        {Label(kMsgPanelTable), {}},
        {"TLILLISISISSSS",
         [](const BulkheadArrangement& a) -> Columns {
             const Bulkhead& b = BulkheadOf(a);
             return {double(b.kind),
                     double(b.material),
                     double(b.stiffening),
                     double(b.stiffenedSide),
                     double(b.stools(1).enabled),
                     b.stools(1).z_m,
                     double(b.stools(2).enabled),
                     b.stools(2).z_m,
                     double(b.stoolEndCode),
                     b.stoolEnds_m(1),
                     b.stoolEnds_m(2),
                     b.stoolEnds_m(3),
                     b.stoolEnds_m(4)};
         }},
        {Label(kMsgNodeTable), {}},
        {"ITTILIILSSSLI",
         [](const BulkheadArrangement& a) {
             Columns columns = NodeColumns(BulkheadOf(a), 0);
             columns.insert(columns.end(), {double(BulkheadOf(a).nodes.at(0).kind),
                                            double(BulkheadOf(a).nodes.at(0).number)});
             return columns;
         },
         Fixed{{1, " 1 "}}},
    };
}

std::vector<ArrangementLine> StiffenersOfArrangement() {
    const auto endBracket = [](const BulkheadArrangement& a) {
        const EndBracket& b = StiffenerOf(a).brackets(2);
        Columns columns = {double(b.fixed)};
        Append(columns, b.scantlings);
        columns.push_back(b.length_m);
        return columns;
    };
    return {
        {"------------------ PRIMARY STIFF ------------------", {}},
        {"ILS",
         [](const BulkheadArrangement& a) -> Columns {
             const PrimaryStiffener& p = BulkheadOf(a).primaryStiffeners.at(0);
             return {double(p.direction), p.position_m};
         },
         Fixed{{1, " 1 "}}},
        {"ILSTT",
         [](const BulkheadArrangement& a) -> Columns {
             const PrimaryStiffener& p = BulkheadOf(a).primaryStiffeners.at(1);
             return {double(p.direction), p.position_m, p.lowerExtremity_m, p.upperExtremity_m};
         },
         Fixed{{1, " 1 "}}},
        {"------------------ SECONDARY STIFF ------------------", {}},
        {"ISLSSSSILTTSL",
         [](const BulkheadArrangement& a) {
             const SecondaryStiffener& s = StiffenerOf(a);
             Columns columns = {s.position_m};
             Append(columns, s.scantlings);
             columns.insert(columns.end(),
                            {double(s.material), double(s.spanCount), s.lowerExtremity_m,
                             s.upperExtremity_m, s.spanReduction_m, double(s.connection)});
             return columns;
         },
         Fixed{{1, " 1 "}}},
        {"------------------ BRACK SCANT ------------------", {}},
        {"IIIII",
         [](const BulkheadArrangement& a) -> Columns {
             return {double(StiffenerOf(a).brackets(1).fixed)};
         },
         Fixed{{1, " 1 "}, {2, " 1 "}, {3, " 1 "}, {4, " 0 "}}},
        {"IIIIILSSSSS", endBracket, Fixed{{1, " 1 "}, {2, " 1 "}, {3, " 2 "}, {4, "-1 "}}},
        {"------------------ SPAN SCANT ------------------", {}},
        {"IIILSSSSI",
         [](const BulkheadArrangement& a) {
             Columns columns;
             Append(columns, StiffenerOf(a).spans.at(4).scantlings);
             columns.push_back(StiffenerOf(a).spans.at(4).material);
             return columns;
         },
         Fixed{{1, " 1 "}, {2, " 1 "}, {3, " 4 "}}},
        {"------------------ SPAN BRACK ------------------", {}},
        {"IIISS",
         [](const BulkheadArrangement& a) -> Columns {
             const BulkheadSpan& span = StiffenerOf(a).spans.at(4);
             return {span.lowerBracketLength_m, span.upperBracketLength_m};
         },
         Fixed{{1, " 1 "}, {2, " 1 "}, {3, " 4 "}}},
    };
}

std::vector<ArrangementLine> PlatingOfArrangement() {
    return {
        {"------------------ BH CORR ------------------", {}},
        {"ISSSSII",
         [](const BulkheadArrangement& a) -> Columns {
             const Corrugation& c = BulkheadOf(a).corrugation;
             return {c.start_m,           c.pitch_m, c.flange_m, c.depth_m, double(c.fixedUpper),
                     double(c.fixedLower)};
         },
         Fixed{{1, " 1 "}}},
        {"------------------ BH STRAKE ------------------", {}},
        {"IIISSSI",
         [](const BulkheadArrangement& a) -> Columns {
             const BulkheadStrake& strake = BulkheadOf(a).bands.at(2).at(0);
             return {strake.z_m, strake.y_m, strake.thickness_mm, double(strake.material)};
         },
         Fixed{{1, " 1 "}, {2, " 2 "}, {3, " 1 "}}},
    };
}

std::vector<ArrangementLine> LinesOfArrangement() {
    const auto of = [](const BulkheadArrangement& a) -> const Compartment& {
        return a.holds.at(0);
    };
    std::vector<ArrangementLine> lines = HeadOfArrangement();
    const std::vector<ArrangementLine> hold = {
        {Label(kMsgCompartmentSizeTable), {}},
        {" 8 ", {}},
        {Label(kMsgCompartmentTable), {}},
        {"Hold", {}},
        {"no node list", {}},
    };
    for (const auto& part : {StiffenersOfArrangement(), PlatingOfArrangement(), hold,
                             ValuesOfCompartment<BulkheadArrangement>(of)}) {
        lines.insert(lines.end(), part.begin(), part.end());
    }
    lines.push_back({"IIIIIII", [of](const BulkheadArrangement& a) { return LastColumns(of(a)); },
                     Fixed{{7, " 1 "}}, "*"});
    return lines;
}

// ---- Both --------------------------------------------------------------------------------------

std::string BlockOf(std::string_view keyword, const std::string& body) {
    const StructuralLines lines = FetchStructuralLines();
    return lines.modelMarker + "\r\n*\r\n 1 \r\n" + std::string(keyword) + "\r\n*\r\n" +
           lines.versionLabel + "\r\n 2 \r\n*\r\n" + lines.nameLabel + "\r\n" + body;
}

template <class Record>
void ExpectColumns(const std::vector<test::CodedLine<Record>>& lines, const CodedText& text,
                   const Record& record) {
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].columns) continue;
        EXPECT_EQ(lines[i].columns(record), text.values[i]) << lines[i].codes;
    }
}

SectionModel ReadSection(const CodedText& text) {
    return test::ReadText(BlockOf("SECTION", text.given));
}
BulkheadArrangement ReadArrangement(const CodedText& text) {
    return test::ReadArrangement(BlockOf("BHA", text.given));
}

TEST(SectionRows, EachColumnIsItsOwnField) {
    const auto lines = LinesOfSection();
    const CodedText text = TextOf(lines, Filling::kDistinct);
    ExpectColumns(lines, text, ReadSection(text));
}

TEST(SectionRows, AreWrittenWithTheirLetters) {
    for (const Filling filling : {Filling::kDistinct, Filling::kTooLarge}) {
        const CodedText text = TextOf(LinesOfSection(), filling);
        SectionModel section = ReadSection(text);
        EXPECT_EQ(test::DataLines(test::BodyText(section)), test::DataLines(text.expected));
    }
}

TEST(BulkheadRows, EachColumnIsItsOwnField) {
    const auto lines = LinesOfArrangement();
    const CodedText text = TextOf(lines, Filling::kDistinct);
    ExpectColumns(lines, text, ReadArrangement(text));
}

TEST(BulkheadRows, AreWrittenWithTheirLetters) {
    for (const Filling filling : {Filling::kDistinct, Filling::kTooLarge}) {
        const CodedText text = TextOf(LinesOfArrangement(), filling);
        BulkheadArrangement arrangement = ReadArrangement(text);
        EXPECT_EQ(test::DataLines(test::BodyText(arrangement)), test::DataLines(text.expected));
    }
}

}  // namespace
}  // namespace corvane
