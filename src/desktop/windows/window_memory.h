#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>
#include <optional>
#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace tarnvex::desktop {

/// `wanted`, moved and if necessary made smaller so that all of it fits on a screen, together with
/// a frame of this width around it. The screen is the one that shows most of it, or the first one.
QRect fitToScreens(const QRect& wanted, const std::vector<QRect>& screens,
                   const QMargins& frame = {});
/// What each of the machine's screens has for windows.
std::vector<QRect> availableScreens();

/// How the main window of the other radio was left when it was exchanged: its place, not maximised
/// and without its frame, the frame's width, and whether it was maximised.
struct LeftWindow {
  QPoint topLeft;
  QMargins frame;
  bool maximised = false;
};

/// Stores how a radio's windows were left, in the radio's section of the settings. Values that
/// can't be read count as missing.
class WindowMemory {
 public:
  /// `section` is "BC895" or "BC245".
  WindowMemory(platform::SettingsStore& settings, std::string section)
      : settings_(settings), section_(std::move(section)) {}

  /// The main window's place in pixels, without its frame.
  [[nodiscard]] std::optional<QRect> place() const;
  void setPlace(const QRect& place);
  [[nodiscard]] bool maximised() const;
  void setMaximised(bool maximised);
  /// The page in front.
  [[nodiscard]] std::optional<int> page() const;
  void setPage(int page);
  /// The column widths of a table, in pixels. `table` is its control name. Empty if none are
  /// stored.
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
