#pragma once

#include <QRect>
#include <QSize>
#include <optional>
#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace tarnvex::desktop {

/// `wanted` on the screen that shows most of it, or on the first screen: moved, and made smaller if
/// it must be, until all of it fits.
QRect fitToScreens(const QRect& wanted, const std::vector<QRect>& screens);

/// How a radio's windows were left: kept in the radio's section of the settings, written when a
/// window leaves the screen. Values that can't be read count as never written.
class WindowMemory {
 public:
  /// `section` is "BC895" or "BC245".
  WindowMemory(platform::SettingsStore& settings, std::string section)
      : settings_(settings), section_(std::move(section)) {}

  /// The main window's place, without its frame, in pixels.
  [[nodiscard]] std::optional<QRect> place() const;
  void setPlace(const QRect& place);
  [[nodiscard]] bool maximised() const;
  void setMaximised(bool maximised);
  /// The page in front.
  [[nodiscard]] std::optional<int> page() const;
  void setPage(int page);
  /// Column widths of a table by its control name, in pixels; empty if there are none.
  [[nodiscard]] std::vector<int> columns(const std::string& table) const;
  void setColumns(const std::string& table, const std::vector<int>& widths);
  /// The small window's size.
  [[nodiscard]] std::optional<QSize> quickViewSize() const;
  void setQuickViewSize(const QSize& size);

 private:
  [[nodiscard]] std::vector<int> numbers(const std::string& name) const;
  void save(const std::string& name, const std::vector<int>& numbers);

  platform::SettingsStore& settings_;
  std::string section_;
};

}  // namespace tarnvex::desktop
