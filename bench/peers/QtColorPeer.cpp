// Qt: a colour from its name, which arrives as a C string.

#include "colors.h"

#include <QColor>
#include <QString>

namespace peers {
namespace {

void addQtColor() {
  competeInMaking(
      kColorFromName, "Qt", Goal::kAhead, kColorName,
      [](const char* text) { return QColor(QString::fromUtf8(text)); },
      [](const QColor& color) {
        return Rgb{color.redF(), color.greenF(), color.blueF()};
      });
}

[[maybe_unused]] const bool added = addContender(addQtColor);

}  // namespace
}  // namespace peers
