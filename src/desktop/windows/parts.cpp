#include "desktop/windows/parts.h"

#include <QHeaderView>
#include <QIcon>
#include <QToolButton>

#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {

QLineEdit* makeSearchLine(const char* name, const QString& placeholder, const QString& spoken) {
  auto* line = named(new QLineEdit, name, spoken);
  line->setPlaceholderText(placeholder);
  line->setClearButtonEnabled(true);
  line->findChild<QToolButton*>()->setAccessibleName(QObject::tr("Clear"));
  return line;
}

QLabel* makeIcon(int lines) {
  auto* label = makeLabel();
  const int side = label->fontMetrics().height() * lines;
  label->setPixmap(QIcon(QStringLiteral(":/tarnvex.svg")).pixmap(side, side));
  return label;
}

QLabel* makeLine(const QString& text, double scale, bool bold) {
  auto* label = makeLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(bold);
  label->setFont(font);
  return label;
}

void makePlain(QTableView* table) {
  table->setTabKeyNavigation(false);
  table->setAlternatingRowColors(true);
  table->setWordWrap(false);
  table->setCornerButtonEnabled(false);
  table->verticalHeader()->hide();
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->horizontalHeader()->setHighlightSections(false);
}

}  // namespace tarnvex::desktop
