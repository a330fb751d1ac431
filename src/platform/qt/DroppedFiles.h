#pragma once
// Files that are dragged onto a window.

#include <QMimeData>
#include <QUrl>
#include <string>
#include <vector>

namespace platform::qt {

/// The paths of the local files that the data names, in order; none for data of another kind, or where there is none.
inline std::vector<std::string> DroppedFiles(const QMimeData* data) {
  std::vector<std::string> paths;
  const QList<QUrl> urls = data ? data->urls() : QList<QUrl>();
  for (const QUrl& url : urls)
    if (url.isLocalFile()) paths.push_back(url.toLocalFile().toStdString());
  return paths;
}

}  // namespace platform::qt
