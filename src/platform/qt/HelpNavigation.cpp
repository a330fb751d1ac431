#include "platform/qt/HelpNavigation.h"

#include <QCoreApplication>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QKeyEvent>
#include <QLabel>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/HelpHitDelegate.h"
#include "platform/qt/Text.h"

namespace platform::qt {
namespace {

constexpr int AddressRole = Qt::UserRole;

QLineEdit* Field(const char* name, const QString& caption, QVBoxLayout& layout) {
  auto* field = new QLineEdit;
  field->setObjectName(QLatin1String(name));
  field->setClearButtonEnabled(true);
  auto* label = new QLabel(caption);
  label->setBuddy(field);
  layout.addWidget(label);
  layout.addWidget(field);
  return field;
}

}  // namespace

HelpNavigation::HelpNavigation(HelpCollection& collection, QWidget* parent)
    : QTabWidget(parent), m_collection(collection) {
  setObjectName(QStringLiteral("HelpNavigation"));
  setDocumentMode(true);
  addTab(MakeContents(), tr("&Contents"));
  addTab(MakeKeywords(), tr("&Index"));
  addTab(MakeSearch(), tr("&Search"));
  tabBar()->installEventFilter(this);
}

QWidget* HelpNavigation::MakeContents() {
  m_contents = m_collection.Engine().contentWidget();
  m_contents->setObjectName(QStringLiteral("HelpContents"));
  m_contents->setAccessibleName(tr("Contents of the help"));
  m_contents->setFrameShape(QFrame::NoFrame);
  connect(m_contents, &QHelpContentWidget::linkActivated, this, &HelpNavigation::PageWanted);
  connect(m_contents, &QTreeView::clicked, this, [this](const QModelIndex& index) {
    if (const QHelpContentItem* item = m_collection.Engine().contentModel()->contentItemAt(index))
      Q_EMIT PageWanted(item->url());
  });
  // The contents are read beside, and come a moment after the first page.
  connect(m_collection.Engine().contentModel(), &QHelpContentModel::contentsCreated, this,
          [this] { PageShown(m_page); });
  return m_contents;
}

QWidget* HelpNavigation::MakeKeywords() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  m_keyword = Field("HelpKeyword", tr("&Keyword:"), *layout);
  m_keywords = m_collection.Engine().indexWidget();
  m_keywords->setObjectName(QStringLiteral("HelpKeywords"));
  m_keywords->setAccessibleName(tr("Keywords"));
  layout->addWidget(m_keywords, 1);
  m_keyword->installEventFilter(this);
  connect(m_keyword, &QLineEdit::textChanged, m_keywords,
          [this](const QString& text) { m_keywords->filterIndices(text); });
  connect(m_keyword, &QLineEdit::returnPressed, m_keywords, &QHelpIndexWidget::activateCurrentItem);
  connect(m_keywords, &QListView::clicked, m_keywords, &QHelpIndexWidget::activateCurrentItem);
  connect(m_keywords, &QHelpIndexWidget::documentActivated, this,
          [this](const QHelpLink& link) { Q_EMIT PageWanted(link.url); });
  connect(m_keywords, &QHelpIndexWidget::documentsActivated, this,
          [this](const QList<QHelpLink>& links) { Q_EMIT PageWanted(links.first().url); });
  return page;
}

QWidget* HelpNavigation::MakeSearch() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  m_words = Field("HelpWords", tr("&Words to look for:"), *layout);
  m_hits = new QListWidget;
  m_hits->setObjectName(QStringLiteral("HelpHits"));
  m_hits->setAccessibleName(tr("Pages found"));
  m_hits->setItemDelegate(new HelpHitDelegate(m_hits));
  m_hits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_count = new QLabel;
  m_count->setObjectName(QStringLiteral("HelpHitCount"));
  m_count->setWordWrap(true);
  layout->addWidget(m_count);
  layout->addWidget(m_hits, 1);
  m_words->installEventFilter(this);
  connect(m_words, &QLineEdit::textChanged, this, &HelpNavigation::Search);
  connect(m_words, &QLineEdit::returnPressed, this, [this] { Open(m_hits->currentItem()); });
  connect(m_hits, &QListWidget::itemClicked, this, &HelpNavigation::Open);
  connect(m_hits, &QListWidget::itemActivated, this, &HelpNavigation::Open);
  Search(QString());
  return page;
}

void HelpNavigation::Search(const QString& query) {
  m_hits->clear();
  const bool empty = query.trimmed().isEmpty();
  if (!empty && !m_search) m_search.emplace(m_collection.Pages());
  const auto hits = empty ? std::vector<HelpSearch::Hit>{} : m_search->Find(query.toStdString());
  for (const HelpSearch::Hit& hit : hits) {
    auto* item = new QListWidgetItem(Text(hit.Page->Title), m_hits);
    item->setData(HelpHitDelegate::ExcerptRole, Text(hit.Excerpt));
    item->setData(AddressRole, HelpCollection::UrlOf(hit.Page->Address));
  }
  m_hits->setCurrentRow(0);
  m_count->setText(empty              ? tr("Pages that have all the words, or words that begin with them.")
                   : hits.empty()     ? tr("No page has all of these words.")
                   : hits.size() == 1 ? tr("1 page")
                                      : tr("%1 pages").arg(hits.size()));
}

void HelpNavigation::Open(const QListWidgetItem* hit) {
  if (hit) Q_EMIT FoundPageWanted(hit->data(AddressRole).toUrl(), HelpSearch::WordsOf(m_words->text().toStdString()));
}

void HelpNavigation::ShowContents() {
  setCurrentWidget(m_contents);
  TakeKeyboard();
}

void HelpNavigation::ShowKeywords() {
  setCurrentWidget(m_keyword->parentWidget());
  m_keyword->clear();
  TakeKeyboard();
}

void HelpNavigation::ShowSearch() {
  setCurrentWidget(m_words->parentWidget());
  TakeKeyboard();
}

void HelpNavigation::TakeKeyboard() {
  if (currentWidget() == m_contents) return m_contents->setFocus();
  QLineEdit* field = m_keyword->isVisibleTo(this) ? m_keyword : m_words;
  field->setFocus();
  field->selectAll();
}

void HelpNavigation::PageShown(const QUrl& page) {
  m_page = page;
  QModelIndex index = m_contents->indexOf(page);
  if (!index.isValid()) index = m_contents->indexOf(page.adjusted(QUrl::RemoveFragment));
  if (!index.isValid() || index == m_contents->currentIndex()) return;
  m_contents->setCurrentIndex(index);
  m_contents->scrollTo(index);
}

// The key of a tab leads into its page. In a field, the keys that go up and down belong to the list below it.
bool HelpNavigation::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tabBar()) {
    if (event->type() == QEvent::Shortcut) QTimer::singleShot(0, this, &HelpNavigation::TakeKeyboard);
    return QTabWidget::eventFilter(watched, event);
  }
  if (event->type() != QEvent::KeyPress) return QTabWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
  if (!moves) return QTabWidget::eventFilter(watched, event);
  QCoreApplication::sendEvent(watched == m_keyword ? static_cast<QWidget*>(m_keywords) : m_hits, event);
  return true;
}

}  // namespace platform::qt
