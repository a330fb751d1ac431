#include "platform/qt/FontChoice.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QStringList>

namespace platform::qt {
namespace {

QString FixedSubstitute() {
  const QString system = QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
  if (IsFixedWidth(system)) return system;
  const QStringList families = QFontDatabase::families(QFontDatabase::Latin);
  for (const QString& family : families)
    if (QFontDatabase::isFixedPitch(family) && IsFixedWidth(family)) return family;
  return system;
}

}  // namespace

bool IsFixedWidth(const QString& family) {
  const QFontMetricsF metrics{QFont(family, 24)};
  return qAbs(metrics.horizontalAdvance(QLatin1Char('i')) - metrics.horizontalAdvance(QLatin1Char('W'))) < 0.01;
}

QString FamilyFor(const FontRecord& font) {
  const QString name = QString::fromStdString(font.Name);
  if (QFontDatabase::hasFamily(name)) return name;
  QFont wanted(name);
  wanted.setStyleHint(font.Fixed ? QFont::TypeWriter : QFont::AnyStyle);
  wanted.setFixedPitch(font.Fixed);
  const QString nearest = QFontInfo(wanted).family();
  return font.Fixed && !IsFixedWidth(nearest) ? FixedSubstitute() : nearest;
}

QFont FontOf(const FontRecord& font) {
  QFont made(FamilyFor(font));
  made.setPointSizeF(font.Size);
  made.setBold(font.Bold);
  made.setItalic(font.Italic);
  made.setStrikeOut(font.Strikethrough);
  made.setUnderline(font.Underline);
  return made;
}

}  // namespace platform::qt
