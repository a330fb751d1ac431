#pragma once
// Which face stands for a configured one that the machine does not have.

#include <QFont>
#include <QString>

#include "platform/FontRecord.h"

namespace platform::qt {

/// Whether narrow and wide characters of the family have one width.
bool IsFixedWidth(const QString& family);

/// The family to use: the record's own where it is installed, else the platform's nearest of the same kind. A record
/// that asks for fixed width gets a family of fixed width if the machine has any.
QString FamilyFor(const FontRecord& font);

/// The font itself, all attributes included.
QFont FontOf(const FontRecord& font);

}  // namespace platform::qt
