#include "desktop/windows/notices.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "desktop/windows/plain_text.h"
#include "platform/version.h"

namespace tarnvex::desktop {
namespace {

QLabel* makeLine(const QString& text, double scale, bool strong) {
  auto* label = makeLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(strong);
  label->setFont(font);
  return label;
}

void centre(QWidget* window) {
  window->adjustSize();
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    window->move(screen->availableGeometry().center() - window->rect().center());
  }
}

}  // namespace

QWidget* makeSplash() {
  auto* splash = new QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint);
  splash->setObjectName(QStringLiteral("Form1"));
  splash->setWindowTitle(QStringLiteral("Tarnvex"));
  auto* picture = makeLabel();
  const int side = picture->fontMetrics().height() * 6;
  picture->setPixmap(QIcon(QStringLiteral(":/tarnvex.svg")).pixmap(side, side));
  auto* words = new QVBoxLayout;
  words->addStretch();
  words->addWidget(makeLine(QStringLiteral("Tarnvex"), 2.6, true));
  words->addWidget(
      makeLine(QObject::tr("Version %1").arg(QLatin1String(platform::version())), 1, false));
  words->addSpacing(picture->fontMetrics().height() / 2);
  words->addWidget(makeLine(
      QObject::tr("Computer Control Software for Uniden Bearcat Trunking Scanners"), 1, false));
  words->addStretch();
  auto* row = new QHBoxLayout(splash);
  const int margin = picture->fontMetrics().height() * 2;
  row->setContentsMargins(margin, margin, margin, margin);
  row->setSpacing(margin);
  row->addWidget(picture);
  row->addLayout(words);
  centre(splash);
  return splash;
}

QWidget* makeNotice(const QString& caption, const QString& text, QWidget* parent) {
  auto* notice = new QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  notice->setObjectName(QStringLiteral("Form6"));
  notice->setWindowTitle(caption);
  auto* column = new QVBoxLayout(notice);
  auto* label = makeLabel(text);
  const int margin = label->fontMetrics().height() * 2;
  column->setContentsMargins(margin, margin, margin, margin);
  column->addWidget(label);
  centre(notice);
  return notice;
}

}  // namespace tarnvex::desktop
