#pragma once

#include <messages/ustring.h>

#include <optional>
#include <string>
#include <string_view>

namespace vgdt {

/// Goes through a text that requireJson() has let through, from the begin of a value on. It looks
/// only at what is asked for and keeps nothing. The text outlives it, and has a NUL behind it.
class JsonCursor {
 public:
  enum class Kind { Null, Boolean, Number, String, List, Object };

  explicit JsonCursor(const char* value) : place_(value) {}

  /// Of the value that begins here.
  Kind kind() const;
  /// Where the value begins, or what has been read ends.
  const char* place() const { return place_; }

  // Each of these reads the value, which has to be of the kind.

  bool boolean() { return skip() == "true"; }
  std::string_view number() { return skip(); }
  /// What stands between the quotes, escapes as they are written: JsonText decodes them.
  std::string_view string();
  /// Calls `visit(name, cursor)` for each member, with the name as string() gives it. A value that
  /// it leaves unread is skipped.
  template <class Visit>
  void members(Visit&& visit);
  /// Calls `visit(cursor)` for each element.
  template <class Visit>
  void elements(Visit&& visit);
  /// The JSON of a value of any kind.
  std::string_view skip();

  /// The first value of that name in the object that begins here; none if there is none.
  std::optional<JsonCursor> find(std::string_view name) const;

  static constexpr bool isSpace(char byte) {
    return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
  }

 private:
  void skipSpace() {
    while (isSpace(*place_))
      ++place_;
  }
  void skipContainer();
  /// Behind the bracket or brace; whether there is anything inside.
  bool enter();
  /// Behind the comma; or behind the bracket or brace if nothing follows.
  bool proceed();
  std::string_view memberName();
  template <class Visit>
  void visitValue(Visit&& visit);

  const char* place_;
};

/// Where the only value of a text begins.
JsonCursor valueOf(std::string_view json);

/// The text of a string or name as JsonCursor gives it. Half of a surrogate pair becomes U+FFFD.
class JsonText {
 public:
  explicit JsonText(std::string_view raw);
  JsonText(const JsonText&) = delete;
  JsonText& operator=(const JsonText&) = delete;

  /// Valid as long as this and the JSON.
  std::string_view utf8() const& { return utf8_; }
  std::string_view utf8() && = delete;

 private:
  std::string decoded_;
  std::string_view utf8_;
};

/// The same in UTF-16, in place of what `text` has. Half of a surrogate pair stays.
void readUtf16(std::string_view raw, fl::ustring& text);

inline JsonCursor::Kind JsonCursor::kind() const {
  switch (*place_) {
    case '{':
      return Kind::Object;
    case '[':
      return Kind::List;
    case '"':
      return Kind::String;
    case 't':
    case 'f':
      return Kind::Boolean;
    case 'n':
      return Kind::Null;
    default:
      return Kind::Number;
  }
}

inline std::string_view JsonCursor::string() {
  const char* const begin = ++place_;
  while (*place_ != '"')
    place_ += *place_ == '\\' ? 2 : 1;
  return {begin, place_++};
}

inline bool JsonCursor::enter() {
  ++place_;
  skipSpace();
  if (*place_ != '}' && *place_ != ']') return true;
  ++place_;
  return false;
}

inline bool JsonCursor::proceed() {
  skipSpace();
  if (*place_++ != ',') return false;
  skipSpace();
  return true;
}

inline std::string_view JsonCursor::memberName() {
  const std::string_view name = string();
  skipSpace();
  ++place_;  // the colon
  skipSpace();
  return name;
}

template <class Visit>
void JsonCursor::visitValue(Visit&& visit) {
  const char* const begin = place_;
  visit();
  if (place_ == begin) skip();
}

template <class Visit>
void JsonCursor::members(Visit&& visit) {
  for (bool hasMore = enter(); hasMore; hasMore = proceed()) {
    const std::string_view name = memberName();
    visitValue([&] { visit(name, *this); });
  }
}

template <class Visit>
void JsonCursor::elements(Visit&& visit) {
  for (bool hasMore = enter(); hasMore; hasMore = proceed())
    visitValue([&] { visit(*this); });
}

}  // namespace vgdt
