#include "desktop/windows/notices.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"
#include "platform/version.h"

namespace tarnvex::desktop {
namespace {

/// The program's name and version, one below the other.
QLayout* makeTitle() {
  auto* lines = new QVBoxLayout;
  lines->addStretch();
  lines->addWidget(makeLine(QStringLiteral("Tarnvex"), 2.6, true));
  lines->addWidget(makeLabel(QObject::tr("Version %1").arg(QLatin1String(platform::version()))));
  lines->addSpacing(QFontMetrics(QGuiApplication::font()).height() / 2);
  lines->addWidget(
      makeLabel(QObject::tr("Computer Control Software for Uniden Bearcat Trunking Scanners")));
  lines->addStretch();
  return lines;
}

void centre(QWidget* window) {
  window->adjustSize();
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    window->move(screen->availableGeometry().center() - window->rect().center());
  }
}

}  // namespace

QWidget* makeSplash() {
  auto* splash = named(new QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), "Form1");
  splash->setWindowTitle(QStringLiteral("Tarnvex"));
  auto* row = new QHBoxLayout(splash);
  const int margin = splash->fontMetrics().height() * 2;
  row->setContentsMargins(margin, margin, margin, margin);
  row->setSpacing(margin);
  row->addWidget(makeIcon(6));
  row->addLayout(makeTitle());
  centre(splash);
  return splash;
}

QWidget* makeNotice(const QString& caption, const QString& text) {
  auto* notice = new QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
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
