// The manual as it is installed: pages, links and pictures.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QListWidget>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>

#include "desktop/windows/help_window.h"

namespace tarnvex::test {
namespace {

const QDir kManual(QStringLiteral(TARNVEX_HELP));

QString pageText(const QString& page) {
  QFile file(kManual.filePath(page));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << page.toStdString();
  return QString::fromUtf8(file.readAll());
}

QStringList pages() {
  return kManual.entryList({"*.html"}, QDir::Files);
}

QStringList all(const QString& text, const char* pattern) {
  QStringList found;
  auto matches = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
  while (matches.hasNext()) {
    found << matches.next().captured(1);
  }
  return found;
}

TEST(Help, LinksAndPicturesLeadSomewhereAndNoneIsLeftOver) {
  QStringList pictures;
  QStringList inContents = all(pageText("index.html"), "href=\"([^\"]+)\"") << "index.html";
  for (const QString& page : pages()) {
    SCOPED_TRACE(page.toStdString());
    EXPECT_TRUE(inContents.removeOne(page)) << "is in the contents";
    const QString text = pageText(page);
    for (const QString& link : all(text, "href=\"([^\"]+)\"")) {
      const QString target = link.section('#', 0, 0);
      const QString place = link.section('#', 1);
      ASSERT_TRUE(pages().contains(target)) << link.toStdString();
      EXPECT_TRUE(place.isEmpty() || pageText(target).contains("\"" + place + "\""))
          << link.toStdString();
    }
    for (const QString& image : all(text, "<img ([^>]+)>")) {
      const QStringList source = all(image, "src=\"([^\"]+)\"");
      EXPECT_EQ(source.size(), 1) << image.toStdString();
      EXPECT_FALSE(all(image, "alt=\"([^\"]+)\"").isEmpty()) << image.toStdString();
      pictures << source;
    }
  }
  EXPECT_TRUE(inContents.isEmpty()) << inContents.join(' ').toStdString();
  QStringList files;
  for (const QString& picture : pictures) {
    const QString fine = QString(picture).replace(".png", "@2x.png");
    files << picture << fine;
    const QImage coarse(kManual.filePath(picture));
    const QSize excess = QImage(kManual.filePath(fine)).size() - coarse.size() * 2;
    EXPECT_LE(std::abs(excess.width()) + std::abs(excess.height()), 4) << picture.toStdString();
  }
  QStringList present = QDir(kManual.filePath("pictures")).entryList(QDir::Files);
  std::ranges::transform(present, present.begin(),
                         [](const auto& name) { return "pictures/" + name; });
  files.sort();
  present.sort();
  EXPECT_EQ(files, present);
}

TEST(Help, ShowsEveryPageWithinItsWidth) {
  desktop::HelpWindow help(kManual.path());
  help.present(shell::HelpView::Contents);
  auto& list = *help.findChild<QListWidget*>("helpPages");
  auto& text = *help.findChild<QTextBrowser*>("helpText");
  EXPECT_EQ(text.source().fileName(), "index.html");
  EXPECT_LT(help.width(), help.screen()->availableSize().width());
  EXPECT_LT(help.minimumSizeHint().width(), 600) << "for small screens";
  help.resize(1200, 700);
  EXPECT_EQ(list.count(), pages().size());
  for (int page = 0; page < list.count(); ++page) {
    list.setCurrentRow(page);
    EXPECT_LE(text.document()->size().width(), text.viewport()->width())
        << text.documentTitle().toStdString();
  }
  auto& search = *help.findChild<QLineEdit*>("helpSearch");
  search.setText("search skip");
  ASSERT_EQ(list.count(), 1);
  // A click opens the line's page also if a link has led away from it.
  for (const char* before : {"index.html", "plan.html"}) {
    text.setSource(QUrl(before));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(0)).center());
    EXPECT_EQ(text.documentTitle(), "Searching");
    EXPECT_EQ(text.textCursor().selectedText().toLower(), "search");
    EXPECT_EQ(text.textCursor().selectionStart(),
              text.toPlainText().indexOf("search", 0, Qt::CaseInsensitive));
  }
  QApplication::setActiveWindow(&help);
  QTest::keyClick(&list, Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(help.isVisible());
}

}  // namespace
}  // namespace tarnvex::test
