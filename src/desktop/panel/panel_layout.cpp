#include "desktop/panel/panel_layout.h"

#include <algorithm>

namespace tarnvex::desktop {

bool hasOwnShape(ElementKind kind) {
  switch (kind) {
    case ElementKind::Word:
    case ElementKind::BankLetter:
    case ElementKind::Bar:
    case ElementKind::Mark:
      return true;
    case ElementKind::MainText:
    case ElementKind::SegmentText:
    case ElementKind::Text:
      break;
  }
  return false;
}

int PanelLayout::keyIndex(const QString& control) const {
  const auto found = std::find_if(
      keys.begin(), keys.end(), [&control](const PanelKey& key) { return key.control == control; });
  return found == keys.end() ? -1 : static_cast<int>(found - keys.begin());
}

int PanelLayout::elementIndex(const QString& name) const {
  const auto found =
      std::find_if(elements.begin(), elements.end(),
                   [&name](const DisplayElement& element) { return element.name == name; });
  return found == elements.end() ? -1 : static_cast<int>(found - elements.begin());
}

PanelLayout displayOnly(const PanelLayout& layout) {
  PanelLayout only = layout;
  const QPointF origin = layout.bezel.topLeft();
  only.keys.clear();
  only.knob.reset();
  only.captions.clear();
  only.fittings.clear();
  only.body = {};
  only.size = layout.bezel.size();
  only.bezel.moveTopLeft({0, 0});
  only.glass.translate(-origin);
  for (DisplayElement& element : only.elements) {
    element.rect.translate(-origin);
  }
  return only;
}

}  // namespace tarnvex::desktop
