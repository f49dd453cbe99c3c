#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {

QLabel* makeLabel(const QString& text) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

/// Qt guesses whether a tip's text is markup. What it would take for markup becomes markup that
/// shows it.
QString plainTip(QString text) {
  if (!Qt::mightBeRichText(text)) {
    return text;
  }
  text = text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
  return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text);
}

QString withoutMnemonics(QString text) {
  return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace tarnvex::desktop
