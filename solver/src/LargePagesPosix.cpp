#include <sys/mman.h>

#include <cstdlib>
#include <new>

#include "LargePages.h"

namespace korva::laminated {

namespace {

constexpr std::size_t kPage = std::size_t{2} << 20;
constexpr std::size_t kCacheLine = 64;

}  // namespace

void* AllocatePages(std::size_t bytes) {
  const std::size_t alignment = bytes >= kPage ? kPage : kCacheLine;
  void* memory = std::aligned_alloc(alignment, (bytes + alignment - 1) / alignment * alignment);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
#ifdef MADV_HUGEPAGE
  if (bytes >= kPage) {
    // A wish; it works without, too. The part of a page at the end stays in small ones.
    madvise(memory, bytes / kPage * kPage, MADV_HUGEPAGE);
  }
#endif
  return memory;
}

void FreePages(void* memory) noexcept {
  std::free(memory);
}

}  // namespace korva::laminated
