#include "numeric/triangulation/walk_prefetcher.h"

namespace qnutil::triangulation {
namespace {

// A copy gives up after this many tests.
constexpr unsigned kStepLimit = 32;

}  // namespace

void WalkPrefetcher::advance(std::size_t position) {
  const std::size_t upcoming = position + kAhead;
  for (std::size_t i = position + 1; i < upcoming && i < order_.size(); ++i)
    step(scouts_[i % kAhead]);
  if (upcoming < order_.size()) {
    Scout& scout = scouts_[upcoming % kAhead];
    scout = Scout{};
    scout.p = vertices_[order_[upcoming]];
    scout.stage = Stage::cell;
    index_.prefetch_cell(scout.p);
  }
}

// One load per call: the cell, then alternately an edge's record and the
// record of the next edge round its left face, whose far end completes the
// face's corners; then the region the repair will change. Each stage reads
// only what the previous one loaded, and guesses with estimated tests.
void WalkPrefetcher::step(Scout& scout) const {
  switch (scout.stage) {
    case Stage::idle: return;
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
      if (!probably_left_of(mesh_.origin_point(scout.e), mesh_.destination_point(scout.e), scout.p))
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
      } else if (probably_left_of(far, d, scout.p)) {
        scout.e = QuadEdgeMesh::sym(first);  // its record is loaded already
        mesh_.prefetch(mesh_.lnext(scout.e));
      } else if (probably_left_of(o, far, scout.p)) {
        scout.e = QuadEdgeMesh::sym(mesh_.lnext(first));
        mesh_.prefetch(scout.e);
        scout.stage = Stage::edge;
      } else {
        // The face found: the records of its first two sides are loaded.
        const EdgeRef s0 = scout.e, s2 = mesh_.lnext(first);
        scout.face = s0;
        mesh_.prefetch(mesh_.oprev(s0));
        mesh_.prefetch(mesh_.oprev(first));
        mesh_.prefetch(s2);
        scout.awaiting = Sides{{s0, first}, 2};
        scout.fresh = Sides{{s2}, 1};
        scout.stage = Stage::cavity;
      }
      return;
    }
    case Stage::cavity: grow_cavity(scout); return;
  }
}

// A side x has the region on its left; the vertex beyond it is the
// destination of oprev(x). When the face beyond lies in the region (the
// point is in its circumcircle, the repair's swap test), its two other
// sides, n = oprev(x) and lnext(n), become sides of the region.
void WalkPrefetcher::grow_cavity(Scout& scout) const {
  Sides fresh, awaiting;
  for (std::size_t i = 0; i < scout.awaiting.count; ++i) {
    const EdgeRef x = scout.awaiting.edge[i];
    const EdgeRef n = mesh_.oprev(x);
    const Point o = mesh_.origin_point(x), d = mesh_.destination_point(x),
                far = mesh_.destination_point(n);
    if (++scout.steps > kStepLimit || !probably_in_circle(o, far, d, scout.p)) continue;
    mesh_.prefetch(mesh_.oprev(n));
    awaiting.add(n);
    const EdgeRef next = mesh_.lnext(n);
    mesh_.prefetch(next);
    fresh.add(next);
  }
  for (std::size_t i = 0; i < scout.fresh.count; ++i) {
    const EdgeRef x = scout.fresh.edge[i];
    mesh_.prefetch(mesh_.oprev(x));
    awaiting.add(x);
  }
  scout.fresh = fresh;
  scout.awaiting = awaiting;
  if (fresh.count == 0 && awaiting.count == 0) scout.stage = Stage::idle;
}

}  // namespace qnutil::triangulation
