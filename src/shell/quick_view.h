#pragma once

#include "link/radio_model.h"
#include "monitor/bc245_panel.h"
#include "monitor/panel_state.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/settings_store.h"
#include "platform/window.h"

namespace tarnvex::shell {

/// A width and height, or a position, in twips: a fifteenth of a device-independent pixel. The
/// settings keep the small window's place in this unit.
struct Twips {
  double x = 0;
  double y = 0;
};

/// The small window above all others: a copy of the radio's display, shown while the main window is
/// hidden. Its position is its only state. The window layer draws the main window's own labels in
/// it, so the two can't differ.
class QuickViewForm : private platform::NonCopyable {
 public:
  /// Called by the window layer after it has created the window and before it shows it. Sets the
  /// position at which the window was last closed, or the bottom right corner of the screen.
  void load(Twips screen, Twips size);
  /// Saves the position.
  void unload();
  /// The user clicked the window, pressed a key in it, or used its close button.
  void userClose() { closed.notify(); }
  /// The user has moved the window.
  void userMove(Twips place) { place_ = place; }

  /// `Left` and `Top`.
  [[nodiscard]] Twips place() const { return place_; }
  [[nodiscard]] const monitor::PanelElements& elements() const { return elements_; }
  [[nodiscard]] const platform::Label& background() const { return background_; }

  platform::Window window;
  platform::Notifier<> closed;

 protected:
  QuickViewForm(const link::RadioModel& model, monitor::PanelElements elements,
                const platform::Label& background, platform::SettingsStore& settings);
  ~QuickViewForm() = default;

 private:
  std::string section_;
  monitor::PanelElements elements_;
  const platform::Label& background_;
  platform::SettingsStore& settings_;
  Twips place_;
};

/// The small window of the BC895XLT.
class QuickView : public QuickViewForm {
 public:
  QuickView(const monitor::PanelState& panel, platform::SettingsStore& settings);
};

/// The small window of the BC245XLT.
class Form9 : public QuickViewForm {
 public:
  Form9(const monitor::Bc245Panel& panel, platform::SettingsStore& settings);
};

}  // namespace tarnvex::shell
