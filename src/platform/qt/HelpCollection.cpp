#include "platform/qt/HelpCollection.h"

#include "platform/Files.h"
#include "platform/qt/Text.h"

namespace platform::qt {
namespace {

constexpr const char* Namespace = "quillmark.help";
constexpr const char* Root = "qthelp://quillmark.help/help/";

}  // namespace

// A file that is not there must not be opened: the database would make an empty one.
std::string HelpCollection::Open(const std::string& file) {
  m_engine.reset();
  const std::string name = "The help file \"" + file + "\" ";
  if (!FileExists(file)) return name + "does not exist.";
  auto engine = std::make_unique<QHelpEngine>(Text(file));
  engine->setReadOnly(true);
  if (!engine->setupData()) return name + "cannot be read: " + engine->error().toStdString();
  const bool whole = engine->registeredDocumentations().contains(QLatin1String(Namespace)) &&
                     !engine->fileData(UrlOf("index.html")).isEmpty();
  if (!whole) return name + "is damaged.";
  m_engine = std::move(engine);
  return "";
}

QUrl HelpCollection::UrlOf(std::string_view page) {
  return QUrl(QLatin1String(Root) + Text(page.empty() ? "index.html" : page));
}

std::string HelpCollection::PageOf(const QUrl& url) {
  const QString address = url.toString();
  return address.startsWith(QLatin1String(Root)) ? address.mid(static_cast<int>(qstrlen(Root))).toStdString() : "";
}

std::vector<HelpPage> HelpCollection::Pages() const {
  std::vector<HelpPage> pages;
  for (const QUrl& url : m_engine->files(QLatin1String(Namespace), QString(), QStringLiteral("html")))
    pages.push_back(ReadHelpPage(PageOf(url), m_engine->fileData(url).toStdString()));
  return pages;
}

}  // namespace platform::qt
