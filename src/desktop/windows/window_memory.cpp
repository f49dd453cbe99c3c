#include "desktop/windows/window_memory.h"

#include <QGuiApplication>
#include <QScreen>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <iterator>

namespace tarnvex::desktop {
namespace {

int area(const QRect& rect) {
  return rect.isValid() ? rect.width() * rect.height() : 0;
}

}  // namespace

QRect fitToScreens(const QRect& wanted, const std::vector<QRect>& screens, const QMargins& frame) {
  if (screens.empty()) {
    return wanted;
  }
  const QRect screen = *std::ranges::max_element(
      screens, {}, [&](const QRect& one) { return area(one.intersected(wanted)); });
  const QRect room = screen.marginsRemoved(frame);
  QRect fitted(wanted.topLeft(), wanted.size().boundedTo(room.size()));
  fitted.moveLeft(std::clamp(fitted.left(), room.left(), room.right() + 1 - fitted.width()));
  fitted.moveTop(std::clamp(fitted.top(), room.top(), room.bottom() + 1 - fitted.height()));
  return fitted;
}

std::vector<QRect> availableScreens() {
  std::vector<QRect> screens;
  std::ranges::transform(QGuiApplication::screens(), std::back_inserter(screens),
                         &QScreen::availableGeometry);
  return screens;
}

std::optional<QRect> WindowMemory::place() const {
  const auto kept = numbers("Window");
  const bool usable = kept.size() == 4 && kept[2] > 0 && kept[3] > 0;
  return usable ? std::optional(QRect(kept[0], kept[1], kept[2], kept[3])) : std::nullopt;
}

void WindowMemory::setPlace(const QRect& place) {
  save("Window", {place.x(), place.y(), place.width(), place.height()});
}

bool WindowMemory::maximised() const {
  return numbers("Maximised") == std::vector{1};
}

void WindowMemory::setMaximised(bool maximised) {
  save("Maximised", {maximised ? 1 : 0});
}

std::optional<int> WindowMemory::page() const {
  const auto kept = numbers("Page");
  return kept.size() == 1 ? std::optional(kept.front()) : std::nullopt;
}

void WindowMemory::setPage(int page) {
  save("Page", {page});
}

std::vector<int> WindowMemory::columns(const std::string& table) const {
  return numbers("Columns" + table);
}

void WindowMemory::setColumns(const std::string& table, const std::vector<int>& widths) {
  save("Columns" + table, widths);
}

std::optional<QSize> WindowMemory::quickViewSize() const {
  const auto kept = numbers("QVSize");
  return kept.size() == 2 && kept[0] > 0 && kept[1] > 0 ? std::optional(QSize(kept[0], kept[1]))
                                                        : std::nullopt;
}

void WindowMemory::setQuickViewSize(const QSize& size) {
  save("QVSize", {size.width(), size.height()});
}

std::vector<int> WindowMemory::numbers(const std::string& name) const {
  std::vector<int> numbers;
  const auto text = QString::fromStdString(settings_.getSetting(section_, name, ""));
  for (const QString& part : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    bool isNumber = false;
    const int number = part.toInt(&isNumber);
    if (!isNumber || number < -100000 || number > 100000) {
      return {};
    }
    numbers.push_back(number);
  }
  return numbers;
}

void WindowMemory::save(const std::string& name, const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    text += (text.empty() ? "" : " ") + std::to_string(number);
  }
  settings_.saveSetting(section_, name, text);
}

}  // namespace tarnvex::desktop
