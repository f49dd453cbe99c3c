#include <QGridLayout>

#include "desktop/windows/pages.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {
namespace {

void addHitList(QGridLayout* grid, int column, const QString& caption, platform::ListBox& list,
                platform::Button& clear, Binder& binder) {
  auto* hits = binder.make<QListWidget>(list);
  auto* label = makeLabel(caption);
  label->setBuddy(hits);
  auto* button = binder.make<QPushButton>(clear);
  hits->setAlternatingRowColors(true);
  hits->setAccessibleName(caption);
  hits->setToolTip(QObject::tr("A click stores the line in the table, at the table's cursor."));
  button->setAccessibleName(button->text() + QStringLiteral(": ") + caption);
  grid->addWidget(label, 0, column);
  grid->addWidget(button, 0, column + 1);
  grid->addWidget(hits, 1, column, 1, 2);
  grid->setColumnStretch(column, 1);
}

}  // namespace

QWidget* makeSearchPage(shell::MainForm& form, Binder& binder) {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  addHitList(grid, 0, QObject::tr("Conventional Search Hits"), form.hitLists.List1,
             form.hitLists.Command1, binder);
  addHitList(grid, 2, QObject::tr("Trunked Search Hits"), form.hitLists.List2,
             form.hitLists.Command2, binder);
  grid->addWidget(binder.make<QCheckBox>(form.hitLists.chkSkip), 2, 0, 1, 4);
  return page;
}

}  // namespace tarnvex::desktop
