#include "desktop/windows/main_window.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QTabBar>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/ports/text.h"
#include "desktop/windows/accessible_roles.h"
#include "desktop/windows/dialog_window.h"
#include "desktop/windows/key_tips.h"
#include "desktop/windows/pages.h"
#include "desktop/windows/recording_light.h"
#include "desktop/windows/window_exit.h"

namespace tarnvex::desktop {

MainWindow::MainWindow(shell::MainForm& form, platform::EventGate& gate, Report report)
    : form_(form),
      keys_(new KeyForwarder(form, gate, this)),
      binder_(gate, keys_),
      report_(std::move(report)),
      tabs_(new QTabWidget) {
  // This comes first: setting a widget's name may already ask for its interface, and Qt keeps that
  // one.
  installAccessibleRoles();
  setObjectName(QString::fromStdString(form.window.name()));
  setCentralWidget(new QWidget);
  auto* layout = new QBoxLayout(QBoxLayout::TopToBottom, centralWidget());
  layout->addWidget(tabs_);
  tabs_->setObjectName(QString::fromStdString(form.SSTab1.name()));
  tabs_->setAccessibleName(tr("Pages"));
  // The keyboard controls the radio from the tab strip, so that has the focus at first.
  tabs_->tabBar()->setFocusPolicy(Qt::StrongFocus);
  tabs_->tabBar()->setFocus();
  tabs_->tabBar()->installEventFilter(keys_);
  tabs_->setCornerWidget(new RecordingLight(form_.recordingLight()));
  addMenus();
  const auto showTitle = [this] { setWindowTitle(titleToScreen(form_.window.caption())); };
  showTitle();
  binder_.keep(form_.window.changed.connect(showTitle));
}

MainWindow::MainWindow(shell::Form4& form, platform::EventGate& gate, DeviceSlots& devices,
                       Report report)
    : MainWindow(form, gate, std::move(report)) {
  auto* panel = new RadioPanel(withTips(bc895Layout()));
  panelBinding_ = std::make_unique<PanelBinding>(*panel, form, gate);
  panelBinding_->follow(form.linkState);
  markReception(form.panel.Channel);
  // The wide desk set is above the pages.
  place(panel, QBoxLayout::TopToBottom);
  addPages(makeOptionsPage({{makeLinkFrame(form.linkControls, form.linkState, devices, binder_)},
                            {makeMultiscanFrame(form.multiscan, binder_)},
                            {makeSwitchesFrame(form, binder_, true)},
                            {makeSearchFrame(form.customSearch, binder_)}}));
  addProgress(form.idTransfer.progress);
  // At usual font sizes all pages fit without scrolling.
  const QFontMetrics metrics(font());
  const int width = metrics.averageCharWidth() * 168;
  resize(width, panel->heightForWidth(width) + metrics.height() * 20);
}

MainWindow::MainWindow(shell::Form2& form, platform::EventGate& gate, DeviceSlots& devices,
                       Report report)
    : MainWindow(form, gate, std::move(report)) {
  auto* panel = new RadioPanel(withTips(bc245Layout()));
  panelBinding_ = std::make_unique<PanelBinding>(*panel, form, gate);
  panelBinding_->follow(form.linkState);
  markReception(form.panel.Channel);
  trunkedMenu_->addSeparator();
  addCommand(trunkedMenu_, "mnuCustom", tr("&Custom Fleet Map..."), [&form] { form.mnuCustom(); });
  // The upright hand-held is beside the pages.
  place(panel, QBoxLayout::LeftToRight);
  addPages(makeOptionsPage(
      {{makeLinkFrame(form.linkControls, form.linkState, devices, binder_),
        makeSwitchesFrame(form, binder_, false)},
       {makeSpeedFrame(form.speed, binder_), makeSearchFrame(form.customSearch, binder_)},
       {makeReceiverFrame(form.receiver, binder_)}}));
  const QFontMetrics metrics(font());
  resize(metrics.averageCharWidth() * 168, metrics.height() * 40);
}

void MainWindow::addPages(QWidget* options) {
  tabs_->addTab(makeStationPage(form_, binder_), tr("Station Program"));
  tabs_->addTab(makeTrunkedPage(form_, binder_), tr("Trunked Data"));
  tabs_->addTab(options, tr("Options"));
  tabs_->addTab(makeSearchPage(form_, binder_), tr("Search Results"));
  showTab();
}

void MainWindow::addMenus() {
  auto* file = menuBar()->addMenu(tr("&File"));
  file->setObjectName(QStringLiteral("mnuFile"));
  addCommand(file, "mnuNew", tr("&New Frequency File..."), &shell::MainForm::mnuNew)
      ->setShortcut(QKeySequence::New);
  addCommand(file, "mnuOpenConv", tr("&Open Frequency File..."), &shell::MainForm::mnuOpenConv)
      ->setShortcut(QKeySequence::Open);
  addCommand(file, "mnuSaveConv", tr("&Save Frequency File..."), &shell::MainForm::mnuSaveConv)
      ->setShortcut(QKeySequence::Save);
  addCommand(file, "mnuOpenBackup", tr("Open &Backup..."), &shell::MainForm::mnuOpenBackup);
  file->addSeparator();
  addCommand(file, "mnuImport", tr("&Import from APF..."), &shell::MainForm::mnuImport);
  addCommand(file, "mnuExport", tr("&Export To APF..."), &shell::MainForm::mnuExport);
  file->addSeparator();
  auto* exit = file->addAction(tr("E&xit"), this, [this] { close(); });
  exit->setObjectName(QStringLiteral("mnuExit"));
  exit->setMenuRole(QAction::QuitRole);
  // Not every platform has a standard shortcut for it.
  exit->setShortcut(Qt::CTRL | Qt::Key_Q);
  auto* conventional = menuBar()->addMenu(tr("&Conventional"));
  conventional->setObjectName(QStringLiteral("mnuConv"));
  addCommand(conventional, "mnuUpload", tr("&Upload To Scanner..."), &shell::MainForm::mnuUpload);
  addCommand(conventional, "mnuDownload", tr("&Download From Scanner..."),
             &shell::MainForm::mnuDownload);
  conventional->addSeparator();
  addCommand(conventional, "mnuReset", tr("&Reset Scanner"), &shell::MainForm::mnuReset);
  trunkedMenu_ = menuBar()->addMenu(tr("&Trunked"));
  trunkedMenu_->setObjectName(QStringLiteral("mnuTrunked"));
  addCommand(trunkedMenu_, "mnuUploadTrunk", tr("&Upload to Scanner..."),
             &shell::MainForm::mnuUploadTrunk);
  addCommand(trunkedMenu_, "mnuOwnloadTrunk", tr("&Download From Scanner..."),
             &shell::MainForm::mnuOwnloadTrunk);
  auto* view = menuBar()->addMenu(tr("&View"));
  view->setObjectName(QStringLiteral("mnuView"));
  addCommand(view, "mnuQV", tr("&Quickview Window"), &shell::MainForm::mnuQV);
  addCommand(view, "mnuReceptions", tr("&Reception Log"), &shell::MainForm::mnuReceptions);
  auto* help = menuBar()->addMenu(tr("&Help"));
  help->setObjectName(QStringLiteral("mnuHelp"));
  auto* here = help->addAction(tr("Help on This &Page"), this, [this] {
    static const std::array kPages = {"plan.html", "trunking.html", "connection.html",
                                      "searching.html"};
    const auto page = static_cast<std::size_t>(std::max(tabs_->currentIndex(), 0));
    helpWanted.notify(QLatin1String(kPages[std::min(page, kPages.size() - 1)]));
  });
  here->setObjectName(QStringLiteral("helpHere"));
  here->setShortcut(Qt::Key_F1);
  addCommand(help, "mnuContents", tr("&Contents"), &shell::MainForm::mnuContents);
  addCommand(help, "mnuSearch", tr("&Search"), &shell::MainForm::mnuSearch);
  help->addSeparator();
  help->addAction(tr("Copy &Report"), this, &MainWindow::copyReport)
      ->setObjectName(QStringLiteral("copyReport"));
  addCommand(help, "mnuAbout", tr("&About..."), &shell::MainForm::mnuAbout);
}

QAction* MainWindow::addCommand(QMenu* menu, const char* name, const QString& caption,
                                void (shell::MainForm::*command)()) {
  return addCommand(menu, name, caption, [&form = form_, command] { (form.*command)(); });
}

QAction* MainWindow::addCommand(QMenu* menu, const char* name, const QString& caption,
                                platform::EventGate::Handler command) {
  auto* action = menu->addAction(
      caption, this, [this, command = std::move(command)] { binder_.gate().enter(command); });
  action->setObjectName(QLatin1String(name));
  return action;
}

/// The panel's channel is "12" or, for the priority channel, "P  12".
void MainWindow::markReception(const platform::Label& channel) {
  const auto mark = [this, &channel] {
    auto* table = static_cast<PlanTable*>(findChild<QWidget*>(QStringLiteral("MSFlexGrid1")));
    if (table != nullptr) {
      const QString number = toScreen(channel.caption()).remove(QLatin1Char('P'));
      table->markRow(channel.visible() ? number.toInt() : 0);
    }
  };
  binder_.keep(channel.changed.connect(mark));
}

/// Only reads, so it needn't go through the event gate.
void MainWindow::copyReport() {
  if (report_) {
    QGuiApplication::clipboard()->setText(report_());
    QToolTip::showText(mapToGlobal(menuBar()->geometry().bottomLeft()),
                       tr("The report is on the clipboard. Paste it into your message."), this);
  }
}

void MainWindow::place(RadioPanel* panel, QBoxLayout::Direction direction) {
  panel->setObjectName(QStringLiteral("panel"));
  panel->installEventFilter(keys_);
  panel_ = panel;
  panelIsAbove_ = direction == QBoxLayout::TopToBottom;
  auto* layout = static_cast<QBoxLayout*>(centralWidget()->layout());
  layout->setDirection(direction);
  layout->insertWidget(0, panel);
  layout->setStretchFactor(tabs_, 1);
}

void MainWindow::showTab() {
  const auto show = [this] {
    if (tabs_->currentIndex() != form_.SSTab1.tab()) {
      // Otherwise the first control on the page would get the focus.
      tabs_->tabBar()->setFocus();
      tabs_->setCurrentIndex(form_.SSTab1.tab());
    }
  };
  show();
  binder_.keep(form_.SSTab1.changed.connect(show));
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { form_.SSTab1.setTab(tab); });
}

void MainWindow::addProgress(const memory::Progress& progress) {
  auto* bar = new ProgressBar(progress);
  const QFontMetrics metrics(bar->font());
  bar->setTextVisible(false);
  bar->setFixedSize(metrics.averageCharWidth() * 30, metrics.height() / 2);
  keepRoom(bar);
  // The bar is vertically centred in the menu bar, which must not become higher.
  auto* corner = new QWidget;
  auto* row = new QHBoxLayout(corner);
  row->setContentsMargins(0, metrics.height() * 2 / 5, metrics.height() / 2, 0);
  row->addWidget(bar);
  menuBar()->setCornerWidget(corner);
}

void MainWindow::leaveScreen() {
  takeOffScreen(this);
}

void MainWindow::restore(const WindowMemory& memory) {
  std::vector<QRect> screens;
  for (const QScreen* screen : QGuiApplication::screens()) {
    screens.push_back(screen->availableGeometry());
  }
  setGeometry(fitToScreens(memory.place().value_or(QRect(pos(), size())), screens));
  if (memory.maximised()) {
    setWindowState(windowState() | Qt::WindowMaximized);
  }
  // The form's load lays out the tables and ends on its own page. The user's page and columns are
  // restored after that.
  binder_.keep(form_.SSTab1.changed.connect([this, memory, first = true]() mutable {
    if (std::exchange(first, false)) {
      QTimer::singleShot(0, this, [this, memory] { restorePages(memory); });
    }
  }));
}

void MainWindow::restorePages(const WindowMemory& memory) {
  for (PlanTable* table : tables()) {
    table->setColumnWidths(memory.columns(table->objectName().toStdString()));
  }
  if (const auto page = memory.page(); page && *page >= 0 && *page < tabs_->count()) {
    tabs_->setCurrentIndex(*page);
  }
}

void MainWindow::remember(WindowMemory& memory) const {
  memory.setMaximised(isMaximized());
  memory.setPlace(isMaximized() ? normalGeometry() : geometry());
  memory.setPage(tabs_->currentIndex());
  for (const PlanTable* table : tables()) {
    memory.setColumns(table->objectName().toStdString(), table->columnWidths());
  }
}

QVector<PlanTable*> MainWindow::tables() const {
  return {static_cast<PlanTable*>(findChild<QWidget*>(QStringLiteral("MSFlexGrid1"))),
          static_cast<PlanTable*>(findChild<QWidget*>(QStringLiteral("MSFlexGrid2")))};
}

/// Limits the height of a panel above the pages, so that these get more than half of the window's
/// height.
void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  constexpr double kPanelShare = 0.46;
  if (panel_ != nullptr && panelIsAbove_) {
    panel_->setMaximumHeight(
        std::max(panel_->minimumSizeHint().height(), static_cast<int>(height() * kPanelShare)));
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  binder_.gate().enterLeaving([&form = form_] { form.requestUnload(); });
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) {
    form_.window.setMinimised(isMinimized());
  }
}

}  // namespace tarnvex::desktop
