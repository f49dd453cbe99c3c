#pragma once

#include <QDir>
#include <QTextBrowser>

namespace tarnvex::desktop {

/// A page of the manual. On a high-resolution screen it uses the larger of a picture's two files.
class ManualPage : public QTextBrowser {
 public:
  explicit ManualPage(const QString& folder) : folder_(folder) { setSearchPaths({folder}); }

  QVariant loadResource(int type, const QUrl& name) override {
    if (type == QTextDocument::ImageResource && devicePixelRatioF() > 1) {
      QString fine = name.path();
      fine.insert(fine.lastIndexOf(QLatin1Char('.')), QLatin1String("@2x"));
      if (const QImage picture(folder_.filePath(fine)); !picture.isNull()) {
        return picture;
      }
    }
    return QTextBrowser::loadResource(type, name);
  }

 private:
  QDir folder_;
};

}  // namespace tarnvex::desktop
