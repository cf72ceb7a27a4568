// Colours, pens, brushes and rotation shared by the drawing exports.
#pragma once

#include <memory>

#include "gdiplus/gdiplus_sdk.h"

namespace qnutil::gdiplus {

// ARGB from separate channels, each taken from its low byte.
Gdiplus::Color argb(int alpha, int red, int green, int blue);

// A COLORREF (0x00BBGGRR) as an opaque colour.
Gdiplus::Color opaque_colorref(COLORREF color);

// An opaque pen of the colour in UnitWorld, `width` x 10 wide, dashed by
// the host's line style code.
std::unique_ptr<Gdiplus::Pen> styled_pen(int red, int green, int blue, float width, int line_style);

// The brush of a fill style code (solid or hatch over white of the same
// alpha); null for codes without fill.
std::unique_ptr<Gdiplus::Brush> fill_brush(int fill_style, Gdiplus::Color color);

// Turns everything drawn next by `degrees` about (cx, cy).
void rotate_about(Gdiplus::Graphics& graphics, float cx, float cy, float degrees);

}  // namespace qnutil::gdiplus
