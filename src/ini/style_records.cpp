// Drawing style records as number lists (and a GUID key for the extended
// fill style).
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "frame/export_guard.h"
#include "platform/guid_text.h"
#include "qnutil/ini.h"
#include "qnutil/numeric.h"

using qnutil::frame::guard_export;

namespace {

constexpr int kFillNumbers = 10;
constexpr int kPenNumbers = 5;
constexpr int kTexNumbers = 13;
constexpr std::size_t kLongestGuidBaseKey = 250;
constexpr char kGuidKeySuffix[] = "GUID";

double whole(double value) { return QnUtil_PRound(value, 0); }
double five_decimals(double value) { return QnUtil_PRound(value, -5); }

void put_colour(double* out, std::uint32_t colour) {
  for (int shift = 0; shift < 24; shift += 8) *out++ = whole((colour >> shift) & 0xFF);
}

std::int32_t integer_from(double value) { return static_cast<std::int32_t>(QnUtil_LRound(value)); }
std::uint8_t byte_from(double value) {
  return static_cast<std::uint8_t>(integer_from(value) & 0xFF);
}
std::int32_t flag_from(double value) { return std::fabs(value) >= 0.0001 ? 1 : 0; }

std::uint32_t colour_from(const double* in) {
  return static_cast<std::uint32_t>(byte_from(in[0])) |
         static_cast<std::uint32_t>(byte_from(in[1])) << 8 |
         static_cast<std::uint32_t>(byte_from(in[2])) << 16;
}

// Up to N numbers; those a short list lacks read as 0.
template <int N>
bool read_numbers(MiniHandle handle, const char* section, const char* key, double (&values)[N]) {
  std::fill(values, values + N, 0.0);
  int count = N;
  return mini_read_doubles(handle, section, key, values, &count) == QNUTIL_OK;
}

template <int N>
int write_numbers(MiniHandle handle, const char* section, const char* key,
                  const double (&values)[N]) {
  return mini_write_doubles(handle, section, key, values, N);
}

void fill_to_numbers(const FillStyleRec& fill, double (&values)[kFillNumbers]) {
  values[0] = whole(fill.style);
  values[1] = five_decimals(static_cast<double>(fill.param));
  put_colour(values + 2, fill.color);
  values[5] = five_decimals(fill.param2);
  put_colour(values + 6, fill.color2);
  values[9] = five_decimals(fill.param3);
}

void fill_from_numbers(const double (&values)[kFillNumbers], FillStyleRec& fill) {
  fill.style = byte_from(values[0]);
  fill.param = static_cast<std::uint32_t>(integer_from(values[1]));
  fill.color = colour_from(values + 2);
  fill.param2 = byte_from(values[5]);
  fill.color2 = colour_from(values + 6);
  fill.param3 = byte_from(values[9]);
}

void pen_to_numbers(const PenStyleRec& pen, double colour_scale, double (&values)[kPenNumbers]) {
  values[0] = whole(pen.style);
  values[1] = five_decimals(pen.width);
  for (int i = 0; i < 3; ++i) values[2 + i] = whole(((pen.color >> (8 * i)) & 0xFF) / colour_scale);
}

int write_pen(MiniHandle handle, const char* section, const char* key, const PenStyleRec* pen,
              double colour_scale) {
  if (!handle || !section || !key || !pen) return QNUTIL_FAILED;
  double values[kPenNumbers];
  pen_to_numbers(*pen, colour_scale, values);
  return write_numbers(handle, section, key, values);
}

// key + "GUID", or nothing for keys too long to take the suffix.
bool guid_key(const char* key, std::string& out) {
  if (std::strlen(key) > kLongestGuidBaseKey) return false;
  out = std::string(key) + kGuidKeySuffix;
  return true;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_fillstyle(MiniHandle handle, const char* section,
                                                          const char* key, FillStyleRec* style) {
  if (!style) return QNUTIL_FAILED;
  double values[kFillNumbers];
  if (!read_numbers(handle, section, key, values)) return QNUTIL_FAILED;
  fill_from_numbers(values, *style);
  return QNUTIL_OK;
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_fillstyle(MiniHandle handle, const char* section,
                                                           const char* key,
                                                           const FillStyleRec* style) {
  if (!handle || !section || !key || !style) return QNUTIL_FAILED;
  double values[kFillNumbers];
  fill_to_numbers(*style, values);
  return write_numbers(handle, section, key, values);
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_fillstyle_ex(MiniHandle handle, const char* section,
                                                             const char* key,
                                                             FillStyleExRec* style) {
  if (!style || mini_read_fillstyle(handle, section, key, &style->fill) != QNUTIL_OK) {
    return QNUTIL_FAILED;
  }
  return guard_export(QNUTIL_FAILED, [&] {
    std::string name;
    if (!guid_key(key, name)) return QNUTIL_FAILED;
    char text[64];
    unsigned int length = sizeof text - 1;
    qnutil::platform::GuidBytes guid;
    if (mini_read_string(handle, section, name.c_str(), text, &length) != QNUTIL_OK ||
        !qnutil::platform::guid_from_text(text, guid)) {
      return QNUTIL_FAILED;
    }
    std::memcpy(&style->guid, &guid, sizeof style->guid);
    return QNUTIL_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_fillstyle_ex(MiniHandle handle,
                                                              const char* section, const char* key,
                                                              const FillStyleExRec* style) {
  if (!style || mini_write_fillstyle(handle, section, key, &style->fill) != QNUTIL_OK) {
    return QNUTIL_FAILED;
  }
  return guard_export(QNUTIL_FAILED, [&] {
    std::string name;
    qnutil::platform::GuidBytes guid;
    std::memcpy(&guid, &style->guid, sizeof guid);
    char text[qnutil::platform::kGuidTextSize];
    if (!guid_key(key, name) || !qnutil::platform::guid_to_text(guid, text)) return QNUTIL_FAILED;
    return mini_write_string(handle, section, name.c_str(), text);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_penstyle(MiniHandle handle, const char* section,
                                                         const char* key, PenStyleRec* pen) {
  if (!pen) return QNUTIL_FAILED;
  double values[kPenNumbers];
  if (!read_numbers(handle, section, key, values)) return QNUTIL_FAILED;
  pen->style = integer_from(values[0]);
  pen->width = static_cast<float>(values[1]);
  pen->color = colour_from(values + 2);
  return QNUTIL_OK;
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_penstyle(MiniHandle handle, const char* section,
                                                          const char* key, const PenStyleRec* pen) {
  return write_pen(handle, section, key, pen, 1.0);
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_penstyleEX(MiniHandle handle, const char* section,
                                                            const char* key,
                                                            const PenStyleRec* pen) {
  return write_pen(handle, section, key, pen, 255.0);
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_texprops(MiniHandle handle, const char* section,
                                                         const char* key, TexPropsRec* props) {
  if (!props) return QNUTIL_FAILED;
  double values[kTexNumbers];
  if (!read_numbers(handle, section, key, values)) return QNUTIL_FAILED;
  props->enabled = flag_from(values[0]);
  for (int i = 0; i < 8; ++i) props->values[i] = static_cast<float>(values[1 + i]);
  props->flag2 = flag_from(values[9]);
  props->flag3 = flag_from(values[10]);
  props->value9 = static_cast<float>(values[11]);
  props->value10 = static_cast<float>(values[12]);
  return QNUTIL_OK;
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_texprops(MiniHandle handle, const char* section,
                                                          const char* key,
                                                          const TexPropsRec* props) {
  if (!handle || !section || !key || !props) return QNUTIL_FAILED;
  double values[kTexNumbers];
  values[0] = props->enabled ? 1.0 : 0.0;
  for (int i = 0; i < 8; ++i) values[1 + i] = five_decimals(props->values[i]);
  values[9] = props->flag2 ? 1.0 : 0.0;
  values[10] = props->flag3 ? 1.0 : 0.0;
  values[11] = five_decimals(props->value9);
  values[12] = five_decimals(props->value10);
  return write_numbers(handle, section, key, values);
}
