// Small array types of the session: a vector indexed 0..n and square and three-index
// matrices. Index checks run in Debug builds only; the storage is sized once per mixture.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <vector>

namespace peq {

#ifndef NDEBUG
[[noreturn]] inline void IndexFault() { std::abort(); }
#define PEQ_CHECK_INDEX(cond) \
  do {                        \
    if (!(cond)) ::peq::IndexFault(); \
  } while (0)
#else
#define PEQ_CHECK_INDEX(cond) ((void)0)
#endif

// Vector with indices 0..size()-1. Component arrays hold slot 0 unused.
template <class T>
class Vec {
 public:
  Vec() = default;
  explicit Vec(std::size_t n, const T& v = T()) : d_(n, v) {}
  void assign(std::size_t n, const T& v = T()) { d_.assign(n, v); }
  void fill(const T& v) { d_.assign(d_.size(), v); }
  std::size_t size() const { return d_.size(); }
  T& operator[](std::size_t i) {
    PEQ_CHECK_INDEX(i < d_.size());
    return d_[i];
  }
  const T& operator[](std::size_t i) const {
    PEQ_CHECK_INDEX(i < d_.size());
    return d_[i];
  }
  T& operator()(std::size_t i) { return (*this)[i]; }
  const T& operator()(std::size_t i) const { return (*this)[i]; }
  T* data() { return d_.data(); }
  const T* data() const { return d_.data(); }
  bool operator==(const Vec&) const = default;

 private:
  std::vector<T> d_;
};

// Square matrix (i, j), both 0..n-1.
template <class T>
class Mat {
 public:
  Mat() = default;
  explicit Mat(std::size_t n, const T& v = T()) : n_(n), d_(n * n, v) {}
  void assign(std::size_t n, const T& v = T()) {
    n_ = n;
    d_.assign(n * n, v);
  }
  void fill(const T& v) { d_.assign(d_.size(), v); }
  std::size_t size() const { return n_; }
  T& operator()(std::size_t i, std::size_t j) {
    PEQ_CHECK_INDEX(i < n_ && j < n_);
    return d_[i * n_ + j];
  }
  const T& operator()(std::size_t i, std::size_t j) const {
    PEQ_CHECK_INDEX(i < n_ && j < n_);
    return d_[i * n_ + j];
  }
  bool operator==(const Mat&) const = default;

 private:
  std::size_t n_ = 0;
  std::vector<T> d_;
};

// Stack of square matrices (k, i, j): k 0..depth-1, i and j 0..n-1.
template <class T>
class Mat3 {
 public:
  Mat3() = default;
  Mat3(std::size_t depth, std::size_t n, const T& v = T()) { assign(depth, n, v); }
  void assign(std::size_t depth, std::size_t n, const T& v = T()) {
    k_ = depth;
    n_ = n;
    d_.assign(depth * n * n, v);
  }
  void fill(const T& v) { d_.assign(d_.size(), v); }
  std::size_t depth() const { return k_; }
  std::size_t size() const { return n_; }
  T& operator()(std::size_t k, std::size_t i, std::size_t j) {
    PEQ_CHECK_INDEX(k < k_ && i < n_ && j < n_);
    return d_[(k * n_ + i) * n_ + j];
  }
  const T& operator()(std::size_t k, std::size_t i, std::size_t j) const {
    PEQ_CHECK_INDEX(k < k_ && i < n_ && j < n_);
    return d_[(k * n_ + i) * n_ + j];
  }
  bool operator==(const Mat3&) const = default;

 private:
  std::size_t k_ = 0, n_ = 0;
  std::vector<T> d_;
};

}  // namespace peq
