// qnutil tri: triangulate a point file and draw the result as SVG or BMP.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "json_output.h"
#include "progress.h"
#include "bmp_output.h"
#include "failure.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_tri(int argc, char** argv);

const Command kTri{
    "tri",
    "triangulate \"x y\" points (the first N the boundary), or a floor plan of rings "
    "with openings, and draw the triangles",
    "tri POINTS [--boundary N] [--svg OUT.svg] [--bmp OUT.bmp] [--json]\n"
    "       qnutil tri --rings PLAN [--min-angle DEG [--max-added N]] [--svg OUT.svg]\n"
    "                  [--bmp OUT.bmp] [--json]\n"
    "  POINTS: one \"x y\" pair per line; Triangulieren, the first N points the\n"
    "    boundary polygon.\n"
    "  PLAN (--rings): a line \"ring\" starts a ring (an outline or an opening:\n"
    "    inside is what the rings enclose an odd number of times), followed by\n"
    "    its \"x y\" points, closed back to the first; a line \"points\" starts\n"
    "    interior points (extra mesh vertices). Triangulated by TriangulateRegion:\n"
    "    every ring edge kept, openings empty, constrained Delaunay.\n"
    "  --min-angle: refine until no triangle has an angle below DEG degrees (up\n"
    "    to 34), adding at most N points (default 100000).\n"
    "  In both, blank lines and lines starting with '#' are skipped.\n"
    "  --json prints the triangles as an array of three [x, y] corners each",
    run_tri};

// Inputs from this size on announce their progress on a terminal.
constexpr std::size_t kLongRunPoints = 100000;

struct Vertex {
  float x, y;
};

// Calls visit(number, line) for each line of the file that is neither
// blank nor a '#' comment, until it returns false. False (with a message)
// when the file cannot be opened or a visit failed.
template <class Visit>
bool for_each_data_line(const std::string& path, Visit&& visit) {
  std::ifstream in(path);
  if (!in) {
    std::fprintf(stderr, "qnutil tri: cannot open %s\n", path.c_str());
    return false;
  }
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    const auto first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    if (!visit(number, line)) return false;
  }
  return true;
}

// Reports a bad line of an input file; returns false.
bool line_error(const std::string& path, int number, const std::string& reason) {
  fail("tri", path + ":" + std::to_string(number), reason);
  return false;
}

// One "x y" pair per line.
bool read_points(const std::string& path, std::vector<Vertex>& points) {
  return for_each_data_line(path, [&](int number, const std::string& line) {
    std::istringstream fields(line);
    Vertex v{};
    std::string rest;
    if (!(fields >> v.x >> v.y) || (fields >> rest))
      return line_error(path, number, "expected \"x y\"");
    points.push_back(v);
    return true;
  });
}

struct Triangulation {
  std::vector<std::vector<Vertex>> rings;  // closed outlines, drawn over the triangles
  std::vector<Vertex> corners;             // three per triangle
  std::size_t added = 0;                   // points added by refinement
};

// Maps drawing coordinates onto a canvas of at most `size` pixels, y up.
struct View {
  double min_x = 0, min_y = 0, scale = 1;
  int width = 1, height = 1;

  View(const Triangulation& t, int size) {
    double max_x = 0, max_y = 0;
    bool first = true;
    std::vector<const std::vector<Vertex>*> lists{&t.corners};
    for (const auto& ring : t.rings) lists.push_back(&ring);
    for (const auto* list : lists)
      for (const Vertex& v : *list) {
        if (!std::isfinite(v.x) || !std::isfinite(v.y)) continue;
        if (first) min_x = max_x = v.x, min_y = max_y = v.y, first = false;
        min_x = std::min<double>(min_x, v.x), max_x = std::max<double>(max_x, v.x);
        min_y = std::min<double>(min_y, v.y), max_y = std::max<double>(max_y, v.y);
      }
    const double extent = std::max({max_x - min_x, max_y - min_y, 1e-9});
    scale = (size - 21) / extent;
    width = static_cast<int>((max_x - min_x) * scale) + 21;
    height = static_cast<int>((max_y - min_y) * scale) + 21;
  }
  double x(const Vertex& v) const { return 10 + (v.x - min_x) * scale; }
  double y(const Vertex& v) const { return height - 11 - (v.y - min_y) * scale; }
};

bool write_svg(const std::string& path, const Triangulation& t) {
  const View view(t, 800);
  std::ofstream out(path);
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << view.width << "\" height=\""
      << view.height << "\">\n<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
      << "<g fill=\"#dfe8f5\" stroke=\"#3a5a8c\" stroke-width=\"0.5\" stroke-linejoin=\"round\">\n";
  for (std::size_t i = 0; i + 2 < t.corners.size(); i += 3) {
    out << "<polygon points=\"";
    for (std::size_t k = i; k < i + 3; ++k)
      out << view.x(t.corners[k]) << ',' << view.y(t.corners[k]) << ' ';
    out << "\"/>\n";
  }
  out << "</g>\n<g fill=\"none\" stroke=\"#c02020\" stroke-width=\"1.5\">\n";
  for (const auto& ring : t.rings) {
    out << "<polygon points=\"";
    for (const Vertex& v : ring) out << view.x(v) << ',' << view.y(v) << ' ';
    out << "\"/>\n";
  }
  out << "</g>\n</svg>\n";
  return static_cast<bool>(out);
}

// White pixels with the triangle edges and the boundary drawn: 0x00RRGGBB
// words, rows top-down.
class Canvas {
 public:
  Canvas(int width, int height)
      : width_(width), height_(height), words_(std::size_t(width) * height, 0xFFFFFF) {}

  void line(double x0, double y0, double x1, double y1, std::uint32_t rgb) {
    const int steps = static_cast<int>(std::min(
                          4096.0, std::ceil(std::max(std::fabs(x1 - x0), std::fabs(y1 - y0))))) +
                      1;
    for (int i = 0; i <= steps; ++i) {
      const double t = static_cast<double>(i) / steps;
      plot(x0 + t * (x1 - x0), y0 + t * (y1 - y0), rgb);
    }
  }

  bool save(const std::string& path) const { return save_bmp(path, width_, height_, words_); }

 private:
  void plot(double x, double y, std::uint32_t rgb) {
    if (!(x >= 0 && y >= 0 && x < width_ && y < height_)) return;
    words_[static_cast<std::size_t>(y) * width_ + static_cast<std::size_t>(x)] = rgb;
  }

  int width_, height_;
  std::vector<std::uint32_t> words_;
};

bool write_bmp(const std::string& path, const Triangulation& t) {
  const View view(t, 800);
  Canvas canvas(view.width, view.height);
  const std::uint32_t edge = 0x3A5A8C, boundary = 0xC02020;
  for (std::size_t i = 0; i + 2 < t.corners.size(); i += 3)
    for (int k = 0; k < 3; ++k) {
      const Vertex& a = t.corners[i + k];
      const Vertex& b = t.corners[i + (k + 1) % 3];
      canvas.line(view.x(a), view.y(a), view.x(b), view.y(b), edge);
    }
  for (const auto& ring : t.rings)
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const Vertex& a = ring[i];
      const Vertex& b = ring[(i + 1) % ring.size()];
      canvas.line(view.x(a), view.y(a), view.x(b), view.y(b), boundary);
    }
  return canvas.save(path);
}

// Runs the library's triangulation; false when it fails.
bool triangulate(const std::vector<Vertex>& points, unsigned int boundary, Triangulation& result) {
  const ProgressNote progress(points.size() >= kLongRunPoints,
                              "triangulating " + std::to_string(points.size()) + " points");
  void* array = nullptr;
  unsigned int count = 0;
  if (!Triangulieren(static_cast<int>(points.size()), boundary,
                     points.empty() ? nullptr : &points[0].x, &array, &count))
    return false;
  const auto* corners = static_cast<const Vertex*>(array);
  result.corners.assign(corners, corners + 3u * count);
  FreeTriangs(&array);
  result.rings.emplace_back(points.begin(),
                            points.begin() + std::min<std::size_t>(boundary, points.size()));
  return true;
}

// A floor plan of rings: the points as TriangulateRegion takes them, and
// the line each point came from, for messages.
struct Plan {
  std::vector<double> xy;
  std::vector<unsigned int> rings;
  std::vector<int> lines;
};

bool read_plan(const std::string& path, Plan& plan) {
  enum { kBeforeRings, kInRing, kInteriorPoints } section = kBeforeRings;
  return for_each_data_line(path, [&](int number, const std::string& line) {
    std::istringstream fields(line);
    std::string first, rest;
    fields >> first;
    if (first == "ring" || first == "points") {
      if (section == kInteriorPoints)
        return line_error(path, number, "\"" + first + "\" after the interior points");
      if (fields >> rest)
        return line_error(path, number, "\"" + first + "\" takes nothing after it");
      section = first == "ring" ? kInRing : kInteriorPoints;
      if (section == kInRing) plan.rings.push_back(0);
      return true;
    }
    if (section == kBeforeRings) return line_error(path, number, "expected \"ring\" first");
    std::istringstream pair(line);
    double x, y;
    if (!(pair >> x >> y) || (pair >> rest)) return line_error(path, number, "expected \"x y\"");
    plan.xy.push_back(x), plan.xy.push_back(y);
    plan.lines.push_back(number);
    if (section == kInRing) ++plan.rings.back();
    return true;
  });
}

struct Refinement {
  double min_angle = 0;
  unsigned long max_added = 100000;
};

// Runs the library's region triangulation; false (with a message naming
// the input line where it can) when it refuses the plan.
bool triangulate_rings(const std::string& path, const Plan& plan, const Refinement& refinement,
                       Triangulation& result) {
  const std::size_t point_count = plan.xy.size() / 2;
  const ProgressNote progress(point_count >= kLongRunPoints,
                              "triangulating " + std::to_string(point_count) + " points");
  unsigned int* array = nullptr;
  double* added = nullptr;
  unsigned int count = 0, added_count = 0, crossing = 0;
  const int code = TriangulateRegionRefined(
      plan.xy.data(), static_cast<unsigned int>(point_count), plan.rings.data(),
      static_cast<unsigned int>(plan.rings.size()), refinement.min_angle,
      static_cast<unsigned int>(refinement.max_added), &array, &count, &added, &added_count,
      &crossing);
  if (code == QNUTIL_REGION_CROSSING)
    return line_error(path, plan.lines[crossing],
                      "the ring edge from this point crosses another ring edge");
  if (code == QNUTIL_REGION_BAD_ARGUMENT) {
    std::fprintf(stderr, "qnutil tri: --min-angle must be 0 to %d and --max-added leave room\n",
                 QNUTIL_REGION_LARGEST_MIN_ANGLE);
    return false;
  }
  if (code == QNUTIL_REGION_BAD_COORDINATE) {
    fail("tri", path, "coordinates must be finite and within +-1e30");
    return false;
  }
  if (code != QNUTIL_REGION_OK) {
    std::fprintf(stderr, "qnutil tri: triangulation failed (result %d)\n", code);
    return false;
  }
  // Indices from point_count on name the added points.
  auto vertex = [&](std::size_t i) {
    const double* xy = i < point_count ? &plan.xy[2 * i] : added + 2 * (i - point_count);
    return Vertex{static_cast<float>(xy[0]), static_cast<float>(xy[1])};
  };
  for (std::size_t i = 0; i < 3u * std::size_t{count}; ++i)
    result.corners.push_back(vertex(array[i]));
  FreeRegionTriangles(&array);
  FreeRegionPoints(&added);
  result.added = added_count;
  std::size_t start = 0;
  for (const unsigned int size : plan.rings) {
    auto& ring = result.rings.emplace_back();
    for (std::size_t i = start; i < start + size; ++i) ring.push_back(vertex(i));
    start += size;
  }
  return true;
}

bool write_drawings(const Triangulation& t, const char* svg, const char* bmp) {
  if (svg && !write_svg(svg, t)) {
    std::fprintf(stderr, "qnutil tri: cannot write %s\n", svg);
    return false;
  }
  if (bmp && !write_bmp(bmp, t)) {
    std::fprintf(stderr, "qnutil tri: cannot write %s\n", bmp);
    return false;
  }
  return true;
}

void print_triangles_json(const Triangulation& t) {
  JsonArrayWriter json;
  auto corner = [](const Vertex& v) {
    return "[" + json_number(v.x) + ", " + json_number(v.y) + "]";
  };
  for (std::size_t i = 0; i + 2 < t.corners.size(); i += 3) {
    const Vertex* c = &t.corners[i];
    json.item("[" + corner(c[0]) + ", " + corner(c[1]) + ", " + corner(c[2]) + "]");
  }
}

int run_tri(int argc, char** argv) {
  const bool as_json = take_json_flag(argc, argv);
  const char* input = nullptr;
  const char* svg = nullptr;
  const char* bmp = nullptr;
  bool rings = false, boundary_given = false, refining = false, capped = false;
  Refinement refinement;
  unsigned long boundary = 0;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--boundary") == 0 && i + 1 < argc) {
      char* end = nullptr;
      boundary = std::strtoul(argv[++i], &end, 10);
      if (*end != '\0' || argv[i][0] == '-' || boundary > 0xFFFFFFFFul) return usage_error(kTri);
      boundary_given = true;
    } else if (std::strcmp(argv[i], "--rings") == 0) {
      rings = true;
    } else if (std::strcmp(argv[i], "--min-angle") == 0 && i + 1 < argc) {
      char* end = nullptr;
      refinement.min_angle = std::strtod(argv[++i], &end);
      if (*end != '\0' || argv[i][0] == '\0') return usage_error(kTri);
      refining = true;
    } else if (std::strcmp(argv[i], "--max-added") == 0 && i + 1 < argc) {
      char* end = nullptr;
      refinement.max_added = std::strtoul(argv[++i], &end, 10);
      if (*end != '\0' || argv[i][0] == '-' || refinement.max_added > 0xFFFFFFFFul)
        return usage_error(kTri);
      capped = true;
    } else if (std::strcmp(argv[i], "--svg") == 0 && i + 1 < argc) {
      svg = argv[++i];
    } else if (std::strcmp(argv[i], "--bmp") == 0 && i + 1 < argc) {
      bmp = argv[++i];
    } else if (!input && argv[i][0] != '-') {
      input = argv[i];
    } else {
      return usage_error(kTri);
    }
  }
  if (!input || (rings && boundary_given) || (refining && !rings) || (capped && !refining))
    return usage_error(kTri);
  Triangulation result;
  if (rings) {
    Plan plan;
    if (!read_plan(input, plan) || !triangulate_rings(input, plan, refinement, result)) return 1;
  } else {
    std::vector<Vertex> points;
    if (!read_points(input, points)) return 1;
    if (!triangulate(points, static_cast<unsigned int>(boundary), result)) {
      std::fprintf(stderr, "qnutil tri: triangulation failed\n");
      return 1;
    }
  }
  if (as_json)
    print_triangles_json(result);
  else
    std::printf("%zu triangles%s\n", result.corners.size() / 3,
                refining ? (", " + std::to_string(result.added) + " points added").c_str() : "");
  return write_drawings(result, svg, bmp) ? 0 : 1;
}

// The floor plan's first 12 points are its outline; the rest lie inside.
int demo_triangulation(const DemoContext& context) {
  constexpr unsigned int kOutlinePoints = 12;
  const std::string input = (context.samples / "floor_plan_points.txt").string();
  std::vector<Vertex> points;
  if (!read_points(input, points)) return 1;
  Triangulation result;
  if (!triangulate(points, kOutlinePoints, result)) return 1;
  const std::string svg = (context.output / "floor_plan_triangles.svg").string();
  const std::string bmp = (context.output / "floor_plan_triangles.bmp").string();
  std::printf("%zu points (outline of %u) -> %zu triangles\n", points.size(), kOutlinePoints,
              result.corners.size() / 3);
  if (!write_drawings(result, svg.c_str(), bmp.c_str())) return 1;
  std::printf("drawn to %s and %s\n", svg.c_str(), bmp.c_str());
  return 0;
}

// The slab with its openings: rings and a grid of interior points.
int demo_region(const DemoContext& context) {
  const std::string input = (context.samples / "floor_plan_rings.txt").string();
  Plan plan;
  Triangulation result;
  if (!read_plan(input, plan) || !triangulate_rings(input, plan, Refinement{}, result)) return 1;
  const std::string svg = (context.output / "floor_plan_openings.svg").string();
  const std::string bmp = (context.output / "floor_plan_openings.bmp").string();
  std::printf("%zu rings (outline and openings), %zu points -> %zu triangles, openings empty\n",
              plan.rings.size(), plan.xy.size() / 2, result.corners.size() / 3);
  if (!write_drawings(result, svg.c_str(), bmp.c_str())) return 1;
  std::printf("drawn to %s and %s\n", svg.c_str(), bmp.c_str());

  // The same slab refined to angles of 28 degrees or more, without the grid.
  constexpr double kDemoAngle = 28;
  Plan rings_only = plan;
  std::size_t ring_points = 0;
  for (const unsigned int size : plan.rings) ring_points += size;
  rings_only.xy.resize(2 * ring_points);
  Triangulation refined;
  if (!triangulate_rings(input, rings_only, Refinement{kDemoAngle}, refined)) return 1;
  const std::string refined_svg = (context.output / "floor_plan_openings_refined.svg").string();
  std::printf("refined to angles of %g degrees or more: %zu points added -> %zu triangles\n",
              kDemoAngle, refined.added, refined.corners.size() / 3);
  if (!write_drawings(refined, refined_svg.c_str(), nullptr)) return 1;
  std::printf("drawn to %s\n", refined_svg.c_str());
  return 0;
}

const RegisterCommand registered{kTri};
const RegisterDemoStep demo{{60, "polygon triangulation", demo_triangulation}};
const RegisterDemoStep demo_openings{{61, "floor plan with openings", demo_region}};

}  // namespace
}  // namespace qnutil_tool
