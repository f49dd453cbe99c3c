#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/windows/find_bar.h"
#include "desktop/windows/pages.h"
#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"
#include "desktop/windows/plan_table.h"
#include "memory/plan_records.h"

namespace tarnvex::desktop {
namespace {

void addSelector(QHBoxLayout* row, const QString& caption, platform::ComboBox& model,
                 Binder& binder) {
  auto* box = binder.make<QComboBox>(model);
  auto* label = makeLabel(caption);
  label->setBuddy(box);
  row->addWidget(label);
  row->addWidget(box);
}

QPushButton* makeFindButton() {
  auto* find = named(new QPushButton(QObject::tr("Find...")), "find");
  find->setToolTip(QObject::tr("Finds a row by its text (Ctrl+F)"));
  return find;
}

QWidget* makeTablePage(QHBoxLayout* selectors, PlanTable* table, const QString& spokenName,
                       std::vector<int> searched, const QStringList& emptyTexts) {
  table->setAccessibleName(spokenName);
  // Added before the table, the button is also before it for the Tab key.
  auto* find = makeFindButton();
  selectors->addStretch();
  selectors->addWidget(find);
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->addLayout(selectors);
  layout->addWidget(table);
  auto* bar = new FindBar(*table, std::move(searched), emptyTexts, page);
  layout->addWidget(bar);
  QObject::connect(find, &QPushButton::clicked, bar, &FindBar::open);
  return page;
}

}  // namespace

QWidget* makeStationPage(shell::MainForm& form, Binder& binder) {
  auto* selectors = new QHBoxLayout;
  addSelector(selectors, QObject::tr("Select Bank:"), form.Combo3, binder);
  auto* table = new PlanTable(form.MSFlexGrid1, form.planEditor(), binder.gate(),
                              memory::ChannelRecord::AlphaTag, nullptr);
  return makeTablePage(selectors, table, QObject::tr("Conventional channels"),
                       {memory::ChannelRecord::Frequency, memory::ChannelRecord::Ctcss,
                        memory::ChannelRecord::AlphaTag},
                       {QString(), QStringLiteral("0.0000")});
}

QWidget* makeTrunkedPage(shell::MainForm& form, Binder& binder) {
  auto* selectors = new QHBoxLayout;
  addSelector(selectors, QObject::tr("Select Bank:"), form.trunkBank, binder);
  selectors->addSpacing(selectors->spacing() * 2);
  addSelector(selectors, QObject::tr("Scanlist:"), form.Combo2, binder);
  auto* table = new PlanTable(form.MSFlexGrid2, form.planEditor(), binder.gate(),
                              memory::TalkgroupRecord::AlphaTag, nullptr);
  return makeTablePage(selectors, table, QObject::tr("Talkgroup IDs"),
                       {memory::TalkgroupRecord::Id, memory::TalkgroupRecord::AlphaTag},
                       {QString(), QStringLiteral("-----")});
}

}  // namespace tarnvex::desktop
