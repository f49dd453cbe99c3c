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
  const auto found = std::ranges::find(elements, name, &DisplayElement::name);
  return found == elements.end() ? -1 : static_cast<int>(found - elements.begin());
}

void addWords(QVector<DisplayElement>& elements, std::span<const WordPlace> words, double height,
              double lineEnd) {
  for (const WordPlace& place : words) {
    const bool atEnd = place.x + place.width > lineEnd - 1;
    elements.append({QString::fromLatin1(place.name), ElementKind::Word,
                     QRectF(place.x, place.y, place.width, height), QString::fromLatin1(place.word),
                     (atEnd ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, QString()});
  }
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
  for (QRectF* place : {&only.bezel, &only.glass, &only.spare}) {
    place->translate(-origin);
  }
  for (DisplayElement& element : only.elements) {
    element.rect.translate(-origin);
  }
  return only;
}

}  // namespace tarnvex::desktop
