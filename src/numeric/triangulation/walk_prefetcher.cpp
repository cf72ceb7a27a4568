#include "numeric/triangulation/walk_prefetcher.h"

namespace qnutil::triangulation {
namespace {

// A copy that has not arrived after this many faces gives up.
constexpr unsigned kStepLimit = 32;

}  // namespace

void WalkPrefetcher::advance(std::size_t position) {
  const std::size_t upcoming = position + kAhead;
  for (std::size_t i = position + 1; i < upcoming && i < order_.size(); ++i) step(scouts_[i % kAhead]);
  if (upcoming < order_.size()) {
    Scout& scout = scouts_[upcoming % kAhead];
    scout = Scout{vertices_[order_[upcoming]], Stage::cell};
    index_.prefetch_cell(scout.p);
  }
}

// One load per call: the cell, then alternately an edge's record and the
// record of the next edge round its left face, whose far end completes the
// face's corners. Each stage reads only what the previous one loaded.
void WalkPrefetcher::step(Scout& scout) const {
  switch (scout.stage) {
    case Stage::idle:
      return;
    case Stage::cell:
      scout.e = index_.peek(scout.p);
      if (scout.e == VertexIndex::kNone) {
        scout.stage = Stage::idle;
        return;
      }
      mesh_.prefetch(scout.e);
      scout.stage = Stage::edge;
      return;
    case Stage::edge:
      // The side the real walk starts on (see DelaunayBuilder::locate).
      if (orientation(mesh_.origin_point(scout.e), mesh_.destination_point(scout.e), scout.p) <= 0)
        scout.e = QuadEdgeMesh::sym(scout.e);
      mesh_.prefetch(mesh_.lnext(scout.e));
      scout.stage = Stage::face;
      return;
    case Stage::face: {
      const EdgeRef first = mesh_.lnext(scout.e);
      const Point o = mesh_.origin_point(scout.e);
      const Point d = mesh_.destination_point(scout.e);
      const Point far = mesh_.destination_point(first);
      if (++scout.steps > kStepLimit) {
        scout.stage = Stage::idle;
      } else if (orientation(d, far, scout.p) < 0) {
        scout.e = QuadEdgeMesh::sym(first);  // its record is loaded already
        mesh_.prefetch(mesh_.lnext(scout.e));
      } else if (orientation(far, o, scout.p) < 0) {
        scout.e = QuadEdgeMesh::sym(mesh_.lnext(first));
        mesh_.prefetch(scout.e);
        scout.stage = Stage::edge;
      } else {
        scout.stage = Stage::neighbours;
        step(scout);
      }
      return;
    }
    // For a side s of the face found, the neighbour across it is the left
    // face of n = oprev(s); its far edges are n and lnext(n), and what lies
    // beyond an edge x is the left face of oprev(x).
    case Stage::neighbours: {
      const auto [s0, s1, s2] = sides(scout.e);
      mesh_.prefetch(s2);
      mesh_.prefetch(mesh_.oprev(s0));
      mesh_.prefetch(mesh_.oprev(s1));
      scout.stage = Stage::far_edges;
      return;
    }
    case Stage::far_edges: {
      const auto [s0, s1, s2] = sides(scout.e);
      mesh_.prefetch(mesh_.oprev(s2));
      for (EdgeRef n : {mesh_.oprev(s0), mesh_.oprev(s1)}) {
        mesh_.prefetch(mesh_.oprev(n));
        mesh_.prefetch(mesh_.lnext(n));
      }
      scout.stage = Stage::beyond;
      return;
    }
    case Stage::beyond: {
      const auto [s0, s1, s2] = sides(scout.e);
      for (EdgeRef n : {mesh_.oprev(s0), mesh_.oprev(s1)}) mesh_.prefetch(mesh_.oprev(mesh_.lnext(n)));
      const EdgeRef n2 = mesh_.oprev(s2);
      mesh_.prefetch(mesh_.oprev(n2));
      mesh_.prefetch(mesh_.lnext(n2));
      scout.stage = Stage::last_beyond;
      return;
    }
    case Stage::last_beyond:
      mesh_.prefetch(mesh_.oprev(mesh_.lnext(mesh_.oprev(sides(scout.e)[2]))));
      scout.stage = Stage::idle;
      return;
  }
}

std::array<EdgeRef, 3> WalkPrefetcher::sides(EdgeRef face) const {
  const EdgeRef first = mesh_.lnext(face);
  return {face, first, mesh_.lnext(first)};
}

}  // namespace qnutil::triangulation
