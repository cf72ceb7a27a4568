// Nothing may be thrown across the library boundary: every export that can
// reach an allocating or throwing call runs its body through one of these,
// which turn an escaping exception into the export's failure result.
#pragma once

#include <utility>

namespace qnutil::frame {

template <class Result, class Body>
Result guard_export(Result failure, Body&& body) noexcept {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    return failure;
  }
}

template <class Body>
void guard_export_void(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (...) {
  }
}

}  // namespace qnutil::frame
