// Memory that was freed stays with the program.
#pragma once

namespace gridwright {

/// Every page and every maze takes the same buffers as the one before, some of them of many megabytes and
/// hardly touched: what one has freed is kept for the next, instead of going back to the system and being
/// cleared anew. For programs that make many, at their beginning.
void keepFreedMemory();

}  // namespace gridwright
