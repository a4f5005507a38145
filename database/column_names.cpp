#include "database/column_names.h"

#include "database/bulkhead_lines.h"
#include "report/messages.h"
#include "text/text.h"

namespace corvane {
namespace {

using enum LineForm;

constexpr wchar_t kMetres[] = L"m";
constexpr wchar_t kMillimetres[] = L"mm";

// ---- The head of a section ---------------------------------------------------------------------

constexpr ColumnName kPlaceColumns[] = {{L"X", kMetres},          {L"Breadth", kMetres},
                                        {L"Depth", kMetres},      {L"Draught", kMetres},
                                        {L"Ship type"},           {L"Class code"},
                                        {L"Navigation code"},     {L"Frame spacing", kMetres},
                                        {L"Web spacing", kMetres}};
constexpr ColumnName kHoggingColumns[] = {{L"Still water moment, hogging", L"kN m"},
                                          {L"Wave moment, hogging", L"kN m"},
                                          {L"Shear force, hogging", L"kN"}};
constexpr ColumnName kSaggingColumns[] = {{L"Still water moment, sagging", L"kN m"},
                                          {L"Wave moment, sagging", L"kN m"},
                                          {L"Shear force, sagging", L"kN"}};
constexpr ColumnName kHarbourColumns[] = {{L"Still water moment, harbour", L"kN m"},
                                          {L"Wave moment, harbour", L"kN m"},
                                          {L"Shear force, harbour", L"kN"}};
constexpr ColumnName kModulusColumns[] = {{L"Deck modulus", L"m3"}, {L"Bottom modulus", L"m3"}};
constexpr ColumnName kSlopeColumns[] = {{L"Bottom slope", L"degrees"},
                                        {L"Side slope", L"degrees"},
                                        {L"Stress rule"},
                                        {L"Buckling rule"}};
constexpr ColumnName kAbsentColumns[] = {{L"Moments absent"}, {L"Moduli absent"}};
constexpr ColumnName kToleranceColumns[] = {
    {L"Tolerance", kMetres}, {L"Ballast draught", kMetres}, {L"Cargo height", kMetres}};
constexpr ColumnName kSymmetryColumns[] = {{L"Symmetry mode"},
                                           {L"Material group"},
                                           {L"Corrosion rule"},
                                           {L"Hold length", kMetres},
                                           {L"Hold aft", kMetres}};
constexpr ColumnName kIdentifierColumn[] = {{L"Identifier"}};
constexpr ColumnName kReservedColumns[] = {{L"Reserved", L"", 2}};
constexpr ColumnName kResultColumns[] = {{L"Neutral axis", kMetres}, {L"Area", L"m2"},
                                         {L"Inertia y", L"m4"},      {L"Inertia z", L"m4"},
                                         {L"Result code", L"", 4},   {L"Results valid"}};

constexpr LineNames kSectionHeadLines[] = {
    {kNumbers, kPlaceColumns},   {kNumbers, kHoggingColumns},   {kNumbers, kSaggingColumns},
    {kNumbers, kHarbourColumns}, {kNumbers, kModulusColumns},   {kNumbers, kSlopeColumns},
    {kNumbers, kAbsentColumns},  {kNumbers, kToleranceColumns}, {kNumbers, kSymmetryColumns},
    {kName, kIdentifierColumn},  {kNumbers, kReservedColumns},  {kNumbers, kReservedColumns},
    {kNumbers, kResultColumns}};
constexpr ItemNames kSectionHead{L"Head", false, {}, kSectionHeadLines, true};

// ---- Tables of a section -----------------------------------------------------------------------

constexpr ColumnName kPanelColumns[] = {{L"Name"},
                                        {L"Spacing", kMetres},
                                        {L"Span", kMetres},
                                        {L"Thickness", kMillimetres},
                                        {L"Kind"},
                                        {L"Material"},
                                        {L"Number"},
                                        {L"Number of nodes"},
                                        {L"Number of plates"},
                                        {L"Number of stiffeners"},
                                        {L"Number of primary brackets"}};
constexpr LineNames kPanelLines[] = {{kNameAndNumbers, kPanelColumns}};
constexpr ItemNames kPanel{L"Panel", false, {}, kPanelLines};

// Of a bulkhead's node the first twelve.
constexpr ColumnName kNodeColumns[] = {{L"y", kMetres},
                                       {L"z", kMetres},
                                       {L"Absolute"},
                                       {L"Inter"},
                                       {L"On panel"},
                                       {L"On node"},
                                       {L"Shape"},
                                       {L"Tangent point y", kMetres},
                                       {L"Tangent point z", kMetres},
                                       {L"Radius", kMetres},
                                       {L"Kind"},
                                       {L"Number"},
                                       {L"Line y1", kMetres},
                                       {L"Line z1", kMetres},
                                       {L"Line y2", kMetres},
                                       {L"Line z2", kMetres},
                                       {L"Shift", kMetres},
                                       {L"Crossed strake"}};
constexpr LineNames kNodeLines[] = {{kNumbers, kNodeColumns}};
constexpr ItemNames kNode{L"Node", true, {}, kNodeLines};

constexpr ColumnName kPlateColumns[] = {{L"End", kMetres},  {L"Thickness", kMillimetres},
                                        {L"Material"},      {L"Spacing", kMetres},
                                        {L"Span", kMetres}, {L"Corrosion side"}};
constexpr LineNames kPlateLines[] = {{kNumbers, kPlateColumns}};
constexpr ItemNames kPlate{L"Plate", true, {}, kPlateLines};

constexpr ColumnName kStiffenerColumns[] = {
    {L"On strake"},        {L"On node"},         {L"Count"},      {L"Offset", kMetres}, {L"Side"},
    {L"Spacing", kMetres}, {L"Number of spans"}, {L"Connection"}, {L"Mirrored"}};
constexpr LineNames kStiffenerLines[] = {{kNumbers, kStiffenerColumns}};
constexpr ItemNames kStiffener{L"Stiffener", true, {}, kStiffenerLines};

constexpr ColumnName kSpanColumns[] = {{L"Profile type"},
                                       {L"Web height", kMillimetres},
                                       {L"Web thickness", kMillimetres},
                                       {L"Flange breadth", kMillimetres},
                                       {L"Flange thickness", kMillimetres},
                                       {L"Length", kMetres},
                                       {L"Material"},
                                       {L"Aft length", kMetres},
                                       {L"Aft connection"},
                                       {L"Fore length", kMetres},
                                       {L"Fore connection"},
                                       {L"Reduction"},
                                       {L"Spacing", kMetres},
                                       {L"Bracket kind"},
                                       {L"Bracket length", kMetres},
                                       {L"Bracket profile type"},
                                       {L"Bracket web height", kMillimetres},
                                       {L"Bracket web thickness", kMillimetres},
                                       {L"Bracket flange breadth", kMillimetres},
                                       {L"Bracket flange thickness", kMillimetres},
                                       {L"Bracket material"},
                                       {L"Position"}};
// The bracket comes between the first 13 columns and the position.
constexpr LineNames kSpanLines[] = {{kNumbers, kSpanColumns, 0, 8, 13}};
constexpr ItemNames kSpan{L"Span", true, {}, kSpanLines};

constexpr ColumnName kSizeColumns[] = {{L"Size"}};
constexpr LineNames kSizeLines[] = {{kNumbers, kSizeColumns}};
constexpr ItemNames kSize{L"Compartment size", false, {}, kSizeLines, true};

constexpr ColumnName kCompartmentName[] = {{L"Name"}};
constexpr ColumnName kOutlineColumns[] = {{L"Outline panel"}, {L"Outline node"}};
constexpr ColumnName kContentsColumns[] = {{L"Contents"}, {L"Kind"}, {L"Symmetric"}, {L"Hold"}};
constexpr ColumnName kDesignColumns[] = {
    {L"Density", L"t/m3"}, {L"Air pipe height", kMetres}, {L"Design value after these", L"", 18}};
constexpr ColumnName kLoadCaseColumns[] = {{L"Load case"}};
constexpr ColumnName kPressureColumns[] = {{L"Still water pressure", L"kPa", 10},
                                           {L"Wave pressure", L"kPa", 10}};
constexpr ColumnName kLevelColumns[] = {{L"Number of filling levels"},
                                        {L"Filling level", kMetres},
                                        {L"Free surface length", kMetres},
                                        {L"Free surface breadth", kMetres}};
constexpr ColumnName kFlagColumns[] = {
    {L"Flag", L"", 3}, {L"Aft frame"}, {L"Fore frame"}, {L"Closing"}, {L"Ballast hold"}};
constexpr LineNames kCompartmentLines[] = {
    {kName, kCompartmentName},    {kNumbers, kOutlineColumns, 2}, {kNumbers, kContentsColumns},
    {kNumbers, kDesignColumns},   {kNumbers, kLoadCaseColumns},   {kNumbers, kPressureColumns},
    {kNumbers, kLevelColumns, 3}, {kNumbers, kFlagColumns}};
constexpr ItemNames kCompartment{L"Compartment", false, {}, kCompartmentLines};

constexpr ColumnName kBracketColumns[] = {
    {L"Bracket"},    {L"From panel"}, {L"From node"},
    {L"To panel"},   {L"To node"},    {L"Aft frame"},
    {L"Fore frame"}, {L"Side"},       {L"Arm length", kMetres},
    {L"Kind"},       {L"Material"},   {L"End type"}};
constexpr ColumnName kRootColumns[] = {{L"Profile type at the root"},
                                       {L"Web height at the root", kMillimetres},
                                       {L"Web thickness at the root", kMillimetres},
                                       {L"Flange breadth at the root", kMillimetres},
                                       {L"Flange thickness at the root", kMillimetres}};
constexpr ColumnName kMiddleColumns[] = {{L"Profile type in the middle"},
                                         {L"Web height in the middle", kMillimetres},
                                         {L"Web thickness in the middle", kMillimetres},
                                         {L"Flange breadth in the middle", kMillimetres},
                                         {L"Flange thickness in the middle", kMillimetres},
                                         {L"Length in the middle", kMetres}};
constexpr ColumnName kToeColumns[] = {{L"Profile type at the toe"},
                                      {L"Web height at the toe", kMillimetres},
                                      {L"Web thickness at the toe", kMillimetres},
                                      {L"Flange breadth at the toe", kMillimetres},
                                      {L"Flange thickness at the toe", kMillimetres},
                                      {L"Length at the toe", kMetres}};
constexpr LineNames kBracketLines[] = {{kNumbers, kBracketColumns},
                                       {kNumbers, kRootColumns},
                                       {kNumbers, kMiddleColumns},
                                       {kNumbers, kToeColumns}};
constexpr ItemNames kBracket{L"Primary bracket", true, {}, kBracketLines};

constexpr ColumnName kOpeningColumns[] = {
    {L"Opening"},    {L"At panel"},  {L"At node"},    {L"Shape"},           {L"Count"},
    {L"Reinforced"}, {L"Aft frame"}, {L"Fore frame"}, {L"Length", kMetres}, {L"Breadth", kMetres}};
constexpr LineNames kOpeningLines[] = {{kNumbers, kOpeningColumns}};
constexpr ItemNames kOpening{L"Opening", true, {}, kOpeningLines};

constexpr ColumnName kPillarColumns[] = {{L"Pillar"}, {L"To panel"}, {L"To node"},
                                         {L"Count"},  {L"Kind"},     {L"Length", kMetres}};
constexpr ColumnName kPillarProfileColumns[] = {{L"Offset", kMetres},
                                                {L"Material"},
                                                {L"Profile type"},
                                                {L"Area", L"cm2"},
                                                {L"Lower connection"},
                                                {L"Upper connection"},
                                                {L"Web height", kMillimetres},
                                                {L"Slenderness"},
                                                {L"Web thickness", kMillimetres},
                                                {L"Corrosion"}};
constexpr LineNames kPillarLines[] = {{kNumbers, kPillarColumns},
                                      {kNumbers, kPillarProfileColumns}};
constexpr ItemNames kPillar{L"Pillar", true, {}, kPillarLines};

constexpr const wchar_t* kFatigueKeys[] = {L"stiffener", L"span"};
constexpr ColumnName kFatigueKeyColumns[] = {{L"Stiffener"}, {L"Span"}};
constexpr ColumnName kFatigueColumns[] = {
    {L"Length", kMetres},   {L"Detail"}, {L"Weld"},    {L"Environment"},
    {L"Gap", kMillimetres}, {L"Grade"},  {L"Reserved"}};
constexpr ColumnName kFatigueSizeColumns[] = {{L"Number of stresses"}};
constexpr ColumnName kStressColumns[] = {{L"Stress", L"MPa", 9}};
constexpr LineNames kFatigueLines[] = {{kNumbers, kFatigueKeyColumns},
                                       {kNumbers, kFatigueColumns},
                                       {kNumbers, kFatigueSizeColumns},
                                       {kNumbers, kStressColumns}};
constexpr ItemNames kFatigue{L"Fatigue", true, kFatigueKeys, kFatigueLines};

// ---- Bulkhead arrangements ---------------------------------------------------------------------

constexpr ColumnName kArrangementColumns[] = {
    {L"X", kMetres}, {L"Stool volume", L"m3"}, {L"Symmetric"}};
constexpr ColumnName kHopperColumns[] = {{L"Aft hopper breadth", kMetres},
                                         {L"Aft hopper top", kMetres},
                                         {L"Fore hopper breadth", kMetres},
                                         {L"Fore hopper top", kMetres}};
constexpr ColumnName kStateColumns[] = {{L"State type"}, {L"State index"}};
constexpr LineNames kBulkheadHeadLines[] = {{kNumbers, kArrangementColumns},
                                            {kNumbers, kHopperColumns},
                                            {kNumbers, kStateColumns},
                                            {kName, kIdentifierColumn}};
constexpr ItemNames kBulkheadHead{L"Head", false, {}, kBulkheadHeadLines, true};

constexpr ColumnName kBulkheadColumns[] = {{L"Name"},
                                           {L"Kind"},
                                           {L"Material"},
                                           {L"Stiffening"},
                                           {L"Stiffened side"},
                                           {L"Lower stool"},
                                           {L"Lower stool z", kMetres},
                                           {L"Upper stool"},
                                           {L"Upper stool z", kMetres},
                                           {L"Stool ends code"},
                                           {L"Lower stool aft end x", kMetres},
                                           {L"Lower stool fore end x", kMetres},
                                           {L"Upper stool aft end x", kMetres},
                                           {L"Upper stool fore end x", kMetres}};
constexpr LineNames kBulkheadTableLines[] = {{kNameAndNumbers, kBulkheadColumns}};
constexpr ItemNames kBulkhead{L"Bulkhead", false, {}, kBulkheadTableLines};

constexpr ColumnName kPrimaryColumns[] = {{L"Direction"},
                                          {L"Position", kMetres},
                                          {L"Lower extremity", kMetres},
                                          {L"Upper extremity", kMetres}};
constexpr LineNames kPrimaryLines[] = {{kNumbers, kPrimaryColumns}};
constexpr ItemNames kPrimary{L"Primary stiffener", true, {}, kPrimaryLines};

constexpr ColumnName kSecondaryColumns[] = {{L"Position", kMetres},
                                            {L"Profile type"},
                                            {L"Web height", kMillimetres},
                                            {L"Web thickness", kMillimetres},
                                            {L"Flange breadth", kMillimetres},
                                            {L"Flange thickness", kMillimetres},
                                            {L"Material"},
                                            {L"Number of spans"},
                                            {L"Lower extremity", kMetres},
                                            {L"Upper extremity", kMetres},
                                            {L"Span reduction", kMetres},
                                            {L"Connection"}};
constexpr LineNames kSecondaryLines[] = {{kNumbers, kSecondaryColumns}};
constexpr ItemNames kSecondary{L"Secondary stiffener", true, {}, kSecondaryLines};

constexpr const wchar_t* kEndBracketKeys[] = {L"secondary stiffener", L"bracket"};
constexpr ColumnName kEndBracketColumns[] = {{L"Stiffener"},
                                             {L"Bracket"},
                                             {L"Enabled"},
                                             {L"Fixed"},
                                             {L"Profile type"},
                                             {L"Web height", kMillimetres},
                                             {L"Web thickness", kMillimetres},
                                             {L"Flange breadth", kMillimetres},
                                             {L"Flange thickness", kMillimetres},
                                             {L"Length", kMetres}};
constexpr LineNames kEndBracketLines[] = {{kNumbers, kEndBracketColumns}};
constexpr ItemNames kEndBracket{L"Bracket", true, kEndBracketKeys, kEndBracketLines};

constexpr const wchar_t* kSpanKeys[] = {L"secondary stiffener", L"span"};
constexpr ColumnName kSpanScantlingColumns[] = {{L"Stiffener"},
                                                {L"Span"},
                                                {L"Profile type"},
                                                {L"Web height", kMillimetres},
                                                {L"Web thickness", kMillimetres},
                                                {L"Flange breadth", kMillimetres},
                                                {L"Flange thickness", kMillimetres},
                                                {L"Material"}};
constexpr LineNames kSpanScantlingLines[] = {{kNumbers, kSpanScantlingColumns}};
constexpr ItemNames kSpanScantlings{L"Scantlings", true, kSpanKeys, kSpanScantlingLines};

constexpr ColumnName kSpanBracketColumns[] = {{L"Stiffener"},
                                              {L"Span"},
                                              {L"Lower bracket length", kMetres},
                                              {L"Upper bracket length", kMetres}};
constexpr LineNames kSpanBracketLines[] = {{kNumbers, kSpanBracketColumns}};
constexpr ItemNames kSpanBrackets{L"Brackets", true, kSpanKeys, kSpanBracketLines};

constexpr ColumnName kCorrugationColumns[] = {{L"Start y", kMetres}, {L"Pitch", kMetres},
                                              {L"Flange", kMetres},  {L"Depth", kMetres},
                                              {L"Fixed above"},      {L"Fixed below"}};
constexpr LineNames kCorrugationLines[] = {{kNumbers, kCorrugationColumns}};
constexpr ItemNames kCorrugation{L"Corrugation", true, {}, kCorrugationLines};

constexpr const wchar_t* kStrakeKeys[] = {L"band", L"strake"};
constexpr ColumnName kStrakeColumns[] = {{L"Band"},
                                         {L"Strake"},
                                         {L"Upper edge z", kMetres},
                                         {L"Outer edge y", kMetres},
                                         {L"Thickness", kMillimetres},
                                         {L"Material"}};
constexpr LineNames kStrakeLines[] = {{kNumbers, kStrakeColumns}};
constexpr ItemNames kStrake{L"Strake", true, kStrakeKeys, kStrakeLines};

constexpr ColumnName kNoOutline[] = {{L"Outline"}};
constexpr LineNames kHoldLines[] = {{kName, kCompartmentName},    {kName, kNoOutline},
                                    {kNumbers, kContentsColumns}, {kNumbers, kDesignColumns},
                                    {kNumbers, kLoadCaseColumns}, {kNumbers, kPressureColumns},
                                    {kNumbers, kLevelColumns, 3}, {kNumbers, kFlagColumns}};
constexpr ItemNames kHold{L"Hold", false, {}, kHoldLines};

// ---- Other kinds -------------------------------------------------------------------------------

constexpr ItemNames kUnknownHead{L"Line", false, {}, {}};

TableNames Named(MessageNumber label, const ItemNames& item) {
    const std::string text = GetMessageBytes(label);
    return {std::string(Trim(std::string_view(text))), &item};
}

}  // namespace

std::wstring NameOfColumn(const LineNames& line, size_t column) {
    const size_t last = line.columns.size();
    const size_t firstRepeated = last - line.repeated;
    size_t place = 0;
    for (size_t i = 0; i < last; ++i) {
        const auto [name, unit, count] = line.columns[i];
        std::wstring number;
        size_t at = place;
        if (i >= firstRepeated && column >= place) {
            const size_t turn = (column - firstRepeated) / line.repeated;
            at += turn * line.repeated;
            number = L' ' + std::to_wstring(turn + 1);
        } else if (count > 1 && column >= place) {
            at = std::min(column, place + static_cast<size_t>(count) - 1);
            number = L' ' + std::to_wstring(at - place + 1);
        }
        if (at == column)
            return name + number + (*unit == 0 ? L"" : L" [" + std::wstring(unit) + L']');
        place += static_cast<size_t>(count);
    }
    return L"Column " + std::to_wstring(column + 1);
}

BlockNames SectionNames() {
    return {
        &kSectionHead,
        {Named(kMsgPanelTable, kPanel), Named(kMsgNodeTable, kNode), Named(kMsgPlateTable, kPlate),
         Named(kMsgStiffenerTable, kStiffener), Named(kMsgSpanTable, kSpan),
         Named(kMsgCompartmentSizeTable, kSize), Named(kMsgCompartmentTable, kCompartment),
         Named(kMsgBracketTable, kBracket), Named(kMsgOpeningTable, kOpening),
         Named(kMsgPillarTable, kPillar), Named(kMsgFatigueTable, kFatigue)}};
}

BlockNames BulkheadNames() {
    return {&kBulkheadHead,
            {Named(kMsgPanelTable, kBulkhead),
             Named(kMsgNodeTable, kNode),
             {kPrimaryStiffenerTable, &kPrimary},
             {kSecondaryStiffenerTable, &kSecondary},
             {kEndBracketTable, &kEndBracket},
             {kSpanScantlingTable, &kSpanScantlings},
             {kSpanBracketTable, &kSpanBrackets},
             {kCorrugationTable, &kCorrugation},
             {kBulkheadStrakeTable, &kStrake},
             Named(kMsgCompartmentSizeTable, kSize),
             Named(kMsgCompartmentTable, kHold)}};
}

// Its lines are its program's own.
BlockNames TorsionNames() {
    return {&kUnknownHead, {}};
}

}  // namespace corvane
