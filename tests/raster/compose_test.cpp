// DrawBitmap and CopyRect: clipping, the mode 0 and mode 1 formulas against
// straightforward scalar versions, opacity, and drawing onto itself.
#include <gtest/gtest.h>

#include <algorithm>

#include "bmp_bytes.h"
#include "engine_support.h"

using namespace raster_test;

namespace {

int clampi(int64_t v, int64_t lo, int64_t hi) {
  return static_cast<int>(std::max(std::min(v, hi), lo));
}

// Channel c of p weighted: c × 256 × w >> 8, each channel on its own.
int weighted(uint32_t p, int shift, int w) { return (int((p >> shift) & 255) * 256 * w) >> 8; }

// The whole operation written out plainly, pixel by pixel.
void draw_reference(CQnBitmap& dst, int x, int y, int width, int height, CQnBitmap& src, int sx,
                    int sy, int sw, int sh, int opacity, int mode) {
  const int W = dst.Width(), H = dst.Height(), SW = src.Width(), SH = src.Height();
  const int x0 = sx < 0 ? clampi(int64_t(x) - sx, 0, W - 1) : clampi(x, 0, W - 1);
  const int y0 = sy < 0 ? clampi(int64_t(y) - sy, 0, H - 1) : clampi(y, 0, H - 1);
  const int dW = clampi(int64_t(x) + width, 0, W - 1) - x0 + 1,
            dH = clampi(int64_t(y) + height, 0, H - 1) - y0 + 1;
  const int sx0 = x < 0 ? clampi(int64_t(sx) - x, 0, SW - 1) : clampi(sx, 0, SW - 1);
  const int sy0 = y < 0 ? clampi(int64_t(sy) - y, 0, SH - 1) : clampi(sy, 0, SH - 1);
  const int sW = clampi(int64_t(sw) + sx, 0, SW - 1) - sx0 + 1,
            sH = clampi(int64_t(sy) + sh, 0, SH - 1) - sy0 + 1;
  if (dW <= 0 || dH <= 0 || sW <= 0 || sH <= 0) return;
  const int64_t fx = static_cast<int64_t>(float(sW) / float(dW) * 256.0f);
  const int64_t fy = static_cast<int64_t>(float(sH) / float(dH) * 256.0f);
  const int a = static_cast<int>(float(std::clamp(opacity, 0, 100)) / 100.0f * 256.0f);
  for (int j = 0; j < dH; ++j)
    for (int i = 0; i < dW; ++i) {
      uint32_t sample = 0;
      if (mode == 0) {
        sample =
            picture_word(src, sx0 + int((i * 256 * fx) >> 16), sy0 + int((j * 256 * fy) >> 16));
      } else {
        const int64_t vy = ((j * 256) * fy) >> 8, vx = (i * 256) * fx;
        const int col = sx0 + int(vx >> 16), row = sy0 + int(vy >> 8);
        const int ty = int(vy & 255), tx = int((vx >> 8) & 255);
        const bool right = i < SW - 1 && col + 1 < SW, below = j < SH - 1 && row + 1 < SH;
        const uint32_t p00 = picture_word(src, col, row);
        const uint32_t p01 = right ? picture_word(src, col + 1, row) : p00;
        const uint32_t p10 = below ? picture_word(src, col, row + 1) : p00;
        const uint32_t p11 = right && below ? picture_word(src, col + 1, row + 1) : p00;
        for (int shift : {0, 8, 16})
          sample |= static_cast<uint32_t>((weighted(p00, shift, ((256 - ty) * (256 - tx)) >> 8) +
                                           weighted(p01, shift, ((256 - ty) * tx) >> 8) +
                                           weighted(p10, shift, ((256 - tx) * ty) >> 8) +
                                           weighted(p11, shift, (ty * tx) >> 8)) >>
                                          8)
                    << shift;
      }
      uint32_t& d = picture_word(dst, x0 + i, y0 + j);
      uint32_t out = 0;
      for (int shift : {0, 8, 16})
        out |=
            static_cast<uint32_t>((weighted(sample, shift, a) + weighted(d, shift, 256 - a)) >> 8)
            << shift;
      d = out;
    }
}

struct DrawCase {
  int dw, dh, sw_img, sh_img;  // picture sizes
  int x, y, width, height, sx, sy, sw, sh, opacity;
  bool onto_itself = false;  // the destination is its own source and sees pixels already written
};

class DrawModes : public testing::TestWithParam<std::tuple<int, DrawCase>> {};

TEST_P(DrawModes, MatchTheScalarFormula) {
  const auto& [mode, c] = GetParam();
  CQnBitmap dst, src, expected;
  set_words(dst, c.dw, c.dh, pattern_words(size_t(c.dw) * c.dh, 1));
  set_words(src, c.sw_img, c.sh_img, pattern_words(size_t(c.sw_img) * c.sh_img, 2));
  expected.Copy(&dst);
  dst.SetInterpolationMode(mode);
  dst.DrawBitmap(c.x, c.y, c.width, c.height, c.onto_itself ? &dst : &src, c.sx, c.sy, c.sw, c.sh,
                 c.opacity);
  draw_reference(expected, c.x, c.y, c.width, c.height, c.onto_itself ? expected : src, c.sx, c.sy,
                 c.sw, c.sh, c.opacity, mode);
  EXPECT_EQ(words_of(dst), words_of(expected));
}

INSTANTIATE_TEST_SUITE_P(
    Rectangles, DrawModes,
    testing::Combine(
        testing::Values(0, 1),
        testing::Values(DrawCase{40, 30, 10, 10, 3, 4, 19, 19, 0, 0, 9, 9, 100},    // enlarge
                        DrawCase{17, 13, 31, 29, 0, 0, 16, 12, 0, 0, 30, 28, 100},  // reduce
                        DrawCase{17, 13, 31, 29, 2, 1, 9, 7, 5, 3, 11, 20, 37},     // opacity
                        DrawCase{20, 20, 9, 7, -5, -3, 30, 30, 0, 0, 8, 6, 150},
                        DrawCase{20, 20, 9, 7, 2, 2, 10, 10, -4, -2, 8, 6, -5},
                        DrawCase{20, 20, 9, 7, 50, 3, 10, 10, 0, 0, 8, 6,
                                 80},  // right of the image
                        DrawCase{23, 19, 23, 19, 0, 0, 22, 18, 0, 0, 22, 18, 64},
                        DrawCase{30, 30, 5, 40, 1, 1, 27, 7, 3, 30, 1, 9, 100},
                        DrawCase{9, 9, 9, 9, 0, 0, 8, 8, 8, 8, 0, 0, 100},
                        DrawCase{12, 9, 1, 1, 2, 1, 9, 7, 0, 0, 4, 3, 70, true})));

TEST(DrawBitmap, SmoothModeAveragesReductionsAndKeepsFlatColours) {
  CQnBitmap dst, src;
  dst.SetInterpolationMode(2);
  dst.Create(2, 1);
  set_words(src, 8, 1,
            {0, 0xFFFFFF, 0, 0xFFFFFF, 0, 0xFFFFFF, 0, 0xFFFFFF});  // black and white columns
  dst.DrawBitmap(0, 0, 1, 0, &src, 0, 0, 7, 0, 100);
  EXPECT_EQ(words_of(dst), (std::vector<uint32_t>{0x808080, 0x808080}));
  // Enlarging a flat colour gives the same colour everywhere.
  CQnBitmap big;
  big.SetInterpolationMode(2);
  big.Create(25, 17);
  set_words(src, 3, 2, std::vector<uint32_t>(6, 0x336699));
  big.DrawBitmap(0, 0, 24, 16, &src, 0, 0, 2, 1, 100);
  EXPECT_EQ(words_of(big), std::vector<uint32_t>(25 * 17, 0x336699));
}

TEST(CopyRect, CopiesInclusiveSpansWordForWord) {
  CQnBitmap dst, src;
  dst.Create(6, 5);
  dst.Fill(0);
  std::vector<uint32_t> words;
  for (int i = 0; i < 16; ++i) words.push_back(0xAA000000u | static_cast<uint32_t>(i));
  set_words(src, 4, 4, words);
  dst.CopyRect(1, 2, 1, 1, &src, 2, 1);  // span 1: two columns and two rows
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 6; ++x) {
      const bool inside = x >= 1 && x <= 2 && y >= 2 && y <= 3;
      EXPECT_EQ(picture_pixel(dst, x, y), inside ? picture_pixel(src, x - 1 + 2, y - 2 + 1) : 0u)
          << x << "," << y;
    }
  const auto before = words_of(dst);
  dst.CopyRect(0, 0, 0, 3, &src, 0, 0);  // span 0: nothing
  dst.CopyRect(0, 0, 3, 3, &src, 3, 0);  // source span clamped to 0
  EXPECT_EQ(words_of(dst), before);
}

}  // namespace
