// Memory of large arrays.
#pragma once

#include <cstddef>
#include <vector>

namespace korva::laminated {

// Memory for `bytes`, in large pages as far as the system has them: the first touch of many small ones takes
// as long as half a solution. Throws std::bad_alloc.
void* AllocatePages(std::size_t bytes);
void FreePages(void* memory) noexcept;

template <class T>
struct PageAllocator {
  using value_type = T;

  PageAllocator() = default;
  template <class U>
  explicit PageAllocator(const PageAllocator<U>&) {}

  T* allocate(std::size_t n) { return static_cast<T*>(AllocatePages(n * sizeof(T))); }
  void deallocate(T* memory, std::size_t) noexcept { FreePages(memory); }

  friend bool operator==(const PageAllocator&, const PageAllocator&) { return true; }
};

template <class T>
using PageVector = std::vector<T, PageAllocator<T>>;

}  // namespace korva::laminated
