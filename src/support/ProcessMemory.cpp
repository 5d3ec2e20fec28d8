#include "support/ProcessMemory.h"

#include <cstdlib> // defines __GLIBC__ where it applies
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace corvane {

void PrepareAllocatorForLargeProjects() {
#if defined(__GLIBC__)
    // 32 MB is the largest mapping threshold the library accepts; only whole-file buffers stay
    // above it. Memory given back returns to the system only past half a gigabyte, so a
    // reopened project reuses the pages of the one before.
    constexpr int kMapThreshold = 32 * 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, kMapThreshold);
    mallopt(M_TRIM_THRESHOLD, 16 * kMapThreshold);
#endif
}

} // namespace corvane
