#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/windows/pages.h"
#include "desktop/windows/plain_text.h"
#include "desktop/windows/plan_table.h"
#include "memory/plan_records.h"

namespace tarnvex::desktop {
namespace {

QComboBox* addSelector(QHBoxLayout* row, const QString& caption, platform::ComboBox& model,
                       Binder& binder) {
  auto* box = new QComboBox;
  auto* label = makeLabel(caption);
  label->setBuddy(box);
  binder.bind(box, model);
  row->addWidget(label);
  row->addWidget(box);
  return box;
}

QWidget* makeTablePage(QHBoxLayout* selectors, PlanTable* table, const QString& spokenName) {
  table->setAccessibleName(spokenName);
  selectors->addStretch();
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->addLayout(selectors);
  layout->addWidget(table);
  return page;
}

}  // namespace

QWidget* makeStationPage(shell::MainForm& form, Binder& binder) {
  auto* selectors = new QHBoxLayout;
  addSelector(selectors, QObject::tr("Select Bank:"), form.Combo3, binder);
  auto* table = new PlanTable(form.MSFlexGrid1, form.planEditor(), binder.gate(),
                              memory::ChannelRecord::AlphaTag, nullptr);
  return makeTablePage(selectors, table, QObject::tr("Conventional channels"));
}

QWidget* makeTrunkedPage(shell::MainForm& form, Binder& binder) {
  auto* selectors = new QHBoxLayout;
  addSelector(selectors, QObject::tr("Select Bank:"), form.trunkBank, binder);
  selectors->addSpacing(selectors->spacing() * 2);
  addSelector(selectors, QObject::tr("Scanlist:"), form.Combo2, binder);
  auto* table = new PlanTable(form.MSFlexGrid2, form.planEditor(), binder.gate(),
                              memory::TalkgroupRecord::AlphaTag, nullptr);
  return makeTablePage(selectors, table, QObject::tr("Talkgroup IDs"));
}

}  // namespace tarnvex::desktop
