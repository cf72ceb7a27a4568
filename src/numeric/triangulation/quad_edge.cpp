#include "numeric/triangulation/quad_edge.h"

#include <stdexcept>

namespace qnutil::triangulation {

void QuadEdgeMesh::set_end_points(EdgeRef e, VertexId from, const Point& p, VertexId to, const Point& q) {
  Record& record = records_[e >> 2];
  const unsigned side = (e >> 1) & 1u;
  record.origin[side] = from;
  record.point[side] = p;
  record.origin[side ^ 1u] = to;
  record.point[side ^ 1u] = q;
}

EdgeRef QuadEdgeMesh::make_edge(VertexId from, const Point& p, VertexId to, const Point& q) {
  // Edge references are 32-bit: four per record.
  if (records_.size() >= (std::size_t{1} << 30)) throw std::length_error("quad-edge records exhausted");
  const auto e = static_cast<EdgeRef>(records_.size() * 4);
  // The primal directions start as their own rings; the dual ones as each
  // other's, which describes a lone edge with one face around it.
  records_.push_back(Record{{e, e + 3, e + 2, e + 1}, {from, to}, 1, 0, {p, q}});
  return e;
}

void QuadEdgeMesh::splice(EdgeRef a, EdgeRef b) {
  const EdgeRef alpha = rot(onext(a));
  const EdgeRef beta = rot(onext(b));
  const EdgeRef a_next = onext(a), b_next = onext(b);
  const EdgeRef alpha_next = onext(alpha), beta_next = onext(beta);
  next(a) = b_next;
  next(b) = a_next;
  next(alpha) = beta_next;
  next(beta) = alpha_next;
}

EdgeRef QuadEdgeMesh::connect(EdgeRef a, EdgeRef b) {
  const EdgeRef e = make_edge(destination(a), destination_point(a), origin(b), origin_point(b));
  splice(e, lnext(a));
  splice(sym(e), b);
  return e;
}

void QuadEdgeMesh::delete_edge(EdgeRef e) {
  splice(e, oprev(e));
  splice(sym(e), oprev(sym(e)));
  records_[e >> 2].alive = 0;
}

void QuadEdgeMesh::swap(EdgeRef e) {
  const EdgeRef a = oprev(e);
  const EdgeRef b = oprev(sym(e));
  splice(e, a);
  splice(sym(e), b);
  splice(e, lnext(a));
  splice(sym(e), lnext(b));
  set_end_points(e, destination(a), destination_point(a), destination(b), destination_point(b));
}

}  // namespace qnutil::triangulation
