#pragma once

#include "support/Arrays.h"

#include <string>
#include <vector>

/// The shaped array types as callers know them, written by hand: never made from the rows that the
/// library is stamped from.
namespace test {

struct ShapedType {
  std::string name;
  const char* storageClass;
  Numbers defaultRow;  ///< empty: the default is the empty value
  const char* sample;  ///< in words, with the elements below: a value
  Numbers elements;
  const char* sampleText;            ///< a value, too
  const char* printed = sampleText;  ///< what that prints as; null if it has no text
};

// clang-format off
inline const std::vector<ShapedType> kShapedTypes = {
    {"AlphaMap",                 "double", {1},           "1x3 logical",  {0, 1, 1},      "[ 1 2 ]"},
    {"AxesView",                 "double", {},            "2x1 double",   {30, -40},      "[ 30 -40 ]"},
    {"ColorMap",                 "double", {},            "2x3 uint8",    {0, 9, 255},    "[0 .5 1; 1 0 NaN]", "[2x3 array]"},
    {"ColorOrder",               "double", {0, 1, 1},     "1x3 single",   {0, 1, 0.5},    "[ 0 0 1 ]"},
    {"CompositeColorData",       "double", {},            "2x2x3 uint8",  {3},            "[ 1 2 ]"},
    {"Curvature",                "double", {0, 0},        "1x1 double",   {0.25},         "[ 0 1 ]"},
    {"DataBounds",               "double", {0, 1},        "1x2 single",   {-2, 3},        "[0 Inf]", "[ 0 inf ]"},
    {"ImageXYData",              "double", {1, 64},       "4x1 int16",    {1, 5, 7, -9},  "[ 1 2 3 ]"},
    {"Limits",                   "double", {0, 1},        "2x1 uint64",   {3, 4},         "[-1; 1]", "[2x1 array]"},
    {"LimitsWithInfs",           "double", {0, 1},        "1x2 single",   {-1, INFINITY}, "[-Inf Inf]", "[ -inf inf ]"},
    {"NColorPtr",                "double", {1, 1, 1},     "3x3 double",   {0, 1, 0.5},    "[ 0 0 0 ]"},
    {"Numeric2D3DMatrix",        "double", {1},           "2x1x2 int8",   {-1, 2},        "[1 2; 3 4]", "[2x2 array]"},
    {"NumericMatrix",            "double", {1},           "2x2 int64",    {-1, 2},        "[ 1 2 ]"},
    {"NumericOrLogicalMatrix",   "double", {1},           "2x2 logical",  {1, 0},         "[ 1 2 ]"},
    {"PatchFaces",               "double", {},            "2x2 uint16",   {1, 2, 65535},  "[4 NaN NaN]", "[ 4 nan nan ]"},
    {"PatchFaceVertexAlphaData", "double", {},            "3x1 uint8",    {0, 9},         "[1; 2]", "[2x1 array]"},
    {"PatchFaceVertexCData",     "double", {},            "2x3 uint8",    {0, 9},         "[ 1 2 3 ]"},
    {"PatchNormals",             "double", {},            "2x3 single",   {0, 9},         "[ 1 2 3 ]"},
    {"PatchVertices",            "double", {},            "3x2 double",   {0, -INFINITY}, "[ 1 2 3 ]"},
    {"PrimitiveColorData",       "uint8",  {},            "2x2 single",   {0, 2},         "[1; 2; 3; 255]", "[4x1 array]"},
    {"PrimitiveNormalsData",     "single", {},            "3x2 single",   {-1, 1, 0.5},   "[1; 0; -1]", "[3x1 array]"},
    {"PrimitiveRGBAData",        "uint8",  {},            "4x2 uint8",    {0, 255},       "[1; 2; 3; 4]", "[4x1 array]"},
    {"PrimitiveStripData",       "uint32", {},            "1x3 uint32",   {1, 4, 7},      "[ 1 4294967295 ]"},
    {"PrimitiveVertexData",      "single", {},            "3x2 single",   {0, -2},        "[1; 2; 3]", "[3x1 array]"},
    {"PrimitiveVertexIndices",   "uint32", {},            "1x3 uint32",   {1, 1, 7},      "[ 1 2 3 ]"},
    {"SurfaceCData",             "double", {},            "2x2x3 double", {1, 2},         "[1 NaN]", "[ 1 nan ]"},
    {"SurfaceVertexNormals",     "double", {},            "2x2x3 single", {1, 2},         "[]", nullptr},
    {"SurfaceXYData",            "double", {},            "2x2 int32",    {1, -2},        "[ 1 2 ]"},
    {"TextPosition",             "double", {0, 0, 0},     "2x1 logical",  {0, 1},         "[1 NaN]", "[ 1 nan ]"},
    {"TextureColorData",         "uint8",  {},            "4x1x2 uint8",  {0, 255},       "[1; 2; 3; 4]", "[4x1 array]"},
    {"Tick",                     "double", {},            "3x1 single",   {-1, 2, 9},     "[-Inf 0 Inf]", "[ -inf 0 inf ]"},
    {"TickLength",               "double", {0.01, 0.025}, "2x1 int32",    {7, -7},        "[ 0.01 0.02 ]"},
    {"VectorData",               "double", {0, 1},        "1x4 uint8",    {5, 4, 9},      "[ 3 2 1 ]"},
};
// clang-format on

}  // namespace test
