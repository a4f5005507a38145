// The bulkhead arrangements of the sample ship: the engine room's and the collision bulkhead, which
// are plane, and a corrugated one between two holds, with its stools and the topside tank's part.
#pragma once

#include "database/bulkhead.h"

namespace corvane::samples {

// Model 10 to 12 of the sample; name, identifier and x of the arrangement stay.
void DraftArrangement(BulkheadArrangement& arrangement, int32_t number);

}  // namespace corvane::samples
