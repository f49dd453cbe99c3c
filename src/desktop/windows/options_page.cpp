#include <QDesktopServices>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QScrollArea>
#include <QUrl>
#include <QVBoxLayout>

#include "desktop/ports/device_watcher.h"
#include "desktop/ports/text.h"
#include "desktop/windows/box_row.h"
#include "desktop/windows/com_option.h"
#include "desktop/windows/pages.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {
namespace {

/// Adds a row of bank boxes below their column headings.
void addBankRow(QGridLayout* grid, int row, const QString& caption, monitor::BankRotation& rotation,
                int first, Binder& binder) {
  grid->addWidget(makeLabel(caption), row, 0);
  QVector<QAbstractButton*> stop;
  for (int bank = 0; bank < 10; ++bank) {
    auto* box = new QCheckBox;
    binder.bind(box, rotation.MSBank[static_cast<std::size_t>(first + bank)]);
    const auto* heading = static_cast<QLabel*>(grid->itemAtPosition(0, bank + 1)->widget());
    box->setAccessibleName(caption + QLatin1Char(' ') + heading->text());
    grid->addWidget(box, row, bank + 1, Qt::AlignHCenter);
    stop.push_back(box);
  }
  new BoxRow(stop, stop.front());
}

/// Adds a rotation's "On" and "Off" to its frame, and returns a grid with the banks' headings, for
/// rows of boxes.
QGridLayout* addBankFrame(QGroupBox* frame, monitor::BankRotation& rotation,
                          const QStringList& banks, Binder& binder) {
  frame->setObjectName(QStringLiteral("Frame2"));
  auto* grid = new QGridLayout;
  // Ten columns beside the hand-held must fit on a small screen.
  grid->setHorizontalSpacing(frame->fontMetrics().averageCharWidth() / 2);
  for (int bank = 0; bank < banks.size(); ++bank) {
    grid->addWidget(makeLabel(banks[bank]), 0, bank + 1, Qt::AlignHCenter);
  }
  auto* on = new QRadioButton;
  auto* off = new QRadioButton;
  binder.bind(on, rotation.Option5);
  binder.bind(off, rotation.Option6);
  const auto tellWhy = [on, &model = rotation.Option5] {
    on->setToolTip(model.enabled() ? QObject::tr("Steps the radio through the ticked banks.")
                                   : QObject::tr("Steps the radio through the ticked banks. "
                                                 "Tick one first."));
    on->setAccessibleDescription(on->toolTip());
  };
  tellWhy();
  binder.keep(rotation.Option5.changed.connect(tellWhy));
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

/// Binds the popup menu of the saved searches, which is shown at the pointer.
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
  binder.keep(model.shown.connect([menu, list, &model] {
    const QString caption = toScreen(model.mnuSLSearch.caption);
    menu->actions().first()->setText(caption.left(1) + withoutMnemonics(caption.mid(1)));
    // If it is opened by the keyboard, it is shown at the current line instead.
    const QRect line = list->visualItemRect(list->currentItem());
    const bool byMouse = list->viewport()->underMouse();
    menu->popup(byMouse ? QCursor::pos() : list->viewport()->mapToGlobal(line.bottomLeft()));
  }));
}

/// The state of the line in words. Its label always has space for two lines, so that nothing moves
/// when the text changes.
QLabel* makeLinkState(link::LinkState& state, Binder& binder) {
  auto* label = makeLabel();
  label->setObjectName(QStringLiteral("LinkState"));
  label->setAccessibleName(QObject::tr("Link state"));
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumHeight(label->fontMetrics().lineSpacing() * 2);
  const auto show = [label, &state] {
    label->setText(toScreen(state.text()));
    label->setToolTip(label->text());
    label->setAccessibleDescription(label->text());
  };
  show();
  binder.keep(state.changed.connect(show));
  return label;
}

}  // namespace

QWidget* makeLinkFrame(link::LinkControls& controls, link::LinkState& state, DeviceSlots& devices,
                       Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("COM Port"));
  auto* grid = new QGridLayout(frame);
  QVector<ComOption*> comOptions;
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    auto* option =
        new ComOption(slot, *controls.options[static_cast<std::size_t>(slot - 1)], devices, binder);
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
  binder.bind(baud, controls.baudBox);
  auto* caption = makeLabel(QObject::tr("Baud Rate"));
  caption->setBuddy(baud);
  auto* connectButton = new QPushButton;
  binder.bind(connectButton, controls.Command3, Binder::Urgency::Leaving);
  grid->addWidget(caption, 4, 0);
  grid->addWidget(baud, 4, 1);
  grid->addWidget(connectButton, 5, 0, 1, 2);
  grid->addWidget(makeLinkState(state, binder), 6, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(7, 1);
  return frame;
}

QWidget* makeSwitchesFrame(shell::MainForm& form, Binder& binder, bool muteToo) {
  auto* frame = new QGroupBox(QObject::tr("Sound"));
  auto* column = new QVBoxLayout(frame);
  addCheckBoxes(column, {&form.keyBeep.chkKeyBeep}, binder);
  if (muteToo) {
    addCheckBoxes(column, {&form.Check6}, binder);
  }
  addCheckBoxes(column, {&form.recording.chkRecord}, binder);
  auto* folder = new QPushButton(QObject::tr("Show recordings"));
  folder->setObjectName(QStringLiteral("showRecordings"));
  const QString path = QString::fromStdString(form.programDirectory());
  folder->setToolTip(QObject::tr("Opens the folder %1").arg(path));
  QObject::connect(folder, &QPushButton::clicked, folder,
                   [path] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
  column->addWidget(folder, 0, Qt::AlignLeft);
  column->addStretch();
  return frame;
}

QWidget* makeMultiscanFrame(monitor::Multiscan& multiscan, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Multiscan"));
  auto* grid =
      addBankFrame(frame, multiscan, {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"}, binder);
  addBankRow(grid, 1, QObject::tr("Conventional:"), multiscan, 0, binder);
  addBankRow(grid, 2, QObject::tr("Trunked:"), multiscan, 10, binder);
  return frame;
}

QWidget* makeSpeedFrame(monitor::SpeedEnhancement& speed, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Speed Enhancement"));
  auto* grid =
      addBankFrame(frame, speed, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, binder);
  addBankRow(grid, 1, QObject::tr("Banks:"), speed, 0, binder);
  return frame;
}

QWidget* makeReceiverFrame(monitor::ReceiverOptions& options, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("BC245XLT Options"));
  frame->setObjectName(QStringLiteral("Frame3"));
  auto* column = new QVBoxLayout(frame);
  addCheckBoxes(column,
                {&options.Check1, &options.Check2, &options.Check3, &options.Check4,
                 &options.Check5, &options.Check6, &options.Check7},
                binder);
  auto* heading = makeLabel(toScreen(options.Label48.caption()));
  heading->setObjectName(QString::fromStdString(options.Label48.name()));
  column->addWidget(heading);
  auto* views = new QVBoxLayout;
  for (platform::OptionButton* model : {&options.Option8, &options.Option7}) {
    auto* option = new QRadioButton;
    binder.bind(option, *model);
    views->addWidget(option);
  }
  column->addLayout(views);
  column->addStretch();
  return frame;
}

QWidget* makeSearchFrame(search::CustomSearch& search, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Custom Search"));
  auto* rows = new QFormLayout;
  const std::array limits = {std::pair{&search.LLimit, QObject::tr("Lower Limit:")},
                             std::pair{&search.Ulimit, QObject::tr("Upper Limit:")}};
  for (const auto& [model, caption] : limits) {
    auto* box = new QLineEdit;
    binder.bind(box, *model);
    box->setAccessibleName(caption);
    box->setToolTip(QObject::tr("From 29 to 956 MHz. Enter sends it to the radio."));
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("0000.00000")));
    rows->addRow(caption, box);
  }
  auto* searches = new QListWidget;
  binder.bind(searches, search.saved.List3);
  searches->setAccessibleName(QObject::tr("Saved searches"));
  searches->setToolTip(
      QObject::tr("A click sets both limits and offers to search. The right button offers more."));
  searches->setMinimumHeight(searches->fontMetrics().lineSpacing() * 4);
  bindSearchMenu(searches, search.mnuSearchlist, binder);
  auto* save = new QPushButton;
  binder.bind(save, search.Command4);
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
