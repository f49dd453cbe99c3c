#include "desktop/windows/dialog_window.h"

#include <QGridLayout>

#include "desktop/ports/text.h"
#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"
#include "desktop/windows/window_exit.h"

namespace tarnvex::desktop {
namespace {

/// A label with the model's caption and visibility.
QLabel* addLabel(Binder& binder, const platform::Label& model) {
  auto* label = makeLabel();
  label->setObjectName(QString::fromStdString(model.name()));
  label->setWordWrap(true);
  binder.follow(model.changed, [label, &model] {
    label->setText(lineToScreen(model.caption()));
    showIf(label, model.visible());
  });
  return label;
}

/// Makes a button. Enter presses the button with the focus, or otherwise the main one.
QPushButton* addButton(Binder& binder, platform::Button& model) {
  auto* button = binder.make<QPushButton>(model);
  button->setAutoDefault(true);
  return button;
}

QPushButton* addMainButton(Binder& binder, platform::Button& model) {
  auto* button = addButton(binder, model);
  button->setDefault(true);
  return button;
}

/// A label that says what a widget is for, and gives it the focus by its letter.
QLabel* addCaption(Binder& binder, const platform::Label& model, QWidget* widget) {
  auto* label = addLabel(binder, model);
  label->setBuddy(widget);
  return label;
}

/// Makes the list large enough for about ten lines.
void sizeList(QListWidget* list, int columns) {
  const QFontMetrics metrics(list->font());
  list->setMinimumSize(metrics.averageCharWidth() * columns, metrics.lineSpacing() * 11);
}

}  // namespace

ProgressBar::ProgressBar(const memory::Progress& progress) {
  setObjectName(QStringLiteral("progress"));
  setAccessibleName(tr("Progress"));
  changed_ = progress.changed.follow([this, &progress] {
    showIf(this, progress.total() > 0);
    setMaximum(std::max(progress.total(), 1));
    setValue(progress.done());
  });
}

DialogWindow::DialogWindow(platform::EventGate& gate, const platform::Window& form,
                           std::function<void()> askToClose, QWidget* parent)
    : QDialog(parent), binder_(gate), askToClose_(std::move(askToClose)) {
  setObjectName(QString::fromStdString(form.name()));
  binder_.follow(form.changed, [this, &form] { setWindowTitle(titleToScreen(form.caption())); });
}

void DialogWindow::leaveScreen() {
  takeOffScreen(this, binder_.gate());
}

void DialogWindow::reject() {
  if (askToClose_) {
    binder_.gate().enterClosing(askToClose_);
  }
}

DialogWindow* makeApfDialog(memory::ApfForm& form, platform::EventGate& gate, QWidget* parent) {
  auto* dialog = new DialogWindow(
      gate, form.window, [&form] { form.Command4.userClick(); }, parent);
  Binder& binder = dialog->binder();
  auto* list = new QListWidget;
  binder.bindSelection(list, form.List1);
  list->setAccessibleName(dialog->windowTitle());
  sizeList(list, 44);
  auto* number = binder.make<QLineEdit>(form.Text1);
  number->setMaximumWidth(number->fontMetrics().averageCharWidth() * 10);
  auto* caption = addCaption(binder, form.Label1, number);
  caption->setWordWrap(false);
  auto* grid = new QGridLayout(dialog);
  grid->addWidget(list, 0, 0, 6, 2);
  grid->addWidget(addButton(binder, form.Command1), 0, 2);
  grid->addWidget(addButton(binder, form.Command2), 1, 2);
  grid->setRowStretch(3, 1);
  grid->addWidget(addMainButton(binder, form.Command3), 4, 2);
  grid->addWidget(addButton(binder, form.Command4), 5, 2);
  grid->addWidget(caption, 6, 0);
  grid->addWidget(number, 6, 1, Qt::AlignLeft);
  grid->setColumnStretch(1, 1);
  return dialog;
}

DialogWindow* makeBankDialog(memory::BankDialog& form, platform::EventGate& gate, QWidget* parent) {
  auto* dialog = new DialogWindow(
      gate, form.window, [&form] { form.Command2.userClick(); }, parent);
  Binder& binder = dialog->binder();
  auto* list = new QListWidget;
  binder.bindSelection(list, form.List1);
  sizeList(list, 32);
  auto* caption = addCaption(binder, form.Label1, list);
  list->setAccessibleName(caption->text());
  auto* bar = new ProgressBar(form.progress);
  keepRoom(bar);
  auto* grid = new QGridLayout(dialog);
  grid->addWidget(caption, 0, 0);
  grid->addWidget(list, 1, 0, 4, 1);
  grid->addWidget(addMainButton(binder, form.Command1), 1, 1);
  grid->addWidget(addButton(binder, form.Command3), 2, 1);
  grid->setRowStretch(3, 1);
  grid->addWidget(addButton(binder, form.Command2), 4, 1);
  if (platform::CheckBox* option = form.option()) {
    grid->addWidget(binder.make<QCheckBox>(*option), 5, 0, 1, 2);
  }
  grid->addWidget(bar, 6, 0, 1, 2);
  return dialog;
}

DialogWindow* makeAboutDialog(shell::frmAbout& form, platform::EventGate& gate, QWidget* parent) {
  auto* dialog = new DialogWindow(
      gate, form.window, [&form] { form.Command1.userClick(); }, parent);
  Binder& binder = dialog->binder();
  auto* grid = new QGridLayout(dialog);
  grid->setHorizontalSpacing(dialog->fontMetrics().height() * 4 / 3);
  grid->addWidget(makeIcon(4), 0, 0, 7, 1, Qt::AlignTop);
  grid->addWidget(makeLine(QStringLiteral("Tarnvex"), 1.6, true), 0, 1);
  int row = 1;
  for (const platform::Label* label :
       {&form.Label2, &form.Label1, &form.lblScanner, &form.lblSerial, &form.lblFirmware}) {
    auto* line = addLabel(binder, *label);
    line->setWordWrap(false);
    grid->addWidget(line, row++, 1);
  }
  grid->addWidget(addMainButton(binder, form.Command1), row, 1, Qt::AlignRight);
  return dialog;
}

DialogWindow* makeLockoutsDialog(search::frmLockouts& form, platform::EventGate& gate,
                                 QWidget* parent) {
  auto* dialog = new DialogWindow(
      gate, form.window, [&form] { form.userClose(); }, parent);
  Binder& binder = dialog->binder();
  auto* list = new QListWidget;
  binder.bindTicks(list, form.List1);
  list->setAccessibleName(dialog->windowTitle());
  sizeList(list, 32);
  auto* grid = new QGridLayout(dialog);
  grid->addWidget(list, 0, 0, 1, 2);
  grid->addWidget(addCaption(binder, form.Label1, list), 1, 0, 1, 2);
  grid->addWidget(addMainButton(binder, form.Command1), 2, 0);
  grid->addWidget(addButton(binder, form.Command2), 2, 1);
  grid->setRowStretch(0, 1);
  return dialog;
}

DialogWindow* makeSystemTypeDialog(trunking::Form3& form, platform::EventGate& gate,
                                   QWidget* parent) {
  auto* dialog = new DialogWindow(gate, form.window, nullptr, parent);
  Binder& binder = dialog->binder();
  auto* type = binder.make<QComboBox>(form.Combo1);
  auto* base = binder.make<QLineEdit>(form.BFText);
  auto* step = binder.make<QComboBox>(form.Combo2);
  auto* grid = new QGridLayout(dialog);
  grid->addWidget(addCaption(binder, form.Label1, type), 0, 0, 1, 2);
  grid->addWidget(addLabel(binder, form.Label2), 1, 0, 1, 2);
  grid->addWidget(type, 2, 0, 1, 2);
  grid->addWidget(addCaption(binder, form.BFLabel, base), 3, 0);
  grid->addWidget(base, 3, 1);
  grid->addWidget(addCaption(binder, form.OSLabel, step), 4, 0);
  grid->addWidget(step, 4, 1);
  grid->setRowStretch(5, 1);
  grid->addWidget(addMainButton(binder, form.Command1), 6, 0, 1, 2);
  return dialog;
}

namespace {

/// The blocks are in two columns of four, below the preset that fills them and above the bank for
/// which they are saved.
void addFleetBoxes(trunking::Form5& form, QGridLayout* grid, Binder& binder) {
  const auto add = [&](platform::ComboBox& model, const QString& caption, int row, int column) {
    auto* combo = binder.make<QComboBox>(model);
    auto* label = makeLabel(caption);
    label->setBuddy(combo);
    grid->addWidget(label, row, column);
    grid->addWidget(combo, row, column + 1);
  };
  add(form.cboPreset, QObject::tr("Preset:"), 0, 0);
  for (int block = 0; block < trunking::kFleetBlocks; ++block) {
    add(form.cboBlock[static_cast<std::size_t>(block)], QObject::tr("Block %1:").arg(block),
        2 + block % 4, block / 4 * 3);
  }
  add(form.cboBank, QObject::tr("Bank:"), 7, 0);
}

}  // namespace

DialogWindow* makeFleetMapDialog(trunking::Form5& form, platform::EventGate& gate,
                                 QWidget* parent) {
  auto* dialog = new DialogWindow(
      gate, form.window, [&form] { form.Command1.userClick(); }, parent);
  Binder& binder = dialog->binder();
  auto* grid = new QGridLayout(dialog);
  addFleetBoxes(form, grid, binder);
  const int gap = QFontMetrics(dialog->font()).height();
  grid->setRowMinimumHeight(1, gap / 2);
  grid->setRowMinimumHeight(6, gap / 2);
  grid->setColumnMinimumWidth(2, gap);
  grid->addWidget(addMainButton(binder, form.Command2), 7, 3, 1, 2);
  grid->addWidget(addButton(binder, form.Command1), 8, 3, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(4, 1);
  return dialog;
}

}  // namespace tarnvex::desktop
