// Databases as text, for the tests of this folder: built line by line, so that every test can
// leave out or add what it is about.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/scanning.h"
#include "files/text_file.h"
#include "tests/support/support.h"
#include "text/numbers.h"

namespace corvane::test {

inline std::string JoinLines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

inline std::string SampleHead() {
    const StructuralLines lines = FetchStructuralLines();
    return JoinLines({lines.signature, lines.commentRule, lines.headLabel, lines.commentRule,
                      kBsdHeaderLine, "*", "5", "Sample ship"});
}

struct SampleBlock {
    std::string number = " 1 ";
    std::string keyword = "SECTION";
    std::string name = "Frame 10";
    std::string position = " 12.5 \t 0 \t 1 ";
    std::string body = "------------------ BODY ------------------\r\n 1 \t 2 \r\n";
    // Whole lines.
    std::string beforeMarker;
    std::string betweenMarkerAndNumber = FetchStructuralLines().commentRule + "\r\n";
    std::string beforeName;
};

inline std::string BlockText(const SampleBlock& block) {
    const StructuralLines lines = FetchStructuralLines();
    return block.beforeMarker + lines.modelMarker + "\r\n" + block.betweenMarkerAndNumber +
           JoinLines({block.number, block.keyword, lines.commentRule, lines.versionLabel, " 2.002 ",
                      lines.commentRule + " written by a test", lines.commentRule, lines.nameLabel,
                      lines.commentRule + " legend"}) +
           block.beforeName + JoinLines({block.name, block.position}) + block.body;
}

// Five models: sections, a bulkhead arrangement, a torsion model; the third has comments between
// its marker and its number, the fourth one before its marker.
inline std::vector<SampleBlock> FiveBlocks() {
    std::vector<SampleBlock> blocks(5);
    blocks[1].keyword = "BHA";
    blocks[1].name = "  Bulkhead 40 ";
    blocks[1].position = " 40.25 \t 100 \t 0 ";
    blocks[2].betweenMarkerAndNumber = "* first\r\n*\r\n* third\r\n";
    blocks[2].name = "Frame 20";
    blocks[2].position = " 0 \t 1 ";
    blocks[3].beforeMarker = "* before the fourth\r\n* two lines\r\n";
    blocks[3].keyword = "TORSION";
    blocks[3].name = "Girder";
    blocks[3].position = " 99 ";
    blocks[4].name = "Aft";
    blocks[4].position = "-3.5 \t 1 ";
    for (size_t i = 0; i < blocks.size(); ++i) {
        blocks[i].number = PrintForm(static_cast<int32_t>(i) + 1);
    }
    return blocks;
}

inline std::string DatabaseText(const std::vector<SampleBlock>& blocks) {
    std::string text = SampleHead();
    for (const SampleBlock& block : blocks) text += BlockText(block);
    return text;
}

// The text as the copying procedures leave it: comments between a marker and its number as one
// comment rule, the number moved by `shift`.
inline std::string CopiedBlockText(SampleBlock block, int32_t shift) {
    block.betweenMarkerAndNumber = FetchStructuralLines().commentRule + "\r\n";
    if (shift != 0) block.number = PrintForm(LeadingInteger(block.number) + shift);
    return BlockText(block);
}

}  // namespace corvane::test
