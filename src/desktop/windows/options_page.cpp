#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QScrollArea>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <optional>

#include "desktop/ports/device_watcher.h"
#include "desktop/ports/text.h"
#include "desktop/windows/box_row.h"
#include "desktop/windows/brief_notice.h"
#include "desktop/windows/com_option.h"
#include "desktop/windows/pages.h"
#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {
namespace {

/// Adds a row of bank boxes below their column headings.
void addBankRow(QGridLayout* grid, int row, const QString& caption, monitor::BankRotation& rotation,
                std::size_t first, Binder& binder) {
  grid->addWidget(makeLabel(caption), row, 0);
  QVector<QAbstractButton*> stop;
  for (int bank = 0; bank < 10; ++bank) {
    auto* box = binder.make<QCheckBox>(rotation.MSBank[first + static_cast<std::size_t>(bank)]);
    const auto* heading = static_cast<QLabel*>(grid->itemAtPosition(0, bank + 1)->widget());
    box->setAccessibleName(caption + QLatin1Char(' ') + heading->text());
    grid->addWidget(box, row, bank + 1, Qt::AlignHCenter);
    stop.push_back(box);
  }
  new BoxRow(stop, stop.front());
}

/// The buttons that switch a rotation on and off.
QLayout* makeBankSwitches(monitor::BankRotation& rotation, Binder& binder) {
  auto* on = binder.make<QRadioButton>(rotation.Option5);
  binder.follow(rotation.Option5.changed, [on, &model = rotation.Option5] {
    const QString why = model.enabled() ? QObject::tr("Steps the radio through the ticked banks.")
                                        : QObject::tr(
                                              "Steps the radio through the ticked banks. "
                                              "Tick one first.");
    on->setToolTip(plainTip(why));
    on->setAccessibleDescription(why);
  });
  auto* row = new QHBoxLayout;
  row->addWidget(on);
  row->addWidget(binder.make<QRadioButton>(rotation.Option6));
  row->addStretch();
  return row;
}

/// Adds a rotation's "On" and "Off" to its frame, and returns a grid with the banks' headings, for
/// rows of boxes.
QGridLayout* addBankFrame(QGroupBox* frame, monitor::BankRotation& rotation,
                          const std::vector<std::string>& banks, Binder& binder) {
  auto* grid = new QGridLayout;
  // Ten columns beside the hand-held must fit on a small screen.
  grid->setHorizontalSpacing(frame->fontMetrics().averageCharWidth() / 2);
  for (const std::string& bank : banks) {
    grid->addWidget(makeLabel(toScreen(bank)), 0, grid->columnCount(), Qt::AlignHCenter);
  }
  auto* column = new QVBoxLayout(named(frame, "Frame2"));
  column->addLayout(makeBankSwitches(rotation, binder));
  column->addLayout(grid);
  column->addStretch();
  return grid;
}

void addCheckBoxes(QVBoxLayout* column, const std::vector<platform::CheckBox*>& boxes,
                   Binder& binder) {
  for (platform::CheckBox* model : boxes) {
    column->addWidget(binder.make<QCheckBox>(*model));
  }
}

void addItem(QMenu* menu, search::SearchlistMenu::Item& item, Binder& binder) {
  auto* action = menu->addAction(toScreen(item.caption), menu, [&binder, &item] {
    binder.gate().enter([&item] { platform::run(item.onClick); });
  });
  action->setObjectName(QString::fromStdString(item.name));
}

/// Notices how a list's menu is opened. The keyboard's request goes to the list, the mouse's to its
/// viewport.
class MenuReason : public QObject {
 public:
  explicit MenuReason(QListWidget* list) : QObject(list) {
    list->installEventFilter(this);
    list->viewport()->installEventFilter(this);
  }
  /// Where the mouse has asked for the menu last. Nothing if it was the keyboard.
  [[nodiscard]] std::optional<QPoint> pointer() const { return pointer_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ContextMenu) {
      const auto* menu = static_cast<QContextMenuEvent*>(event);
      const bool byMouse = menu->reason() == QContextMenuEvent::Mouse;
      pointer_ = byMouse ? std::optional(menu->globalPos()) : std::nullopt;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  std::optional<QPoint> pointer_;
};

/// Shows it at the pointer, or at the current line if it is opened by the keyboard.
void popUp(QMenu* menu, const QListWidget* list, const std::optional<QPoint>& pointer) {
  const QRect line = list->visualItemRect(list->currentItem());
  menu->popup(pointer.value_or(list->viewport()->mapToGlobal(line.bottomLeft())));
}

/// Binds the popup menu of the saved searches.
void bindSearchMenu(QListWidget* list, search::SearchlistMenu& model, Binder& binder) {
  auto* menu = named(new QMenu(list), "mnuSearchlist");
  addItem(menu, model.mnuSLSearch, binder);
  addItem(menu, model.mnuSLDelete, binder);
  QAction* search = menu->actions().first();
  menu->setDefaultAction(search);
  auto* reason = new MenuReason(list);
  binder.keep(model.shown.connect([menu, search, list, reason, &model] {
    const QString caption = toScreen(model.mnuSLSearch.caption);
    search->setText(caption.left(1) + withoutMnemonics(caption.mid(1)));
    popUp(menu, list, reason->pointer());
  }));
}

/// The state of the line in words. Its label always has space for two lines, so that nothing moves
/// when the text changes.
QLabel* makeLinkState(link::LinkState& state, Binder& binder) {
  auto* label = named(makeLabel(), "LinkState", QObject::tr("Link state"));
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumHeight(label->fontMetrics().lineSpacing() * 2);
  binder.follow(state.changed, [label, &state] {
    label->setText(toScreen(state.text()));
    label->setToolTip(plainTip(label->text()));
    label->setAccessibleDescription(label->text());
  });
  return label;
}

/// The four COM options with their devices, from the first row on.
QVector<ComOption*> addComOptions(QGridLayout* grid, link::LinkControls& controls,
                                  DeviceSlots& devices, Binder& binder) {
  QVector<ComOption*> options;
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    auto& model = *controls.options[static_cast<std::size_t>(slot - 1)];
    options.push_back(new ComOption(slot, model, devices, binder));
    grid->addWidget(options.back(), slot - 1, 0);
    grid->addWidget(options.back()->deviceBox(), slot - 1, 1);
  }
  return options;
}

/// The options and the state of the line follow the machine's devices as these come and go.
void followDevices(const QVector<ComOption*>& options, link::LinkState& state, Binder& binder) {
  const auto follow = [options, &state, &binder] {
    // The window may have been closed meanwhile.
    if (!options.front()->isEnabled()) {
      return;
    }
    std::ranges::for_each(options, &ComOption::showDevices);
    if (std::ranges::any_of(options, [&](const auto* it) { return it->leadsTo(state.device()); })) {
      binder.gate().enter([&state] { state.deviceIsBack(); });
    }
  };
  new DeviceWatcher({QStringLiteral("/dev"), QStringLiteral("/dev/serial/by-id")}, follow,
                    options.front());
}

}  // namespace

QWidget* makeLinkFrame(link::LinkControls& controls, link::LinkState& state, DeviceSlots& devices,
                       Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("COM Port"));
  auto* grid = new QGridLayout(frame);
  followDevices(addComOptions(grid, controls, devices, binder), state, binder);
  auto* baud = binder.make<QComboBox>(controls.baudBox);
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

namespace {

void showRecordings(const QString& path, QWidget* window) {
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
    tellBriefly(window, QObject::tr("The folder could not be opened: %1").arg(path));
  }
}

/// The record box, the button that opens its folder, and a line about what is missing. The line is
/// at the bottom, so that nothing moves when it appears.
void addRecording(QVBoxLayout* column, shell::MainForm& form, Binder& binder) {
  const QString path = QString::fromStdString(form.programDirectory());
  auto* box = new QCheckBox;
  binder.bind(box, form.recording.chkRecord);
  box->setToolTip(
      plainTip(QObject::tr("Records each reception to a file in the folder %1").arg(path)));
  auto* folder = new QPushButton(QObject::tr("Show recordings"));
  folder->setObjectName(QStringLiteral("showRecordings"));
  folder->setToolTip(plainTip(QObject::tr("Opens the folder %1").arg(path)));
  QObject::connect(folder, &QPushButton::clicked, folder,
                   [folder, path] { showRecordings(path, folder->window()); });
  auto* missing = makeLabel();
  missing->setObjectName(QString::fromStdString(form.recording.missing.name()));
  missing->setWordWrap(true);
  binder.keep(
      form.recording.missing.changed.connect([box, missing, &model = form.recording.missing] {
        missing->setText(model.visible() ? toScreen(model.caption()) : QString());
        box->setAccessibleDescription(missing->text());
      }));
  column->addWidget(box);
  column->addWidget(folder, 0, Qt::AlignLeft);
  column->addWidget(missing);
}

}  // namespace

QWidget* makeSwitchesFrame(shell::MainForm& form, Binder& binder, bool muteToo) {
  auto* frame = new QGroupBox(QObject::tr("Sound"));
  auto* column = new QVBoxLayout(frame);
  addCheckBoxes(column, {&form.keyBeep.chkKeyBeep}, binder);
  if (muteToo) {
    addCheckBoxes(column, {&form.Check6}, binder);
  }
  addRecording(column, form, binder);
  column->addStretch();
  return frame;
}

QWidget* makeMultiscanFrame(monitor::Multiscan& multiscan, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Multiscan"));
  auto* grid = addBankFrame(frame, multiscan, link::bc895Model().bankNames, binder);
  addBankRow(grid, 1, QObject::tr("Conventional:"), multiscan, 0, binder);
  addBankRow(grid, 2, QObject::tr("Trunked:"), multiscan, 10, binder);
  return frame;
}

QWidget* makeSpeedFrame(monitor::SpeedEnhancement& speed, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Speed Enhancement"));
  auto* grid = addBankFrame(frame, speed, link::bc245Model().bankNames, binder);
  addBankRow(grid, 1, QObject::tr("Banks:"), speed, 0, binder);
  return frame;
}

QWidget* makeReceiverFrame(monitor::ReceiverOptions& options, Binder& binder) {
  auto* frame = named(new QGroupBox(QObject::tr("BC245XLT Options")), "Frame3");
  auto* column = new QVBoxLayout(frame);
  addCheckBoxes(column,
                {&options.Check1, &options.Check2, &options.Check3, &options.Check4,
                 &options.Check5, &options.Check6, &options.Check7},
                binder);
  auto* heading = makeLabel(toScreen(options.Label48.caption()));
  heading->setObjectName(QString::fromStdString(options.Label48.name()));
  column->addWidget(heading);
  column->addWidget(binder.make<QRadioButton>(options.Option8));
  column->addWidget(binder.make<QRadioButton>(options.Option7));
  column->addStretch();
  return frame;
}

namespace {

QLayout* makeLimits(search::CustomSearch& search, Binder& binder) {
  auto* rows = new QFormLayout;
  const std::array limits = {std::pair{&search.LLimit, QObject::tr("Lower Limit:")},
                             std::pair{&search.Ulimit, QObject::tr("Upper Limit:")}};
  for (const auto& [model, caption] : limits) {
    auto* box = binder.make<QLineEdit>(*model);
    box->setAccessibleName(caption);
    box->setToolTip(QObject::tr("From 29 to 956 MHz. Enter sends it to the radio."));
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("0000.00000")));
    rows->addRow(caption, box);
  }
  return rows;
}

}  // namespace

QWidget* makeSearchFrame(search::CustomSearch& search, Binder& binder) {
  auto* frame = new QGroupBox(QObject::tr("Custom Search"));
  auto* searches = binder.make<QListWidget>(search.saved.List3);
  searches->setAccessibleName(QObject::tr("Saved searches"));
  searches->setToolTip(
      QObject::tr("A click sets both limits and offers to search. The right button offers more."));
  searches->setMinimumHeight(searches->fontMetrics().lineSpacing() * 4);
  bindSearchMenu(searches, search.mnuSearchlist, binder);
  auto* column = new QVBoxLayout(frame);
  column->addLayout(makeLimits(search, binder));
  column->addWidget(searches);
  column->addWidget(binder.make<QPushButton>(search.Command4));
  return frame;
}

namespace {

/// A page that scrolls if there isn't enough room for what it shows.
QScrollArea* scrolling(QWidget* content) {
  auto* page = new QScrollArea;
  page->setWidget(content);
  page->setWidgetResizable(true);
  page->setFrameShape(QFrame::NoFrame);
  page->setFocusPolicy(Qt::NoFocus);
  return page;
}

}  // namespace

QWidget* makeOptionsPage(const QVector<QVector<QWidget*>>& columns) {
  auto* content = new QWidget;
  auto* row = new QHBoxLayout(content);
  for (const auto& frames : columns) {
    auto* column = new QVBoxLayout;
    // The last frame of a column takes what is left of its height.
    for (QWidget* frame : frames) {
      column->addWidget(frame, frame == frames.last() ? 1 : 0);
    }
    row->addLayout(column);
  }
  return scrolling(content);
}

}  // namespace tarnvex::desktop
