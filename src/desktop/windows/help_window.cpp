#include "desktop/windows/help_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTextDocument>
#include <QVBoxLayout>

#include "desktop/windows/manual_page.h"
#include "desktop/windows/parts.h"

namespace tarnvex::desktop {
namespace {

QString readFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool holdsAll(const QString& text, const QStringList& words) {
  return std::ranges::all_of(
      words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

/// At this width of a page, no picture of the manual has to be scrolled. The widest one is 732
/// pixels wide; the rest is for margins and the scroll bar.
constexpr int kPageWidth = 780;

}  // namespace

QString HelpWindow::helpFolder() {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const char* place : {"help", "../share/tarnvex/help"}) {
    if (program.exists(QLatin1String(place) + QLatin1String("/index.html"))) {
      return program.filePath(QLatin1String(place));
    }
  }
  return {};
}

HelpWindow::HelpWindow(const QString& folder)
    : folder_(folder),
      search_(makeSearchLine("helpSearch", tr("Search"), tr("Search"))),
      list_(named(new QListWidget, "helpPages", tr("Pages"))),
      text_(named(new ManualPage(folder_), "helpText")) {
  setObjectName(QStringLiteral("help"));
  setWindowTitle(tr("Tarnvex Help"));
  list_->setWordWrap(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  text_->setAccessibleName(tr("Page of the manual"));
  text_->setOpenExternalLinks(false);
  layOut();
  addKeys();
  colourLinks();
  readPages();
  listPages();
  connect(search_, &QLineEdit::textChanged, this, [this] { listPages(); });
  connect(list_, &QListWidget::currentItemChanged, this, &HelpWindow::open);
  // A click opens the page even if its line is the current one, since a link may have led
  // elsewhere.
  connect(list_, &QListWidget::itemClicked, this, &HelpWindow::open);
}

void HelpWindow::addKeys() {
  for (const QKeySequence& key :
       {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::Key_Escape)}) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
  }
}

void HelpWindow::layOut() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(search_);
  column->addWidget(list_);
  auto* splitter = new QSplitter;
  splitter->addWidget(side);
  splitter->addWidget(text_);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  (new QVBoxLayout(this))->addWidget(splitter);
  const QFontMetrics metrics(font());
  const int listWidth = metrics.averageCharWidth() * 36;
  const int textWidth = std::max(kPageWidth, metrics.averageCharWidth() * 110);
  const QSize wanted(listWidth + textWidth, metrics.height() * 40);
  resize(wanted.boundedTo(screen()->availableSize() * 0.9));
  splitter->setSizes({listWidth, width() - listWidth});
}

void HelpWindow::readPages() {
  static const QRegularExpression kLink(QStringLiteral("<a href=\"([^\"]+)\">([^<]+)</a>"));
  auto links = kLink.globalMatch(readFile(folder_ + QStringLiteral("/index.html")));
  while (links.hasNext()) {
    const auto link = links.next();
    QTextDocument page;
    page.setHtml(readFile(folder_ + QLatin1Char('/') + link.captured(1)));
    pages_.push_back({link.captured(1), link.captured(2), page.toPlainText()});
  }
}

/// Chooses the links' colour, since many dark palettes have a dark blue that is hard to read.
void HelpWindow::colourLinks() {
  const bool dark = palette().base().color().lightness() < 128;
  QColor link = palette().link().color();
  if (dark && link.lightness() < 160) {
    link.setHsl(link.hslHue(), link.hslSaturation(), 190);
  }
  text_->document()->setDefaultStyleSheet(QStringLiteral("a { color: %1 }").arg(link.name()));
}

void HelpWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    colourLinks();
    text_->reload();
  }
}

void HelpWindow::listPages() {
  const QStringList words = search_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
  list_->clear();
  if (words.isEmpty() && !pages_.isEmpty()) {
    addLine(tr("Contents"), QStringLiteral("index.html"));
  }
  for (const Page& page : pages_) {
    if (holdsAll(page.title + QLatin1Char('\n') + page.words, words)) {
      addLine(page.title, page.file);
    }
  }
  if (pages_.isEmpty()) {
    text_->setPlainText(tr("The manual is missing. To restore it, install Tarnvex again."));
  }
}

void HelpWindow::addLine(const QString& title, const QString& file) {
  (new QListWidgetItem(title, list_))->setData(Qt::UserRole, file);
}

void HelpWindow::open(const QListWidgetItem* item) {
  if (item == nullptr) {
    return;
  }
  text_->setSource(QUrl(item->data(Qt::UserRole).toString()));
  if (const QString words = search_->text().trimmed(); !words.isEmpty()) {
    // A click on a line opens its page twice.
    text_->moveCursor(QTextCursor::Start);
    text_->find(words.section(QLatin1Char(' '), 0, 0));
  }
}

void HelpWindow::showPage(const QString& file) {
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->data(Qt::UserRole).toString() == file) {
      list_->setCurrentRow(row);
    }
  }
}

void HelpWindow::present(shell::HelpView view) {
  show();
  raise();
  activateWindow();
  if (view == shell::HelpView::Contents) {
    search_->clear();
    list_->setCurrentRow(0);
    open(list_->currentItem());
    list_->setFocus();
  } else {
    search_->selectAll();
    search_->setFocus();
  }
}

}  // namespace tarnvex::desktop
