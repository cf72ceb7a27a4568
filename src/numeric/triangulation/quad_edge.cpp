#include "numeric/triangulation/quad_edge.h"

namespace qnutil::triangulation {

void QuadEdgeMesh::reserve(std::size_t records) {
  next_.reserve(records * 4);
  origin_.reserve(records * 2);
  alive_.reserve(records);
}

EdgeRef QuadEdgeMesh::make_edge(VertexId origin, VertexId destination) {
  const auto e = static_cast<EdgeRef>(next_.size());
  // The primal directions start as their own rings; the dual ones as each
  // other's, which describes a lone edge with one face around it.
  next_.insert(next_.end(), {e, e + 3, e + 2, e + 1});
  origin_.insert(origin_.end(), {origin, destination});
  alive_.push_back(1);
  return e;
}

void QuadEdgeMesh::splice(EdgeRef a, EdgeRef b) {
  const EdgeRef alpha = rot(next_[a]);
  const EdgeRef beta = rot(next_[b]);
  const EdgeRef a_next = next_[a], b_next = next_[b];
  const EdgeRef alpha_next = next_[alpha], beta_next = next_[beta];
  next_[a] = b_next;
  next_[b] = a_next;
  next_[alpha] = beta_next;
  next_[beta] = alpha_next;
}

EdgeRef QuadEdgeMesh::connect(EdgeRef a, EdgeRef b) {
  const EdgeRef e = make_edge(destination(a), origin(b));
  splice(e, lnext(a));
  splice(sym(e), b);
  return e;
}

void QuadEdgeMesh::delete_edge(EdgeRef e) {
  splice(e, oprev(e));
  splice(sym(e), oprev(sym(e)));
  alive_[e >> 2] = 0;
}

void QuadEdgeMesh::swap(EdgeRef e) {
  const EdgeRef a = oprev(e);
  const EdgeRef b = oprev(sym(e));
  splice(e, a);
  splice(sym(e), b);
  splice(e, lnext(a));
  splice(sym(e), lnext(b));
  set_end_points(e, destination(a), destination(b));
}

}  // namespace qnutil::triangulation
