// The kernel allocates nothing per call: every work array lives in the session, sized once per
// mixture. Counted through the global operator new of this test program.
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "models/pureprops.h"

namespace {
std::atomic<long> gNewCalls{0};
}  // namespace

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

using namespace peq;
using peqtest::Comp;

namespace {

// Calls the routine once to size whatever is sized on first use, then counts a second call.
template <class F>
long NewCallsOf(F&& f) {
  f();
  const long before = gNewCalls.load();
  f();
  return gNewCalls.load() - before;
}

}  // namespace

TEST(KernelAllocation, PhiPhiBubblePointsAllocateNothing) {
  for (int rule : {2, 6}) {
    Session s = peqtest::PhiPhi({peqtest::kEthanol, peqtest::kWater}, 5, rule, 2);
    peqtest::SetSlot(s, 1, 1, 2, rule == 2 ? -0.07 : -61.0);
    peqtest::SetSlot(s, 4, 1, 2, 673.0);
    peqtest::SetSlot(s, 7, 1, 2, 0.3);
    const Vec<double> x = Comp({0.3, 0.7}), y0 = Comp({0, 0});
    double vL, vV, T = 0;
    int16_t warn;
    EXPECT_EQ(NewCallsOf([&] { CalcBubbleP(s, 340.0, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV); }), 0) << rule;
    EXPECT_EQ(NewCallsOf([&] {
                T = 0;
                CalcBubbleT(s, 101.325, x, T, y0, warn, s.KWert, vL, vV);
              }),
              0)
        << rule;
  }
}

TEST(KernelAllocation, GammaPhiBubbleAndDewPointsAllocateNothing) {
  for (int vap : {0, 1}) {
    Session s = peqtest::EthanolWater(vap);
    const Vec<double> x = Comp({0.3, 0.7}), y0 = Comp({0, 0});
    double vL, vV, T = 0;
    int16_t warn, err, dT;
    EXPECT_EQ(NewCallsOf([&] { CalcBubbleP(s, 340.0, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV); }), 0) << vap;
    EXPECT_EQ(NewCallsOf([&] {
                T = 0;
                CalcBubbleT(s, 101.325, x, T, y0, warn, s.KWert, vL, vV);
              }),
              0)
        << vap;
    AllPureProps(s, 340.0, err, dT);
    EXPECT_EQ(NewCallsOf([&] { CalcDewP(s, 340.0, x); }), 0) << vap;
    EXPECT_EQ(NewCallsOf([&] { CalcDewT(s, 101.325, x, 0.0); }), 0) << vap;
  }
}
