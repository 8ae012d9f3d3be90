#include "HostText.h"
#include "TypeRegistration.h"

#include <graphics/datatype/StringConversion.h>
#include <gui_objects/convert_from_string_utils.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeRepository.h>

#include <algorithm>
#include <array>
#include <boost/lexical_cast/try_lexical_convert.hpp>
#include <cmath>
#include <concepts>
#include <cstdio>
#include <limits>
#include <string_view>
#include <type_traits>

namespace graphics::datatype {

using boost::conversion::try_lexical_convert;
using gui_objects::convert_from_string_utils::ParseException;
using vcos::COSValue;

namespace {

/// Holds the longest text: a 64-bit number with a separator between any two digits.
using Text = std::array<char, 48>;

template <class T>
COSValue wordOf(T value) {
  if constexpr (std::floating_point<T>)
    return COSValue::fromDouble(double{value});
  else
    return COSValue::fromInteger(value);
}

template <class T>
T valueOf(COSValue word) {
  if constexpr (std::floating_point<T>)
    return static_cast<T>(word.asDouble());
  else if constexpr (std::same_as<T, bool>)
    return word.asLogical();
  else
    return word.asInteger<T>();
}

template <std::integral T>
bool read(std::string_view text, T& value) {
  return try_lexical_convert(text.data(), text.size(), value);
}

/// By way of int: for a type that is promoted to int, boost's arithmetic overflows on some texts.
template <std::integral T>
requires(sizeof(T) == sizeof(short)) bool read(std::string_view text, T& value) {
  constexpr int kMax = std::numeric_limits<T>::max();
  constexpr int kMin = std::is_signed_v<T> ? -kMax - 1 : -kMax;
  int wide = 0;
  if (!read(text, wide) || wide < kMin || wide > kMax) return false;
  value = static_cast<T>(wide);
  return true;
}

/// Whether the word in the text of a NaN or an infinity is all lower or all upper case.
bool hasOneCase(std::string_view special) {
  const std::string_view word = special.substr(0, special.find('('));
  return word.find_first_of("afinty") == word.npos || word.find_first_of("AFINTY") == word.npos;
}

template <std::floating_point T>
bool read(std::string_view text, T& value) {
  // boost matches each letter of a special word in either case, and no number reads as infinite.
  return try_lexical_convert(text.data(), text.size(), value) &&
         (std::isfinite(value) || hasOneCase(text));
}

bool read(std::string_view text, bool& value) {
  value = text == "true";
  return value || text == "false";
}

template <std::integral T>
bool print(T value, Text& text) {
  return try_lexical_convert(value, text);
}

template <std::floating_point T>
bool print(T value, Text& text) {
  return std::snprintf(text.data(), text.size(), "%.*g", std::numeric_limits<T>::max_digits10,
                       double{value}) > 0;
}

bool print(bool value, Text& text) {
  const std::string_view word = value ? "true" : "false";
  *std::ranges::copy(word, text.begin()).out = '\0';
  return true;
}

COSValue copyAsString(COSValue value) {
  return vcos::COSTypeRepository::getType(vcos::COSNameID("string")).getObject()->copy(value);
}

}  // namespace

template <class T>
COSValue StringConversion<T>::to(COSValue value) const {
  Text text;
  if (!print(valueOf<T>(value), text)) throw ParseException();
  return COSValue::fromPointer(copyText(text.data()));
}

template <class T>
COSValue StringConversion<T>::from(COSValue text) const {
  T value{};
  if (text.isNull() || !read(text.asPointer<const char>(), value)) throw ParseException();
  return wordOf(value);
}

template class StringConversion<signed char>;
template class StringConversion<short>;
template class StringConversion<int>;
template class StringConversion<long>;
template class StringConversion<unsigned char>;
template class StringConversion<unsigned short>;
template class StringConversion<unsigned int>;
template class StringConversion<unsigned long>;
template class StringConversion<float>;
template class StringConversion<double>;
template class StringConversion<bool>;

COSValue StringStringConversion::to(COSValue value) const {
  return copyAsString(value);
}

COSValue StringStringConversion::from(COSValue text) const {
  return copyAsString(text);
}

namespace {

struct Registration {
  const char* inner;
  void (*add)(const char* outside, const char* inner);
};

constexpr Registration kRegistrations[] = {
    {"int8 scalar", addConversion<StringConversion<signed char>>},
    {"int16 scalar", addConversion<StringConversion<short>>},
    {"int32 scalar", addConversion<StringConversion<int>>},
    {"int64 scalar", addConversion<StringConversion<long>>},
    {"uint8 scalar", addConversion<StringConversion<unsigned char>>},
    {"uint16 scalar", addConversion<StringConversion<unsigned short>>},
    {"uint32 scalar", addConversion<StringConversion<unsigned int>>},
    {"uint64 scalar", addConversion<StringConversion<unsigned long>>},
    {"single scalar", addConversion<StringConversion<float>>},
    {"double scalar", addConversion<StringConversion<double>>},
    {"logical scalar", addConversion<StringConversion<bool>>},
    {"string", addConversion<StringStringConversion>},
    {"int", addConversion<StringConversion<int>>},
    {"uint64_T", addConversion<StringConversion<unsigned long>>},
    {"single", addConversion<StringConversion<float>>},
    {"float", addConversion<StringConversion<float>>},
    {"double", addConversion<StringConversion<double>>},
    {"logical", addConversion<StringConversion<bool>>},
};

}  // namespace

void initStringConverters() {
  for (const Registration& registration : kRegistrations)
    registration.add("string", registration.inner);
}

}  // namespace graphics::datatype
