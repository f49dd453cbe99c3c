#include "desktop/panel/display_reader.h"

#include <QStringList>

namespace tarnvex::desktop {
namespace {

QString notLive() {
  return QStringLiteral("Not live");
}

QString mainLine(const QString& text) {
  const bool frequency = !text.isEmpty() && text[0].isDigit() && text.contains(QLatin1Char('.'));
  return frequency ? QStringLiteral("Frequency %1").arg(text) : text;
}

QString textElement(const DisplayElement& element, const QString& text) {
  if (text.trimmed().isEmpty()) {
    return {};
  }
  if (element.kind == ElementKind::MainText) {
    return mainLine(text);
  }
  const QString plain = text.simplified();
  return element.spoken.isEmpty() ? plain : element.spoken + QLatin1Char(' ') + plain;
}

/// What a lit element says. Banks and bars are told as a whole, after all others.
struct Reading {
  QStringList parts;
  QStringList banks;
  int bars = 0;

  void take(const DisplayElement& element, const QString& text) {
    switch (element.kind) {
      case ElementKind::BankLetter:
        banks.append(element.ghost);
        break;
      case ElementKind::Mark:
        banks.append(element.spoken);
        break;
      case ElementKind::Bar:
        ++bars;
        break;
      case ElementKind::Word:
        parts.append(element.spoken.isEmpty() ? element.ghost : element.spoken);
        break;
      default:
        parts.append(textElement(element, text));
    }
  }
};

}  // namespace

QString readDisplay(const PanelLayout& layout, const FrontState& state) {
  Reading reading;
  for (int i = 0; i < layout.elements.size(); ++i) {
    if (state.elements[i].lit && !layout.elements[i].silent) {
      reading.take(layout.elements[i], state.elements[i].text);
    }
  }
  QStringList parts = reading.parts;
  parts.prepend(state.live ? QString() : notLive());
  if (!reading.banks.isEmpty()) {
    parts.append(QStringLiteral("bank ") + reading.banks.join(QLatin1Char(' ')));
  }
  if (reading.bars > 0) {
    parts.append(QStringLiteral("signal %1").arg(reading.bars));
  }
  parts.removeAll(QString());
  return parts.join(QStringLiteral(", "));
}

QString readReception(const PanelLayout& layout, const FrontState& state) {
  if (!state.live) {
    return notLive();
  }
  QStringList parts;
  for (int i = 0; i < layout.elements.size(); ++i) {
    const DisplayElement& element = layout.elements[i];
    if (!hasOwnShape(element.kind) && state.elements[i].lit && !element.silent) {
      parts.append(textElement(element, state.elements[i].text));
    }
  }
  return parts.join(QLatin1Char(' ')).simplified();
}

}  // namespace tarnvex::desktop
