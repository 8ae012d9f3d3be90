// Qt: properties that a QString is converted for, and read back as one.

#include "properties.h"

#include <QColor>
#include <QMetaEnum>
#include <QObject>
#include <QString>
#include <QVariant>

namespace properties {

class QtLine : public QObject {
  Q_OBJECT
  Q_PROPERTY(Style Marker READ marker WRITE setMarker)
  Q_PROPERTY(QColor Color READ color WRITE setColor)
  Q_PROPERTY(double Width READ width WRITE setWidth)

 public:
  /// A key has to be an identifier, so a letter stands for each symbol.
  enum Style { p, o, a, d, x, square, diamond, v, u, r, l, pentagram, hexagram, none };
  Q_ENUM(Style)

  Style marker() const { return marker_; }
  void setMarker(Style marker) { marker_ = marker; }
  QColor color() const { return color_; }
  void setColor(const QColor& color) { color_ = color; }
  double width() const { return width_; }
  void setWidth(double width) { width_ = width; }

 private:
  Style marker_ = none;
  QColor color_;
  double width_ = 1;
};

namespace {

QtLine& line() {
  static QtLine made;
  return made;
}

[[maybe_unused]] const bool added = addContender("Qt", [] {
  compete(
      "Qt",
      [](const char* name, const char* text) {
        line().setProperty(name, QString::fromLatin1(text));
      },
      [](const char* name) { return line().property(name).toString(); },
      [](const QString& text) { return text.toStdString(); });
});

}  // namespace
}  // namespace properties

#include "QtPeer.moc"
