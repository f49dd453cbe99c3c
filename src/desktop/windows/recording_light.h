#pragma once

#include <QLabel>

#include "platform/controls.h"

namespace tarnvex::desktop {

/// A lit "REC" with the running time, shown while its model is visible. The model outlives it.
class RecordingLight : public QLabel {
 public:
  explicit RecordingLight(const platform::Label& model, QWidget* parent = nullptr);

 private:
  platform::Connection changed_;
};

}  // namespace tarnvex::desktop
