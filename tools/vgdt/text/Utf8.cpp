#include "text/Utf8.h"

namespace vgdt {
namespace {

/// What a first byte says of its character.
struct Lead {
  std::size_t length;  ///< 0 for a byte that begins no character
  unsigned char bits;
  // The second byte has to be in this range, which leaves out what could be written with fewer
  // bytes, the surrogates, and what lies behind U+10FFFF.
  unsigned char first = 0x80;
  unsigned char last = 0xBF;
};

Lead leadOf(unsigned char byte) {
  if (byte < 0x80) return {1, byte};
  const auto bits = [byte](unsigned mask) { return static_cast<unsigned char>(byte & mask); };
  if (byte < 0xC2) return {0, 0};
  if (byte < 0xE0) return {2, bits(0x1F)};
  if (byte == 0xE0) return {3, bits(0x0F), 0xA0, 0xBF};
  if (byte == 0xED) return {3, bits(0x0F), 0x80, 0x9F};
  if (byte < 0xF0) return {3, bits(0x0F)};
  if (byte == 0xF0) return {4, bits(0x07), 0x90, 0xBF};
  if (byte < 0xF4) return {4, bits(0x07)};
  if (byte == 0xF4) return {4, bits(0x07), 0x80, 0x8F};
  return {0, 0};
}

}  // namespace

Utf8Character firstCharacter(std::string_view utf8) {
  Lead lead = leadOf(static_cast<unsigned char>(utf8.front()));
  if (lead.length == 0) return {kReplacementCharacter, 1};
  char32_t character = lead.bits;
  for (std::size_t i = 1; i < lead.length; ++i) {
    const auto byte = static_cast<unsigned char>(i < utf8.size() ? utf8[i] : '\0');
    if (byte < lead.first || byte > lead.last) return {kReplacementCharacter, i};
    character = character << 6U | (byte & 0x3FU);
    lead.first = 0x80;
    lead.last = 0xBF;
  }
  return {character, lead.length};
}

Utf8Bytes::Utf8Bytes(char32_t character) : length_(0) {
  const auto add = [this](char32_t byte) { bytes_[length_++] = static_cast<char>(byte); };
  const auto addRest = [&](unsigned shift) { add(0x80U | (character >> shift & 0x3FU)); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0U | character >> 6U);
    addRest(0);
  } else if (character < 0x10000) {
    add(0xE0U | character >> 12U);
    addRest(6);
    addRest(0);
  } else {
    add(0xF0U | character >> 18U);
    addRest(12);
    addRest(6);
    addRest(0);
  }
}

}  // namespace vgdt
