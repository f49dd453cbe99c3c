#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QTextBrowser>
#include <QWidget>

#include "shell/window_layer.h"

namespace tarnvex::desktop {

/// The manual. The list at the left has all pages, or those that contain the words searched for.
/// The pages are the HTML files of the help folder, in the order of its `index.html`. Escape and
/// Ctrl+W close the window.
class HelpWindow : public QWidget {
 public:
  /// The pages are in `folder`, which by default is the program's help folder.
  explicit HelpWindow(const QString& folder = helpFolder());

  /// The program's help folder: beside the program in a build tree, otherwise where it was
  /// installed.
  static QString helpFolder();

  /// Shows a page of the manual by its file name.
  void showPage(const QString& file);
  void present(shell::HelpView view);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Page {
    QString file;
    QString title;
    QString words;
  };

  void layOut();
  void addKeys();
  void colourLinks();
  void readPages();
  void listPages();
  void addLine(const QString& title, const QString& file);
  void open(const QListWidgetItem* item);

  QString folder_;
  QVector<Page> pages_;
  QLineEdit* search_;
  QListWidget* list_;
  QTextBrowser* text_;
};

}  // namespace tarnvex::desktop
