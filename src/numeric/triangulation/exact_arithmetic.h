// Error-free transformations and floating-point expansions: a number is held
// as a sum of non-overlapping doubles ordered by increasing magnitude, so
// sums and products of doubles are represented without any rounding. The
// geometric predicates fall back to these when the plain double evaluation
// cannot decide a sign. Requires round-to-nearest binary64 arithmetic without
// FMA contraction (the build sets -ffp-contract=off and SSE2).
#pragma once

#include <cstddef>

namespace qnutil::triangulation::exact {

// x + y == a + b exactly, x being the rounded sum.
inline void two_sum(double a, double b, double& x, double& y) {
  x = a + b;
  const double b_virtual = x - a;
  const double a_virtual = x - b_virtual;
  y = (a - a_virtual) + (b - b_virtual);
}

// x + y == a - b exactly.
inline void two_diff(double a, double b, double& x, double& y) {
  x = a - b;
  const double b_virtual = a - x;
  const double a_virtual = x + b_virtual;
  y = (a - a_virtual) + (b_virtual - b);
}

// a == high + low with both halves holding at most 26 significant bits.
inline void split(double a, double& high, double& low) {
  constexpr double kSplitter = 134217729.0;  // 2^27 + 1
  const double c = kSplitter * a;
  high = c - (c - a);
  low = a - high;
}

// x + y == a * b exactly.
inline void two_product(double a, double b, double& x, double& y) {
  x = a * b;
  double a_high, a_low, b_high, b_low;
  split(a, a_high, a_low);
  split(b, b_high, b_low);
  const double error = ((x - a_high * b_high) - a_low * b_high) - a_high * b_low;
  y = a_low * b_low - error;
}

// A fixed-capacity expansion; `size` components are valid.
template <std::size_t Capacity>
struct Expansion {
  double terms[Capacity];
  std::size_t size = 0;
};

// out = e + f; out must not alias e or f and hold e.size + f.size terms.
std::size_t sum(const double* e, std::size_t e_size, const double* f, std::size_t f_size,
                double* out);
// out = e * b; out must hold 2 * e_size terms.
std::size_t scale(const double* e, std::size_t e_size, double b, double* out);
// Rewrites e in place as an expansion of the same value with as few terms
// as a sweep finds (usually two or three); returns the new size.
std::size_t compress(double* e, std::size_t size);
// Sign (-1, 0, 1) of an expansion.
int sign(const double* e, std::size_t size);

// out = a - b as an expansion of up to two terms.
inline Expansion<2> difference(double a, double b) {
  Expansion<2> out;
  double x, y;
  two_diff(a, b, x, y);
  if (y != 0.0) out.terms[out.size++] = y;
  if (x != 0.0) out.terms[out.size++] = x;
  return out;
}

template <std::size_t A, std::size_t B>
Expansion<A + B> operator+(const Expansion<A>& e, const Expansion<B>& f) {
  Expansion<A + B> out;
  out.size = sum(e.terms, e.size, f.terms, f.size, out.terms);
  return out;
}

template <std::size_t A>
Expansion<A> negated(const Expansion<A>& e) {
  Expansion<A> out = e;
  for (std::size_t i = 0; i < out.size; ++i) out.terms[i] = -out.terms[i];
  return out;
}

template <std::size_t A, std::size_t B>
Expansion<A + B> operator-(const Expansion<A>& e, const Expansion<B>& f) {
  return e + negated(f);
}

// Product of two expansions: one scaled copy of e per term of f, summed.
template <std::size_t A, std::size_t B>
Expansion<2 * A * B> operator*(const Expansion<A>& e, const Expansion<B>& f) {
  Expansion<2 * A * B> out;
  double scaled[2 * A];
  double partial[2 * A * B];
  for (std::size_t i = 0; i < f.size; ++i) {
    const std::size_t scaled_size = scale(e.terms, e.size, f.terms[i], scaled);
    for (std::size_t k = 0; k < out.size; ++k) partial[k] = out.terms[k];
    out.size = sum(partial, out.size, scaled, scaled_size, out.terms);
  }
  return out;
}

template <std::size_t A>
int sign(const Expansion<A>& e) {
  return sign(e.terms, e.size);
}

}  // namespace qnutil::triangulation::exact
