#include "desktop/windows/main_window.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QVBoxLayout>

#include "desktop/ports/text.h"
#include "desktop/windows/pages.h"

namespace tarnvex::desktop {

MainWindow::MainWindow(shell::MainForm& form, platform::EventGate& gate, const char* name)
    : form_(form), binder_(gate), tabs_(new QTabWidget) {
  setObjectName(QLatin1String(name));
  setCentralWidget(new QWidget);
  auto* column = new QVBoxLayout(centralWidget());
  column->addWidget(tabs_);
  tabs_->setObjectName(QStringLiteral("SSTab1"));
  addMenus();
  const auto showTitle = [this] { setWindowTitle(toScreen(form_.window.caption())); };
  showTitle();
  binder_.keep(form_.window.changed.connect(showTitle));
}

MainWindow::MainWindow(shell::Form4& form, platform::EventGate& gate, DeviceSlots& devices)
    : MainWindow(form, gate, "Form4") {
  auto* panel = new RadioPanel(bc895Layout());
  panelBinding_ = std::make_unique<PanelBinding>(*panel, form, gate);
  setTop(panel);
  addPage(tr("Station Program"), makeStationPage(form, binder_));
  addPage(tr("Trunked Data"), makeTrunkedPage(form, form.Combo1, "Combo1", binder_));
  addPage(tr("Options"),
          makeOptionsPage({makeLinkFrame(form, form.Combo4, "Combo4", devices, binder_),
                           makeMultiscanFrame(form, binder_), makeSwitchesFrame(form, binder_),
                           makeLimitsFrame(form, binder_)}));
  addPage(tr("Search Results"), makeSearchPage(form, binder_));
  showTab();
}

MainWindow::MainWindow(shell::Form2& form, platform::EventGate& gate, DeviceSlots& devices)
    : MainWindow(form, gate, "Form2") {
  addPage(tr("Station Program"), makeStationPage(form, binder_));
  addPage(tr("Trunked Data"), makeTrunkedPage(form, form.Combo4, "Combo4", binder_));
  addPage(tr("Options"),
          makeOptionsPage({makeLinkFrame(form, form.Combo1, "Combo1", devices, binder_),
                           makeSwitchesFrame(form, binder_), makeLimitsFrame(form, binder_)}));
  addPage(tr("Search Results"), makeSearchPage(form, binder_));
  showTab();
}

void MainWindow::addMenus() {
  auto* file = menuBar()->addMenu(tr("&File"));
  file->setObjectName(QStringLiteral("mnuFile"));
  addCommand(file, "mnuNew", tr("&New Frequency File..."), &shell::MainForm::mnuNew);
  addCommand(file, "mnuOpenConv", tr("&Open Frequency File..."), &shell::MainForm::mnuOpenConv);
  addCommand(file, "mnuSaveConv", tr("&Save Frequency File..."), &shell::MainForm::mnuSaveConv);
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
}

void MainWindow::addCommand(QMenu* menu, const char* name, const QString& caption,
                            void (shell::MainForm::*command)()) {
  auto* action = menu->addAction(caption, this, [this, command] {
    binder_.gate().enter([&form = form_, command] { (form.*command)(); });
  });
  action->setObjectName(QLatin1String(name));
}

void MainWindow::setTop(QWidget* panel) {
  auto* column = static_cast<QVBoxLayout*>(centralWidget()->layout());
  panel->setObjectName(QStringLiteral("panel"));
  column->insertWidget(0, panel);
  // All pages fit without scrolling at a usual font size.
  const QFontMetrics metrics(font());
  const int width = metrics.averageCharWidth() * 168;
  resize(width, panel->heightForWidth(width) + metrics.height() * 20);
}

void MainWindow::addPage(const QString& caption, QWidget* page) {
  tabs_->addTab(page, caption);
}

void MainWindow::showTab() {
  const auto show = [this] { tabs_->setCurrentIndex(form_.SSTab1.tab()); };
  show();
  binder_.keep(form_.SSTab1.changed.connect(show));
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { form_.SSTab1.setTab(tab); });
}

void MainWindow::leaveScreen() {
  hide();
  deleteLater();
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
