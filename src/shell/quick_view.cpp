#include "shell/quick_view.h"

#include "platform/convert.h"

namespace tarnvex::shell {
namespace {

constexpr const char* kLeft = "QVLeft";
constexpr const char* kTop = "QVTop";

}  // namespace

QuickViewForm::QuickViewForm(const link::RadioModel& model, monitor::PanelElements elements,
                             const platform::Label& background, platform::SettingsStore& settings)
    : window(std::string(model.quickView), std::string(model.quickViewCaption)),
      section_(model.key),
      elements_(std::move(elements)),
      background_(background),
      settings_(settings) {}

void QuickViewForm::load(Twips screen, Twips size) {
  const auto stored = [this](const char* name, double otherwise) {
    return platform::toReal(settings_.getSetting(section_, name, platform::shortest(otherwise)));
  };
  platform::assign(place_.x, stored(kLeft, screen.x - size.x));
  platform::assign(place_.y, stored(kTop, screen.y - size.y));
}

void QuickViewForm::unload() {
  settings_.saveSetting(section_, kLeft, platform::shortest(place_.x));
  settings_.saveSetting(section_, kTop, platform::shortest(place_.y));
}

QuickView::QuickView(const monitor::PanelState& panel, platform::SettingsStore& settings)
    : QuickViewForm(link::bc895Model(), panel.elements(), panel.Label1, settings) {}

Form9::Form9(const monitor::Bc245Panel& panel, platform::SettingsStore& settings)
    : QuickViewForm(link::bc245Model(), panel.elements(), panel.Display, settings) {}

}  // namespace tarnvex::shell
