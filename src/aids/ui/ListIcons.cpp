#include "aids/ui/ListIcons.h"

#include <array>
#include <vector>

// A resource in a static library is linked only when somebody asks for it, and not inside a namespace.
static void LoadIcons() {
  Q_INIT_RESOURCE(context_list);
}

namespace aids::ui {
namespace {

struct IconFile {
  const char *File, *Name;
};
constexpr std::array<IconFile, ListIcons> Icons = {{{"Collection", "Collection"},
                                                    {"Enum", "Enum"},
                                                    {"Enums", "Enums"},
                                                    {"Event", "Event"},
                                                    {"Method", "Method"},
                                                    {"Property", "Property"},
                                                    {"UserDefined", "User Defined"}}};

bool Known(int number) {
  return number >= 1 && number <= ListIcons;
}

}  // namespace

const QIcon& ListIcon(int number) {
  static const std::vector<QIcon> icons = [] {
    LoadIcons();
    std::vector<QIcon> loaded(1);
    for (const IconFile& icon : Icons)
      loaded.emplace_back(QStringLiteral(":/context_list/%1.svg").arg(QLatin1String(icon.File)));
    return loaded;
  }();
  return icons[Known(number) ? static_cast<std::size_t>(number) : 0];
}

QString ListIconName(int number) {
  return Known(number) ? QString::fromUtf8(Icons[static_cast<std::size_t>(number) - 1].Name) : QString();
}

}  // namespace aids::ui
