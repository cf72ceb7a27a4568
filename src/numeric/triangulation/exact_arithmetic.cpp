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

int sign(const double* e, std::size_t size) {
  if (size == 0) return 0;
  return e[size - 1] > 0.0 ? 1 : (e[size - 1] < 0.0 ? -1 : 0);
}

}  // namespace qnutil::triangulation::exact
