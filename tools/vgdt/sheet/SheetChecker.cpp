#include "sheet/SheetChecker.h"

#include "Classes.h"
#include "Values.h"
#include "literal/Literal.h"
#include "sheet/JsonCursor.h"
#include "sheet/JsonPlace.h"
#include "sheet/PlainValues.h"
#include "text/Nearest.h"
#include "text/TextDisplay.h"

#include <fmt/format.h>
#include <ut/console.h>
#include <vx/errors.h>
#include <vx/objects.h>

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace vgdt {
namespace {

using Kind = JsonCursor::Kind;

constexpr const char* kLiteral = "literal";

/// An object of the sheet while it is checked.
struct SheetObject {
  JsonCursor json;
  const JsonPlace& place;
  std::optional<std::string> className = {};  ///< as it was given
  std::optional<std::string> name = {};
  bool isNameKnown = false;  ///< the name is looked for when something is refused
  SheetClass* known = nullptr;
  vcos::COSInterfacePtr made = {};  ///< null if the class is unknown
  vcos::ArrayOwner asParent = {};   ///< made for the first child
};

/// A member of the properties of an object.
struct PropertyValue {
  std::string_view name;
  const JsonPlace& place;
  SheetObject& object;
  SheetProperty* known;
};

/// What the library prints and warns of while this lives.
class LibraryOutput {
 public:
  std::vector<std::string> lines() const {
    std::vector<std::string> lines = console_.lines();
    for (const vghost::Warning& warning : warnings_.messages())
      lines.push_back(warning.message);
    return lines;
  }

 private:
  vghost::ConsoleCapture console_;
  vghost::WarningCapture warnings_;
};

/// None for a value of another kind.
std::optional<std::string> stringAt(JsonCursor value) {
  if (value.kind() != Kind::String) return std::nullopt;
  const JsonText text(value.string());
  return std::string(text.utf8());
}

std::optional<std::string> stringMember(const JsonCursor& object, std::string_view name) {
  const auto member = object.find(name);
  return member ? stringAt(*member) : std::nullopt;
}

/// "there is no class "Lien"; did you mean "Line"?"
std::string unknownName(std::string_view what, std::string_view name,
                        const std::vector<std::string>& names) {
  const auto nearest = nearestName(name, names);
  return fmt::format("{} \"{}\"{}", what, shortened(name),
                     nearest ? fmt::format("; did you mean \"{}\"?", *nearest) : "");
}

std::string duplicateName(std::string_view name) {
  return fmt::format("\"{}\" stands there twice; the first one counts", shortened(name));
}

class Checker {
 public:
  Checker(const Sheet& sheet, SheetClasses& classes, SheetReports& reports, Progress& progress,
          SheetTotals& totals)
      : sheet_(sheet),
        classes_(classes),
        reports_(reports),
        progress_(progress),
        totals_(totals),
        lines_(sheet.json.data()) {}

  void check() {
    JsonCursor value = valueOf(sheet_.json);
    const JsonPlace place;
    if (value.kind() == Kind::List)
      checkElements(value, place, nullptr);
    else
      checkElement(value, place, nullptr);
  }

 private:
  struct Member {
    const char* name;
    Kind kind;
    const char* kindInWords;
    void (Checker::*check)(JsonCursor& value, const JsonPlace& place, SheetObject& object);
  };
  static const Member kMembers[4];

  // --- objects -----------------------------------------------------------------------------------

  void checkElements(JsonCursor& list, const JsonPlace& place, SheetObject* parent) {
    list.elements([&, index = std::size_t{0}](JsonCursor& element) mutable {
      checkElement(element, {place, index++}, parent);
    });
  }

  void checkElement(JsonCursor& element, const JsonPlace& place, SheetObject* parent) {
    if (element.kind() == Kind::Object) return checkObject(element, place, parent);
    refuse(element, place, parent,
           parent ? "a child has to be an object"
                  : "a sheet has to be an object or a list of objects");
  }

  void checkObject(JsonCursor& json, const JsonPlace& place, SheetObject* parent) {
    progress_.show(static_cast<std::size_t>(json.place() - sheet_.json.data()));
    ++totals_.objects;
    SheetObject object{json, place};
    if (const auto className = json.find("class"))
      makeObject(object, *className, parent);
    else
      refuse(json, place, &object, "\"class\" is missing");
    unsigned met = 0;
    json.members(
        [&](std::string_view name, JsonCursor& value) { checkMember(name, value, object, met); });
  }

  /// If it names a class that there is.
  void makeObject(SheetObject& object, const JsonCursor& className, SheetObject* parent) {
    object.className = stringAt(className);
    if (object.className) object.known = classes_.find(*object.className);
    if (!object.known) return;
    object.made = object.known->createObject();
    if (!parent || !parent->made) return;
    if (!parent->asParent) parent->asParent.reset(omCreateVCOSScalar(parent->made));
    const ArrayScope scope;
    object.known->find("Parent")->set(object.made.get(), parent->asParent.get());
  }

  void checkMember(std::string_view rawName, JsonCursor& value, SheetObject& object,
                   unsigned& met) {
    const JsonText text(rawName);
    const std::string_view name = text.utf8();
    const JsonPlace place(object.place, rawName);
    const Member* const member =
        std::find_if(std::begin(kMembers), std::end(kMembers),
                     [name](const Member& known) { return name == known.name; });
    if (member == std::end(kMembers))
      return refuse(value, place, &object,
                    unknownName("an object has no member", name,
                                {"class", "name", "properties", "children"}));
    const unsigned bit = 1U << static_cast<unsigned>(member - kMembers);
    if (std::exchange(met, met | bit) & bit)
      return refuse(value, place, &object, duplicateName(name));
    if (value.kind() != member->kind)
      return refuse(value, place, &object,
                    fmt::format("\"{}\" has to be {}", name, member->kindInWords));
    (this->*member->check)(value, place, object);
  }

  void checkClass(JsonCursor& value, const JsonPlace& place, SheetObject& object) {
    if (object.known) return;
    refuse(value, place, &object,
           unknownName("there is no class", *object.className, classNames()));
  }

  void checkName(JsonCursor&, const JsonPlace&, SheetObject&) {}

  void checkChildren(JsonCursor& value, const JsonPlace& place, SheetObject& object) {
    checkElements(value, place, &object);
  }

  // --- properties --------------------------------------------------------------------------------

  void checkProperties(JsonCursor& value, const JsonPlace& place, SheetObject& object) {
    if (!object.known) return;
    const ArrayScope scope;
    listNumber_ = classes_.newListNumber();
    if (!unknown_.empty()) unknown_ = {};
    value.members([&](std::string_view rawName, JsonCursor& member) {
      const JsonText name(rawName);
      const JsonPlace memberPlace(place, rawName);
      checkProperty({name.utf8(), memberPlace, object, object.known->find(name.utf8())}, member);
    });
  }

  void checkProperty(const PropertyValue& property, JsonCursor& value) {
    progress_.show(static_cast<std::size_t>(value.place() - sheet_.json.data()));
    if (isDuplicate(property)) return refuseProperty(property, value, duplicateName(property.name));
    ++totals_.values;
    if (!property.known)
      return refuseProperty(
          property, value,
          unknownName(fmt::format("{} has no property", *property.object.className), property.name,
                      property.object.known->propertyNames()));
    if (value.kind() == Kind::Object) return checkLiteral(property, value);
    setValue(property, value, std::nullopt);
  }

  bool isDuplicate(const PropertyValue& property) {
    return property.known ? property.known->isMetAgain(listNumber_)
                          : !unknown_.emplace(property.name).second;
  }

  void checkLiteral(const PropertyValue& property, JsonCursor& value) {
    if (const auto literal = value.find(kLiteral)) {
      if (const auto text = stringAt(*literal)) setValue(property, value, text);
      checkLiteralMembers(property, value);
    } else {
      SheetRefusal refusal = requestRefusal(missingLiteral(value));
      refusal.isOfType = true;
      report(std::move(refusal), property, value);
    }
  }

  static std::string missingLiteral(JsonCursor value) {
    const char* const problem = "an object in place of a value is {\"literal\":L}";
    std::string nearest;
    value.members([&nearest](std::string_view rawName, const JsonCursor&) {
      const JsonText name(rawName);
      if (nearestName(name.utf8(), {kLiteral})) nearest = name.utf8();
    });
    return nearest.empty() ? problem
                           : fmt::format("{}; did you mean \"{}\", not \"{}\"?", problem, kLiteral,
                                         shortened(nearest));
  }

  void checkLiteralMembers(const PropertyValue& property, JsonCursor& value) {
    bool isMet = false;
    value.members([&](std::string_view rawName, const JsonCursor& member) {
      const JsonText name(rawName);
      const JsonPlace place(property.place, rawName);
      const auto refuseMember = [&](std::string problem) {
        report(requestRefusal(std::move(problem)),
               {property.name, place, property.object, property.known}, member);
      };
      if (name.utf8() != kLiteral)
        refuseMember(unknownName("a literal has no member", name.utf8(), {kLiteral}));
      else if (std::exchange(isMet, true))
        refuseMember(duplicateName(name.utf8()));
      else if (member.kind() != Kind::String)
        refuseMember("\"literal\" has to be a string");
    });
  }

  /// Reads plain JSON; a literal has been read.
  void setValue(const PropertyValue& property, JsonCursor& value,
                const std::optional<std::string>& literal) {
    const LibraryOutput output;
    const JsonCursor begin = value;
    vcos::ArrayOwner array;
    std::optional<std::size_t> caret;
    const auto failure = failureOf([&] {
      try {
        array = literal ? readLiteral(*literal) : values_.read(value);
        property.known->set(property.object.made.get(), array.get());
      } catch (const LiteralError& error) {
        caret = error.position();
        throw;
      }
    });
    if (!failure) return;
    value = begin;  // memory may have run out while it was read
    report({.literal = literal,
            .caret = caret,
            .array = array.get(),
            .isOfType = true,
            .failure = *failure,
            .said = output.lines()},
           property, value);
  }

  // --- refusals ----------------------------------------------------------------------------------

  static SheetRefusal requestRefusal(std::string problem) {
    return {.failure = {FailureKind::Request, "", std::move(problem)}};
  }

  void refuse(const JsonCursor& value, const JsonPlace& place, SheetObject* object,
              std::string problem) {
    report(requestRefusal(std::move(problem)), value, place, object);
  }

  /// Whatever its value.
  void refuseProperty(const PropertyValue& property, JsonCursor value, std::string problem) {
    SheetRefusal refusal = requestRefusal(std::move(problem));
    const JsonCursor begin = value;
    vcos::ArrayOwner array;
    try {
      if (value.kind() == Kind::Object)
        refusal.literal = stringMember(value, "literal");
      else
        array = values_.read(value);
    } catch (const RequestError&) {
      // It is no array either.
    }
    refusal.array = array.get();
    report(std::move(refusal), property, begin);
  }

  void report(SheetRefusal refusal, const PropertyValue& property, const JsonCursor& value) {
    refusal.property = property.name;
    refusal.known = property.known;
    report(std::move(refusal), value, property.place, &property.object);
  }

  void report(SheetRefusal refusal, JsonCursor value, const JsonPlace& place, SheetObject* object) {
    refusal.file = sheet_.file;
    refusal.line = lines_.lineOf(value.place());
    refusal.pointer = place.pointer();
    if (object) {
      refusal.objectPointer = object->place.pointer();
      refusal.object = nameOf(*object);
      refusal.className = object->className;
    }
    refusal.json = value.skip();
    progress_.clear();
    reports_.add(refusal);
    ++totals_.refused;
  }

  static const std::optional<std::string>& nameOf(SheetObject& object) {
    if (!std::exchange(object.isNameKnown, true)) object.name = stringMember(object.json, "name");
    return object.name;
  }

  const Sheet& sheet_;
  SheetClasses& classes_;
  SheetReports& reports_;
  Progress& progress_;
  SheetTotals& totals_;
  LineCounter lines_;
  PlainValues values_;
  std::uint64_t listNumber_ = 0;
  std::unordered_set<std::string> unknown_;  // names among the properties at hand
};

constexpr Checker::Member Checker::kMembers[] = {
    {"class", Kind::String, "a string", &Checker::checkClass},
    {"name", Kind::String, "a string", &Checker::checkName},
    {"properties", Kind::Object, "an object", &Checker::checkProperties},
    {"children", Kind::List, "a list of objects", &Checker::checkChildren},
};

}  // namespace

void checkSheet(const Sheet& sheet, SheetClasses& classes, SheetReports& reports,
                Progress& progress, SheetTotals& totals) {
  Checker(sheet, classes, reports, progress, totals).check();
}

}  // namespace vgdt
