#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/windows/com_option.h"
#include "desktop/windows/pages.h"

namespace tarnvex::desktop {
namespace {

void addBankRow(QGridLayout* grid, int row, const QString& caption, shell::Form4& form, int first,
                Binder& binder) {
  grid->addWidget(new QLabel(caption), row, 0);
  for (int bank = 0; bank < 10; ++bank) {
    const int index = first + bank;
    auto* box = new QCheckBox;
    binder.bind(box, form.MSBank[static_cast<std::size_t>(index)],
                QStringLiteral("MSBank(%1)").arg(index));
    box->setAccessibleName(caption + QLatin1Char(' ') + QChar('A' + bank));
    grid->addWidget(box, row, bank + 1, Qt::AlignHCenter);
  }
}

}  // namespace

QWidget* makeLinkFrame(shell::MainForm& form, platform::ComboBox& baudBox, const char* name,
                       DeviceSlots& devices, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("COM Port"));
  auto* grid = new QGridLayout(frame);
  const std::array<platform::OptionButton*, DeviceSlots::kSlots> options = {
      &form.Option1, &form.Option2, &form.Option3, &form.Option4};
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    auto* option =
        new ComOption(slot, *options[static_cast<std::size_t>(slot - 1)], devices, binder);
    grid->addWidget(option, slot - 1, 0);
    grid->addWidget(option->deviceLabel(), slot - 1, 1);
  }
  auto* baud = new QComboBox;
  binder.bind(baud, baudBox, name);
  auto* caption = new QLabel(QObject::tr("Baud Rate"));
  caption->setBuddy(baud);
  auto* connectButton = new QPushButton;
  binder.bind(connectButton, form.Command3, "Command3", Binder::Urgency::Leaving);
  grid->addWidget(caption, 4, 0);
  grid->addWidget(baud, 4, 1);
  grid->addWidget(connectButton, 5, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(6, 1);
  return frame;
}

QWidget* makeSwitchesFrame(shell::MainForm& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Sound"));
  auto* column = new QVBoxLayout(frame);
  const std::array<std::pair<platform::CheckBox*, const char*>, 3> boxes = {
      {{&form.chkKeyBeep, "chkKeyBeep"}, {&form.Check6, "Check6"}, {&form.chkRecord, "chkRecord"}}};
  for (const auto& [model, name] : boxes) {
    auto* box = new QCheckBox;
    binder.bind(box, *model, QLatin1String(name));
    column->addWidget(box);
  }
  column->addStretch();
  return frame;
}

QWidget* makeMultiscanFrame(shell::Form4& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Multiscan"));
  frame->setObjectName(QStringLiteral("Frame2"));
  auto* grid = new QGridLayout;
  for (int bank = 0; bank < 10; ++bank) {
    grid->addWidget(new QLabel(QChar('A' + bank)), 0, bank + 1, Qt::AlignHCenter);
  }
  addBankRow(grid, 1, QObject::tr("Conventional:"), form, 0, binder);
  addBankRow(grid, 2, QObject::tr("Trunked:"), form, 10, binder);
  auto* on = new QRadioButton;
  auto* off = new QRadioButton;
  binder.bind(on, form.Option5, "Option5");
  binder.bind(off, form.Option6, "Option6");
  auto* switches = new QHBoxLayout;
  switches->addWidget(on);
  switches->addWidget(off);
  switches->addStretch();
  auto* column = new QVBoxLayout(frame);
  column->addLayout(switches);
  column->addLayout(grid);
  column->addStretch();
  return frame;
}

QWidget* makeLimitsFrame(shell::MainForm& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Custom Search"));
  auto* rows = new QFormLayout;
  const std::array<std::tuple<platform::TextBox*, const char*, QString>, 2> limits = {
      {{&form.LLimit, "LLimit", QObject::tr("Lower Limit:")},
       {&form.Ulimit, "Ulimit", QObject::tr("Upper Limit:")}}};
  for (const auto& [model, name, caption] : limits) {
    auto* box = new QLineEdit;
    binder.bind(box, *model, name);
    box->setAccessibleName(caption);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("0000.00000")));
    rows->addRow(caption, box);
  }
  auto* column = new QVBoxLayout(frame);
  column->addLayout(rows);
  column->addStretch();
  return frame;
}

QWidget* makeOptionsPage(const QVector<QWidget*>& columns) {
  auto* content = new QWidget;
  auto* row = new QHBoxLayout(content);
  for (QWidget* column : columns) {
    row->addWidget(column);
  }
  auto* page = new QScrollArea;
  page->setWidget(content);
  page->setWidgetResizable(true);
  page->setFrameShape(QFrame::NoFrame);
  return page;
}

}  // namespace tarnvex::desktop
