#include "desktop/windows/brief_notice.h"

#include <QTimer>
#include <algorithm>

#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {
namespace {

constexpr const char* kNoticeName = "briefNotice";
constexpr int kShownMilliseconds = 3000;

QLabel* makeNoticeLabel(QWidget* window, const QString& text) {
  // The text comes after the name, which says what the label is to screen readers.
  auto* label = named(makeLabel(), kNoticeName);
  label->setParent(window);
  label->setText(text);
  label->setFrameShape(QFrame::Box);
  label->setAutoFillBackground(true);
  label->setBackgroundRole(QPalette::ToolTipBase);
  label->setForegroundRole(QPalette::ToolTipText);
  label->setMargin(label->fontMetrics().averageCharWidth());
  label->setWordWrap(true);
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  return label;
}

/// As wide as its text, but not wider than the window.
void placeNotice(QLabel* label, const QString& text) {
  const QWidget* window = label->parentWidget();
  const int margin = label->margin();
  const int wanted = label->fontMetrics().horizontalAdvance(text) + margin * 4;
  const int width = std::min(wanted, window->width() - margin * 2);
  label->resize(width, label->heightForWidth(width));
  label->move(margin, window->height() - label->height() - margin);
}

}  // namespace

void tellBriefly(QWidget* window, const QString& text) {
  delete window->findChild<QLabel*>(QLatin1String(kNoticeName), Qt::FindDirectChildrenOnly);
  QLabel* label = makeNoticeLabel(window, text);
  placeNotice(label, text);
  label->show();
  QTimer::singleShot(kShownMilliseconds, label, &QObject::deleteLater);
}

bool isBriefNotice(const QObject* object) {
  return object->objectName() == QLatin1String(kNoticeName);
}

}  // namespace tarnvex::desktop
