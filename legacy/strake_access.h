// Strakes and nodes of the library's section record (platform/grvelk.h) by their numbers, which
// count from 1. A record may come from a damaged file: numbers are checked before they are used.
#pragma once

#include "platform/grvelk.h"

namespace corvane {

bool StrakeExists(const Section& section, int strake);
bool NodeExists(const Section& section, NodeReference reference);

// Both must exist. The references are into the record's own arrays.
Strake& StrakeAt(const Section& section, int strake);
Node& NodeAt(const Section& section, NodeReference reference);

// How many nodes and items of an existing strake the record has memory for; a strake has one item
// less than nodes.
int NodesOf(const Strake& strake);
int ItemsOf(const Strake& strake);

}  // namespace corvane
