// Counts the allocations of the test program: every form of the global allocation functions is
// replaced.
#include "support/alloc_counter.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {
std::atomic<long> gNewCalls{0};
}  // namespace

long peqtest::NewCalls() { return gNewCalls.load(); }

// Every form of the global allocation functions is replaced, so that memory from any of them
// goes back the same way (malloc/aligned_alloc and free).
namespace {
void* Counted(std::size_t n, std::size_t align = 0) {
  gNewCalls.fetch_add(1, std::memory_order_relaxed);
  if (n == 0) n = 1;
  if (align > alignof(std::max_align_t)) return std::aligned_alloc(align, (n + align - 1) / align * align);
  return std::malloc(n);
}
void* OrThrow(void* p) {
  if (!p) throw std::bad_alloc();
  return p;
}
}  // namespace

void* operator new(std::size_t n) { return OrThrow(Counted(n)); }
void* operator new[](std::size_t n) { return OrThrow(Counted(n)); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return Counted(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return Counted(n); }
void* operator new(std::size_t n, std::align_val_t a) { return OrThrow(Counted(n, static_cast<std::size_t>(a))); }
void* operator new[](std::size_t n, std::align_val_t a) { return OrThrow(Counted(n, static_cast<std::size_t>(a))); }
void* operator new(std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
  return Counted(n, static_cast<std::size_t>(a));
}
void* operator new[](std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
  return Counted(n, static_cast<std::size_t>(a));
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete(void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept { std::free(p); }

