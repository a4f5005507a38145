// Any bytes as a block of a bulkhead arrangement: what is read can be written, and what was written
// reads back as itself.
#include "fuzz/fuzz.h"

#include "database/bulkhead_block.h"
#include "fuzz/block_text.h"

namespace {

using namespace corvane;
using fuzz::Require;

BulkheadArrangement Read(std::string_view bytes) {
    BulkheadArrangement arrangement;
    fuzz::ReadBytes(bytes, [&](TextReader& reader) { ReadBulkheadLines(reader, arrangement); });
    return arrangement;
}

void RequireCounts(const BulkheadArrangement& arrangement) {
    Require(arrangement.bulkheads.size() <= INT16_MAX && arrangement.holds.size() <= INT16_MAX);
    for (const Bulkhead& bulkhead : arrangement.bulkheads) {
        Require(bulkhead.nodes.size() <= INT16_MAX);
        Require(bulkhead.secondaryStiffeners.size() <= INT16_MAX);
        for (const auto& [number, band] : bulkhead.bands) {
            Require(number >= 1 && !band.empty() && band.size() <= INT16_MAX);
        }
        for (const SecondaryStiffener& stiffener : bulkhead.secondaryStiffeners) {
            for (const auto& [number, span] : stiffener.spans) {
                Require(number >= 1 && (span.hasScantlings || span.hasBrackets));
            }
        }
    }
}

}  // namespace

CORVANE_FUZZ_TARGET(bulkhead) {
    if (bytes.size() > 64 * 1024) return;
    BulkheadArrangement arrangement = Read(bytes);
    RequireCounts(arrangement);
    fuzz::RequireStable(arrangement, Read, WriteBulkheadBody);
}
