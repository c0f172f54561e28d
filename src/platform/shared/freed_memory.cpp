#include "platform/shared/freed_memory.h"

#include <malloc.h>

namespace gridwright {

void keepFreedMemory() {
  mallopt(M_MMAP_THRESHOLD, 32 << 20);   // bytes; no more is taken
  mallopt(M_TRIM_THRESHOLD, 128 << 20);  // bytes
}

}  // namespace gridwright
