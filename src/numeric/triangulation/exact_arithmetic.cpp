#include "numeric/triangulation/exact_arithmetic.h"

#include <cmath>

namespace qnutil::triangulation::exact {

std::size_t sum(const double* e, std::size_t e_size, const double* f, std::size_t f_size,
                double* out) {
  // Merge both by magnitude, then carry a running sum through the merged
  // sequence, keeping every non-zero rounding error as a term of the result.
  std::size_t i = 0, j = 0, merged = 0;
  while (i < e_size && j < f_size)
    out[merged++] = std::fabs(f[j]) < std::fabs(e[i]) ? f[j++] : e[i++];
  while (i < e_size) out[merged++] = e[i++];
  while (j < f_size) out[merged++] = f[j++];
  if (merged == 0) return 0;
  std::size_t size = 0;
  double running = out[0];
  for (std::size_t k = 1; k < merged; ++k) {
    double error;
    two_sum(running, out[k], running, error);
    if (error != 0.0) out[size++] = error;
  }
  if (running != 0.0) out[size++] = running;
  return size;
}

std::size_t scale(const double* e, std::size_t e_size, double b, double* out) {
  if (e_size == 0 || b == 0.0) return 0;
  std::size_t size = 0;
  double running, error;
  two_product(e[0], b, running, error);
  if (error != 0.0) out[size++] = error;
  for (std::size_t i = 1; i < e_size; ++i) {
    double product_high, product_low, partial;
    two_product(e[i], b, product_high, product_low);
    two_sum(running, product_low, partial, error);
    if (error != 0.0) out[size++] = error;
    two_sum(product_high, partial, running, error);
    if (error != 0.0) out[size++] = error;
  }
  if (running != 0.0) out[size++] = running;
  return size;
}

namespace {

// x + y == a + b exactly, for |a| >= |b| (or a == 0).
void fast_two_sum(double a, double b, double& x, double& y) {
  x = a + b;
  y = b - (x - a);
}

}  // namespace

std::size_t compress(double* e, std::size_t size) {
  if (size == 0) return 0;
  // Downwards: fold each term into the running sum, keeping the large
  // parts at the top; then upwards, keeping the small parts at the bottom.
  std::size_t bottom = size - 1;
  double running = e[bottom];
  for (std::size_t i = size - 1; i-- > 0;) {
    double sum, error;
    fast_two_sum(running, e[i], sum, error);
    if (error != 0) {
      e[bottom--] = sum;
      running = error;
    } else {
      running = sum;
    }
  }
  std::size_t top = 0;
  for (std::size_t i = bottom + 1; i < size; ++i) {
    double sum, error;
    fast_two_sum(e[i], running, sum, error);
    if (error != 0) e[top++] = error;
    running = sum;
  }
  e[top++] = running;
  return top;
}

int sign(const double* e, std::size_t size) {
  if (size == 0) return 0;
  return e[size - 1] > 0.0 ? 1 : (e[size - 1] < 0.0 ? -1 : 0);
}

}  // namespace qnutil::triangulation::exact
