#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/ports/device_watcher.h"
#include "desktop/ports/text.h"
#include "desktop/windows/com_option.h"
#include "desktop/windows/pages.h"

namespace tarnvex::desktop {
namespace {

/// A row of bank boxes under their column headings.
template <std::size_t N>
void addBankRow(QGridLayout* grid, int row, const QString& caption,
                std::array<platform::CheckBox, N>& boxes, int first, Binder& binder) {
  grid->addWidget(new QLabel(caption), row, 0);
  for (int bank = 0; bank < 10; ++bank) {
    auto* box = new QCheckBox;
    binder.bind(box, boxes[static_cast<std::size_t>(first + bank)]);
    const auto* heading = static_cast<QLabel*>(grid->itemAtPosition(0, bank + 1)->widget());
    box->setAccessibleName(caption + QLatin1Char(' ') + heading->text());
    grid->addWidget(box, row, bank + 1, Qt::AlignHCenter);
  }
}

/// A frame that is switched on and off, with room for rows of banks under these headings.
QGridLayout* addBankFrame(QGroupBox* frame, shell::MainForm& form, const QStringList& banks,
                          Binder& binder) {
  frame->setObjectName(QStringLiteral("Frame2"));
  auto* grid = new QGridLayout;
  // Ten columns beside the hand-held have to go on a small screen.
  grid->setHorizontalSpacing(frame->fontMetrics().averageCharWidth() / 2);
  for (int bank = 0; bank < banks.size(); ++bank) {
    grid->addWidget(new QLabel(banks[bank]), 0, bank + 1, Qt::AlignHCenter);
  }
  auto* on = new QRadioButton;
  auto* off = new QRadioButton;
  binder.bind(on, form.Option5);
  binder.bind(off, form.Option6);
  auto* switches = new QHBoxLayout;
  switches->addWidget(on);
  switches->addWidget(off);
  switches->addStretch();
  auto* column = new QVBoxLayout(frame);
  column->addLayout(switches);
  column->addLayout(grid);
  column->addStretch();
  return grid;
}

void addCheckBoxes(QVBoxLayout* column, const std::vector<platform::CheckBox*>& boxes,
                   Binder& binder) {
  for (platform::CheckBox* model : boxes) {
    auto* box = new QCheckBox;
    binder.bind(box, *model);
    column->addWidget(box);
  }
}

/// The popup menu of the saved searches, shown where the pointer is.
void bindSearchMenu(QListWidget* list, search::SearchlistMenu& model, Binder& binder) {
  auto* menu = new QMenu(list);
  menu->setObjectName(QStringLiteral("mnuSearchlist"));
  for (const auto& [item, name] : {std::pair{&model.mnuSLSearch, "mnuSLSearch"},
                                   std::pair{&model.mnuSLDelete, "mnuSLDelete"}}) {
    auto* action = menu->addAction(toScreen(item->caption), list, [&binder, item = item] {
      binder.gate().enter([item] {
        if (item->onClick) {
          item->onClick();
        }
      });
    });
    action->setObjectName(QLatin1String(name));
  }
  menu->setDefaultAction(menu->actions().first());
  binder.keep(model.shown.connect([menu, &model] {
    menu->actions().first()->setText(toScreen(model.mnuSLSearch.caption));
    menu->popup(QCursor::pos());
  }));
}

/// The state of the line in words. It keeps the room of two lines, so that nothing moves when the
/// text changes.
QLabel* makeLinkState(shell::MainForm& form, Binder& binder) {
  auto* label = new QLabel;
  label->setObjectName(QStringLiteral("LinkState"));
  label->setAccessibleName(QObject::tr("Link state"));
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumHeight(label->fontMetrics().lineSpacing() * 2);
  const auto show = [label, &state = form.linkState] {
    label->setText(toScreen(state.text()));
    label->setToolTip(label->text());
    label->setAccessibleDescription(label->text());
  };
  show();
  binder.keep(form.linkState.changed.connect(show));
  return label;
}

}  // namespace

QWidget* makeLinkFrame(shell::MainForm& form, platform::ComboBox& baudBox, DeviceSlots& devices,
                       Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("COM Port"));
  auto* grid = new QGridLayout(frame);
  QVector<ComOption*> comOptions;
  const std::array<platform::OptionButton*, DeviceSlots::kSlots> options = {
      &form.Option1, &form.Option2, &form.Option3, &form.Option4};
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    auto* option =
        new ComOption(slot, *options[static_cast<std::size_t>(slot - 1)], devices, binder);
    grid->addWidget(option, slot - 1, 0);
    grid->addWidget(option->deviceBox(), slot - 1, 1);
    comOptions.push_back(option);
  }
  const auto follow = [comOptions] {
    for (ComOption* option : comOptions) {
      option->showDevices();
    }
  };
  new DeviceWatcher({QStringLiteral("/dev"), QStringLiteral("/dev/serial/by-id")}, follow, frame);
  auto* baud = new QComboBox;
  binder.bind(baud, baudBox);
  auto* caption = new QLabel(QObject::tr("Baud Rate"));
  caption->setBuddy(baud);
  auto* connectButton = new QPushButton;
  binder.bind(connectButton, form.Command3, Binder::Urgency::Leaving);
  grid->addWidget(caption, 4, 0);
  grid->addWidget(baud, 4, 1);
  grid->addWidget(connectButton, 5, 0, 1, 2);
  grid->addWidget(makeLinkState(form, binder), 6, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(7, 1);
  return frame;
}

QWidget* makeSwitchesFrame(shell::MainForm& form, Binder& binder, bool muteToo) {
  auto* frame = new QGroupBox(QObject::tr("Sound"));
  auto* column = new QVBoxLayout(frame);
  addCheckBoxes(column, {&form.chkKeyBeep}, binder);
  if (muteToo) {
    addCheckBoxes(column, {&form.Check6}, binder);
  }
  addCheckBoxes(column, {&form.chkRecord}, binder);
  column->addStretch();
  return frame;
}

QWidget* makeMultiscanFrame(shell::Form4& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Multiscan"));
  auto* grid =
      addBankFrame(frame, form, {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"}, binder);
  addBankRow(grid, 1, QObject::tr("Conventional:"), form.MSBank, 0, binder);
  addBankRow(grid, 2, QObject::tr("Trunked:"), form.MSBank, 10, binder);
  return frame;
}

QWidget* makeSpeedFrame(shell::Form2& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Speed Enhancement"));
  auto* grid =
      addBankFrame(frame, form, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, binder);
  addBankRow(grid, 1, QObject::tr("Banks:"), form.MSBank, 0, binder);
  return frame;
}

QWidget* makeReceiverFrame(shell::Form2& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("BC245XLT Options"));
  frame->setObjectName(QStringLiteral("Frame3"));
  auto* column = new QVBoxLayout(frame);
  addCheckBoxes(column,
                {&form.Check1, &form.Check2, &form.Check3, &form.Check4, &form.Check5, &form.Check6,
                 &form.Check7},
                binder);
  auto* heading = new QLabel(toScreen(form.Label48.caption()));
  heading->setObjectName(QString::fromStdString(form.Label48.name()));
  column->addWidget(heading);
  auto* views = new QVBoxLayout;
  for (platform::OptionButton* model : {&form.Option8, &form.Option7}) {
    auto* option = new QRadioButton;
    binder.bind(option, *model);
    views->addWidget(option);
  }
  column->addLayout(views);
  column->addStretch();
  return frame;
}

QWidget* makeLimitsFrame(shell::MainForm& form, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Custom Search"));
  auto* rows = new QFormLayout;
  const std::array limits = {std::pair{&form.LLimit, QObject::tr("Lower Limit:")},
                             std::pair{&form.Ulimit, QObject::tr("Upper Limit:")}};
  for (const auto& [model, caption] : limits) {
    auto* box = new QLineEdit;
    binder.bind(box, *model);
    box->setAccessibleName(caption);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("0000.00000")));
    rows->addRow(caption, box);
  }
  auto* searches = new QListWidget;
  binder.bind(searches, form.List3);
  searches->setAccessibleName(QObject::tr("Saved searches"));
  searches->setMinimumHeight(searches->fontMetrics().lineSpacing() * 4);
  bindSearchMenu(searches, form.mnuSearchlist, binder);
  auto* save = new QPushButton;
  binder.bind(save, form.Command4);
  auto* column = new QVBoxLayout(frame);
  column->addLayout(rows);
  column->addWidget(searches);
  column->addWidget(save);
  return frame;
}

QWidget* makeOptionsPage(const QVector<QVector<QWidget*>>& columns) {
  auto* content = new QWidget;
  auto* row = new QHBoxLayout(content);
  for (const auto& frames : columns) {
    auto* column = new QVBoxLayout;
    for (QWidget* frame : frames) {
      column->addWidget(frame);
    }
    row->addLayout(column);
  }
  auto* page = new QScrollArea;
  page->setWidget(content);
  page->setWidgetResizable(true);
  page->setFrameShape(QFrame::NoFrame);
  page->setFocusPolicy(Qt::NoFocus);
  return page;
}

}  // namespace tarnvex::desktop
