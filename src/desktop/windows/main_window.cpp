#include "desktop/windows/main_window.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <array>

#include "desktop/ports/text.h"
#include "desktop/windows/accessible_roles.h"
#include "desktop/windows/brief_notice.h"
#include "desktop/windows/dialog_window.h"
#include "desktop/windows/key_tips.h"
#include "desktop/windows/pages.h"
#include "desktop/windows/parts.h"
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
  addTabs();
  addMenus();
  binder_.follow(form_.window.changed,
                 [this] { setWindowTitle(titleToScreen(form_.window.caption())); });
}

void MainWindow::addTabs() {
  setCentralWidget(new QWidget);
  tabs_->setObjectName(QString::fromStdString(form_.SSTab1.name()));
  tabs_->setAccessibleName(tr("Pages"));
  tabs_->setCornerWidget(new RecordingLight(form_.recordingLight()));
  tabs_->tabBar()->setFocusPolicy(Qt::StrongFocus);
  tabs_->tabBar()->installEventFilter(keys_);
}

MainWindow::MainWindow(shell::Form4& form, platform::EventGate& gate, DeviceSlots& devices,
                       Report report)
    : MainWindow(form, gate, std::move(report)) {
  // The wide desk set is above the pages.
  addPanel(form, bc895Layout(), QBoxLayout::TopToBottom);
  addPages(makeOptionsPage(
      {{makeLinkFrame(form.linkControls, form.linkState, devices, binder_)},
       {makeMultiscanFrame(form.multiscan, binder_), makeSwitchesFrame(form, binder_, true)},
       {makeSearchFrame(form.customSearch, binder_)}}));
  addProgress(form.idTransfer.progress);
  // At usual font sizes all pages fit without scrolling.
  const QFontMetrics metrics(font());
  const int width = metrics.averageCharWidth() * 168;
  resize(width, panel_->heightForWidth(width) + metrics.height() * 20);
}

MainWindow::MainWindow(shell::Form2& form, platform::EventGate& gate, DeviceSlots& devices,
                       Report report)
    : MainWindow(form, gate, std::move(report)) {
  trunkedMenu_->addSeparator();
  named(trunkedMenu_->addAction(tr("&Custom Fleet Map..."), this,
                                [&form, &gate] { gate.enter([&form] { form.mnuCustom(); }); }),
        "mnuCustom");
  // The upright hand-held is beside the pages.
  addPanel(form, bc245Layout(), QBoxLayout::LeftToRight);
  addPages(makeOptionsPage(
      {{makeLinkFrame(form.linkControls, form.linkState, devices, binder_),
        makeSwitchesFrame(form, binder_, false)},
       {makeSpeedFrame(form.speed, binder_), makeSearchFrame(form.customSearch, binder_)},
       {makeReceiverFrame(form.receiver, binder_)}}));
  const QFontMetrics metrics(font());
  resize(metrics.averageCharWidth() * 168, metrics.height() * 40);
}

template <class Form>
void MainWindow::addPanel(Form& form, PanelLayout front, QBoxLayout::Direction direction) {
  panel_ = named(new RadioPanel(withTips(std::move(front))), "panel");
  panel_->installEventFilter(keys_);
  panelIsAbove_ = direction == QBoxLayout::TopToBottom;
  // Tab goes the way in which they are added: the panel, the tab strip, the page.
  auto* layout = new QBoxLayout(direction, centralWidget());
  layout->addWidget(panel_);
  layout->addWidget(tabs_, 1);
  // The keyboard controls the radio from the tab strip, so that has the focus at first.
  tabs_->tabBar()->setFocus();
  if (panel_->layoutData().knob) {
    keys_->onPageKey = [panel = panel_](bool up) {
      panel->turnKnob(up ? Qt::RightButton : Qt::LeftButton);
    };
  }
  panelBinding_ = std::make_unique<PanelBinding>(*panel_, form, binder_.gate());
  panelBinding_->follow(form.linkState);
}

void MainWindow::addPages(QWidget* options) {
  tabs_->addTab(makeStationPage(form_, binder_), tr("Station Program"));
  tabs_->addTab(makeTrunkedPage(form_, binder_), tr("Trunked Data"));
  tabs_->addTab(options, tr("Options"));
  tabs_->addTab(makeSearchPage(form_, binder_), tr("Search Results"));
  markReception();
  showTab();
}

void MainWindow::addMenus() {
  addExit(addMenu("mnuFile", tr("&File"), kFileCommands));
  addMenu("mnuConv", tr("&Conventional"), kConventionalCommands);
  trunkedMenu_ = addMenu("mnuTrunked", tr("&Trunked"), kTrunkedCommands);
  addMenu("mnuView", tr("&View"), kViewCommands);
  auto* help = addMenu("mnuHelp", tr("&Help"), {});
  addHelpHere(help);
  addCommands(help, kManualCommands, form_, binder_.gate());
  named(help->addAction(tr("Copy &Report"), this, &MainWindow::copyReport), "copyReport");
  addCommands(help, kAboutCommands, form_, binder_.gate());
}

QMenu* MainWindow::addMenu(const char* name, const QString& caption,
                           std::span<const MenuCommand> commands) {
  auto* menu = named(menuBar()->addMenu(caption), name);
  addCommands(menu, commands, form_, binder_.gate());
  return menu;
}

void MainWindow::addExit(QMenu* menu) {
  auto* exit = named(menu->addAction(tr("E&xit"), this, [this] { close(); }), "mnuExit");
  exit->setMenuRole(QAction::QuitRole);
  // Not every platform has a standard shortcut for it.
  exit->setShortcut(Qt::CTRL | Qt::Key_Q);
}

void MainWindow::addHelpHere(QMenu* menu) {
  static constexpr std::array kPages = {"plan.html", "trunking.html", "connection.html",
                                        "searching.html"};
  auto* here = menu->addAction(tr("Help on This &Page"), this, [this] {
    const auto page = static_cast<std::size_t>(std::max(tabs_->currentIndex(), 0));
    helpWanted.notify(QLatin1String(kPages[std::min(page, kPages.size() - 1)]));
  });
  named(here, "helpHere")->setShortcut(Qt::Key_F1);
}

void MainWindow::markReception() {
  binder_.follow(form_.heardRows.changed, [this, marked = tables()] {
    marked[0]->markRow(form_.heardRows.channel());
    marked[1]->markRow(form_.heardRows.talkgroup());
  });
}

/// Only reads, so it needn't go through the event gate.
void MainWindow::copyReport() {
  if (report_) {
    QGuiApplication::clipboard()->setText(report_());
    tellBriefly(this, tr("The report is on the clipboard. Paste it into your message."));
  }
}

void MainWindow::showTab() {
  binder_.follow(form_.SSTab1.changed, [this] {
    if (tabs_->currentIndex() != form_.SSTab1.tab()) {
      // Otherwise the first control on the page would get the focus.
      tabs_->tabBar()->setFocus();
      tabs_->setCurrentIndex(form_.SSTab1.tab());
    }
  });
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
  takeOffScreen(this, binder_.gate());
}

LeftWindow MainWindow::left() const {
  const QWindow* shown = windowHandle();
  return {(isMaximized() ? normalGeometry() : geometry()).topLeft(),
          shown != nullptr ? shown->frameMargins() : QMargins(), isMaximized()};
}

/// The frame isn't known before the window is on the screen. Its title bar is assumed to be two
/// lines high.
void MainWindow::restorePlace(const WindowMemory& memory, const std::optional<LeftWindow>& before) {
  const auto stored = memory.place();
  const QMargins title(0, fontMetrics().height() * 2, 0, 0);
  const QMargins frame = before && !before->frame.isNull() ? before->frame : title;
  const QPoint corner = before ? before->topLeft : stored ? stored->topLeft() : QPoint();
  const QRect fitted =
      fitToScreens(QRect(corner, stored ? stored->size() : size()), availableScreens(), frame);
  if (before || stored) {
    setGeometry(fitted);
  } else {
    resize(fitted.size());
  }
}

void MainWindow::restore(const WindowMemory& memory, const std::optional<LeftWindow>& before) {
  restorePlace(memory, before);
  if (before ? before->maximised : memory.maximised()) {
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
