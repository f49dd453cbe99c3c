#include "desktop/windows/recording_light.h"

#include "desktop/ports/text.h"
#include "desktop/windows/binder.h"

namespace tarnvex::desktop {
namespace {

/// White text on it has a contrast of 6.5 to 1.
constexpr QColor kRed{0xB3, 0x26, 0x1E};

}  // namespace

RecordingLight::RecordingLight(const platform::Label& model, QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("recordingLight"));
  setAutoFillBackground(true);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, kRed);
  colours.setColor(QPalette::WindowText, Qt::white);
  setPalette(colours);
  const int gap = fontMetrics().averageCharWidth();
  setContentsMargins(gap, 0, gap, 0);
  changed_ = model.changed.follow([this, &model] {
    setText(toScreen(model.caption()));
    adjustSize();
    showIf(this, model.visible());
  });
}

}  // namespace tarnvex::desktop
