#include "numeric/triangulation/quad_edge.h"

#include <stdexcept>

namespace qnutil::triangulation {

EdgeRef QuadEdgeMesh::make_edge(const StoredVertex& from, const StoredVertex& to) {
  // Edge references are 32-bit: four per record.
  if (records_.size() >= (std::size_t{1} << 30))
    throw std::length_error("quad-edge records exhausted");
  const auto e = static_cast<EdgeRef>(records_.size() * 4);
  // The primal directions start as their own rings; the dual ones as each
  // other's, which describes a lone edge with one face around it.
  records_.push_back(Record{{e, e + 3, e + 2, e + 1}, {from, to}});
  return e;
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
}

}  // namespace qnutil::triangulation
