// The engine's hue/saturation/intensity form: a pixel word holding hue in
// bits 16-23, saturation in bits 8-15 and intensity in bits 0-7, each
// scaled to 0-255.
//
// The conversions follow the engine's long-standing formulas, constants
// included (single-precision pi, an atan2 of its own), so that colours
// derived from them match images the host has stored; arithmetic is in
// double precision.
#pragma once

#include <cstdint>

namespace qnutil::raster {

uint32_t rgb_to_hsi(uint32_t rgb);
uint32_t hsi_to_rgb(uint32_t hsi);

}  // namespace qnutil::raster
