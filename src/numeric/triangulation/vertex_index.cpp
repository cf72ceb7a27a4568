#include "numeric/triangulation/vertex_index.h"

#include <algorithm>

namespace qnutil::triangulation {
namespace {

constexpr int kMaxLevel = 12;  // 4096 x 4096 finest cells at most

}  // namespace

VertexIndex::VertexIndex(const Point& min, const Point& max, std::size_t expected_points)
    : min_(min) {
  while (finest_level_ < kMaxLevel && (std::size_t{1} << (2 * finest_level_)) * 2 < expected_points)
    ++finest_level_;
  const double resolution = static_cast<double>(std::size_t{1} << finest_level_);
  const double width = max.x - min.x, height = max.y - min.y;
  scale_x_ = width > 0.0 ? resolution / width : 0.0;
  scale_y_ = height > 0.0 ? resolution / height : 0.0;
  std::size_t total = 0;
  for (int level = 0; level <= finest_level_; ++level) {
    level_offset_.push_back(total);
    total += std::size_t{1} << (2 * level);
  }
  cells_.assign(total, kNone);
}

VertexIndex::Cell VertexIndex::finest_cell(const Point& p) const {
  const double last = static_cast<double>((std::size_t{1} << finest_level_) - 1);
  const double column = std::min(last, std::max(0.0, (p.x - min_.x) * scale_x_));
  const double row = std::min(last, std::max(0.0, (p.y - min_.y) * scale_y_));
  return {static_cast<std::size_t>(column), static_cast<std::size_t>(row)};
}

std::size_t VertexIndex::slot(int level, const Cell& finest) const {
  const int shift = finest_level_ - level;
  return level_offset_[level] + ((finest.row >> shift) << level) + (finest.column >> shift);
}

void VertexIndex::add(EdgeRef edge, const Point& p) {
  const Cell cell = finest_cell(p);
  for (int level = finest_level_; level >= 0; --level) cells_[slot(level, cell)] = edge;
}

template <class Accept>
EdgeRef VertexIndex::finest_accepted(const Point& p, Accept accept) const {
  const Cell cell = finest_cell(p);
  for (int level = finest_level_; level >= 0; --level) {
    const EdgeRef found = cells_[slot(level, cell)];
    if (found != kNone && accept(found)) return found;
  }
  return kNone;
}

EdgeRef VertexIndex::near(const Point& p, const QuadEdgeMesh& mesh) const {
  return finest_accepted(p, [&mesh](EdgeRef found) { return mesh.alive(found); });
}

EdgeRef VertexIndex::peek(const Point& p) const {
  return finest_accepted(p, [](EdgeRef) { return true; });
}

void VertexIndex::prefetch_cell(const Point& p) const {
  prefetch(&cells_[slot(finest_level_, finest_cell(p))]);
}

}  // namespace qnutil::triangulation
