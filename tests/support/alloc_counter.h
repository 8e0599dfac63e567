// Allocation count of the test program, for the tests that a routine allocates nothing per call.
#pragma once

namespace peqtest {

// Calls of the global operator new (all forms) since the program started.
long NewCalls();

// Calls f once to size whatever is sized on first use, then counts the allocations of a second
// call.
template <class F>
long NewCallsOf(F&& f) {
  f();
  const long before = NewCalls();
  f();
  return NewCalls() - before;
}

}  // namespace peqtest
