#include "desktop/windows/main_window.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QTabBar>
#include <QToolTip>
#include <QVBoxLayout>

#include "desktop/ports/text.h"
#include "desktop/windows/dialog_window.h"
#include "desktop/windows/pages.h"
#include "desktop/windows/window_exit.h"

namespace tarnvex::desktop {

MainWindow::MainWindow(shell::MainForm& form, platform::EventGate& gate, Report report)
    : form_(form),
      keys_(new KeyForwarder(form, gate, this)),
      binder_(gate, keys_),
      report_(std::move(report)),
      tabs_(new QTabWidget) {
  setObjectName(QString::fromStdString(form.window.name()));
  setCentralWidget(new QWidget);
  auto* layout = new QBoxLayout(QBoxLayout::TopToBottom, centralWidget());
  layout->addWidget(tabs_);
  tabs_->setObjectName(QString::fromStdString(form.SSTab1.name()));
  // The keyboard drives the radio from the tab strip, so that is where the focus begins.
  tabs_->tabBar()->setFocusPolicy(Qt::StrongFocus);
  tabs_->tabBar()->setFocus();
  tabs_->tabBar()->installEventFilter(keys_);
  addMenus();
  const auto showTitle = [this] { setWindowTitle(titleToScreen(form_.window.caption())); };
  showTitle();
  binder_.keep(form_.window.changed.connect(showTitle));
}

MainWindow::MainWindow(shell::Form4& form, platform::EventGate& gate, DeviceSlots& devices,
                       Report report)
    : MainWindow(form, gate, std::move(report)) {
  auto* panel = new RadioPanel(bc895Layout());
  panelBinding_ = std::make_unique<PanelBinding>(*panel, form, gate);
  panelBinding_->follow(form.linkState);
  // A wide set stands above the pages.
  place(panel, QBoxLayout::TopToBottom);
  addPages(makeOptionsPage({{makeLinkFrame(form.linkControls, form.linkState, devices, binder_)},
                            {makeMultiscanFrame(form.multiscan, binder_)},
                            {makeSwitchesFrame(form, binder_, true)},
                            {makeSearchFrame(form.customSearch, binder_)}}));
  addProgress(form.idTransfer.progress);
  // All pages fit without scrolling at a usual font size.
  const QFontMetrics metrics(font());
  const int width = metrics.averageCharWidth() * 168;
  resize(width, panel->heightForWidth(width) + metrics.height() * 20);
}

MainWindow::MainWindow(shell::Form2& form, platform::EventGate& gate, DeviceSlots& devices,
                       Report report)
    : MainWindow(form, gate, std::move(report)) {
  auto* panel = new RadioPanel(bc245Layout());
  panelBinding_ = std::make_unique<PanelBinding>(*panel, form, gate);
  panelBinding_->follow(form.linkState);
  trunkedMenu_->addSeparator();
  addCommand(trunkedMenu_, "mnuCustom", tr("&Custom Fleet Map..."), [&form] { form.mnuCustom(); });
  // An upright hand-held stands beside them.
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
  addCommand(file, "mnuNew", tr("&New Frequency File..."), &shell::MainForm::mnuNew);
  addCommand(file, "mnuOpenConv", tr("&Open Frequency File..."), &shell::MainForm::mnuOpenConv);
  addCommand(file, "mnuSaveConv", tr("&Save Frequency File..."), &shell::MainForm::mnuSaveConv);
  addCommand(file, "mnuOpenBackup", tr("Open &Backup..."), &shell::MainForm::mnuOpenBackup);
  file->addSeparator();
  addCommand(file, "mnuImport", tr("&Import from APF..."), &shell::MainForm::mnuImport);
  addCommand(file, "mnuExport", tr("&Export To APF..."), &shell::MainForm::mnuExport);
  file->addSeparator();
  auto* exit = file->addAction(tr("E&xit"), this, [this] { close(); });
  exit->setObjectName(QStringLiteral("mnuExit"));
  exit->setMenuRole(QAction::QuitRole);
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
  addCommand(help, "mnuContents", tr("&Contents"), &shell::MainForm::mnuContents)
      ->setShortcut(QKeySequence::HelpContents);
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

/// Only reads, so it needs no turn at the gate.
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
  auto* layout = static_cast<QBoxLayout*>(centralWidget()->layout());
  layout->setDirection(direction);
  layout->insertWidget(0, panel);
  layout->setStretchFactor(tabs_, 1);
}

void MainWindow::showTab() {
  const auto show = [this] {
    if (tabs_->currentIndex() != form_.SSTab1.tab()) {
      // Not into whatever control stands first on the page.
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
  // The bar stands in the middle of the menu bar's height, which it must not raise.
  auto* corner = new QWidget;
  auto* row = new QHBoxLayout(corner);
  row->setContentsMargins(0, metrics.height() * 2 / 5, metrics.height() / 2, 0);
  row->addWidget(bar);
  menuBar()->setCornerWidget(corner);
}

void MainWindow::leaveScreen() {
  takeOffScreen(this);
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
