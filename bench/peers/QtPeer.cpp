// Qt: an enumeration that its meta-object compiler describes, a property of that type, and types
// with converters.

#include "contest.h"

#include <QMetaEnum>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QVariant>

#include <string>
#include <utility>
#include <vector>

namespace peers {

class QtShape : public QObject {
  Q_OBJECT
  Q_PROPERTY(Marker marker READ marker WRITE setMarker)

 public:
  /// A key has to be an identifier, so a letter stands for each symbol.
  enum Marker { p, o, a, d, x, square, diamond, v, u, r, l, pentagram, hexagram, none };
  Q_ENUM(Marker)

  Marker marker() const { return marker_; }
  void setMarker(Marker marker) { marker_ = marker; }

 private:
  Marker marker_ = none;
};

template <std::size_t index>
struct QtType {
  int value;
};

template <std::size_t index>
inline const std::string kQtTypeName = "peers::QtType<" + std::to_string(index) + ">";

}  // namespace peers

/// What Q_DECLARE_METATYPE writes for one type.
template <std::size_t index>
struct QMetaTypeId<peers::QtType<index>> {
  enum { Defined = 1 };
  static int qt_metatype_id() {
    static QBasicAtomicInt id = Q_BASIC_ATOMIC_INITIALIZER(0);
    if (const int known = id.loadAcquire()) return known;
    using Type = peers::QtType<index>;
    const int made = qRegisterMetaType<Type>(peers::kQtTypeName<index>.c_str(),
                                             reinterpret_cast<Type*>(quintptr(-1)));
    id.storeRelease(made);
    return made;
  }
};

namespace peers {
namespace {

constexpr std::array<const char*, kNames.size()> kKeys{
    "p", "o", "a", "d", "x",         "square",   "diamond",
    "v", "u", "r", "l", "pentagram", "hexagram", "none"};

QMetaEnum markers() {
  return QMetaEnum::fromType<QtShape::Marker>();
}

int lookUp(const QMetaEnum& keys, const char* text) {
  return keys.keyToValue(text);
}

int set(QtShape& shape, const char* text) {
  shape.setProperty("marker", QString::fromLatin1(text));
  return shape.marker();
}

template <std::size_t index>
bool registerType() {
  using Type = QtType<index>;
  return QMetaType::registerConverter<QString, Type>(
             [](const QString& text) { return Type{markers().keyToValue(text.toLatin1())}; }) &&
         QMetaType::registerConverter<Type, QString>([](const Type& type) {
           return QString::fromLatin1(markers().valueToKey(type.value));
         });
}

template <std::size_t... index>
auto registrations(std::index_sequence<index...>) {
  return std::vector<bool (*)()>{registerType<index>...};
}

double startUp(std::size_t types) {
  const auto registerTypes = registrations(std::make_index_sequence<kMostTypes>());
  bool complete = true;
  const double seconds = secondsOf([&] {
    for (std::size_t i = 0; i < types; ++i)
      complete = registerTypes[i]() && complete;
  });
  if (!complete) fail("Qt's start-up has left out a converter");
  return seconds;
}

void addQt() {
  static const QMetaEnum keys = markers();
  static QtShape shape;
  compete(kNameToValue, "Qt", Goal::kAhead, exactInputs(kKeys),
          [](const char* text) { return lookUp(keys, text); });
  compete(kSetFromText, "Qt", Goal::kAhead, exactInputs(kKeys),
          [](const char* text) { return set(shape, text); });
  competeAtStartUp("Qt", Goal::kAhead, startUp);
}

[[maybe_unused]] const bool added = addContender(addQt);

}  // namespace
}  // namespace peers

#include "QtPeer.moc"
