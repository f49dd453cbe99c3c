#include "desktop/windows/qt_windows.h"

#include <QShortcut>
#include <QTimer>
#include <QWindow>
#include <utility>

#include "desktop/ports/text.h"
#include "desktop/reception_log/reception_window.h"
#include "desktop/windows/notices.h"

namespace tarnvex::desktop {
namespace {

QString helpPageOf(const QString& dialog) {
  static const QMap<QString, QString> kPages = {
      {"frmUpload", "transfers.html"},   {"frmDownload", "transfers.html"},
      {"frmUploadtrs", "trunking.html"}, {"frmDownloadtrs", "trunking.html"},
      {"Form3", "trunking.html"},        {"Form5", "trunking.html"},
      {"Form7", "files.html"},           {"Form8", "files.html"},
      {"frmLockouts", "searching.html"}, {"frmReceptionLog", "receptions.html"},
  };
  return kPages.value(dialog, QStringLiteral("index.html"));
}

}  // namespace

void QtWindows::removeAll() {
  delete splash_;
  delete notice_;
  delete quickView_;
  delete main_;
  delete help_;
}

void QtWindows::openSplash(shell::Form1& form) {
  splash_ = makeSplash();
  splash_->show();
  splashTimer_ = std::make_unique<TimerDriver>(form.Timer1, gate_);
}

void QtWindows::closeSplash() {
  if (splash_) {
    splash_->hide();
    splash_->deleteLater();
  }
}

void QtWindows::openMain(shell::Form4& form) {
  driveTimers(form, form.multiscan.timer);
  present(new MainWindow(form, gate_, devices_, report_), "BC895");
}

void QtWindows::openMain(shell::Form2& form) {
  driveTimers(form, form.speed.timer);
  present(new MainWindow(form, gate_, devices_, report_), "BC245");
}

void QtWindows::driveTimers(shell::MainForm& form, platform::Timer& rotation) {
  for (platform::Timer* timer : {&form.Scantimer, &rotation, &form.recording.lightTimer}) {
    timers_.push_back(std::make_unique<TimerDriver>(*timer, gate_));
  }
}

void QtWindows::present(MainWindow* window, const char* section) {
  main_ = window;
  section_ = section;
  const WindowMemory memory(settings_, section_);
  window->restore(memory, std::exchange(left_, std::nullopt));
  helpWanted_ = window->helpWanted.connect([this](const QString& page) { showHelpPage(page); });
  window->show();
}

void QtWindows::rememberPlaces() {
  if (main_) {
    WindowMemory memory(settings_, section_);
    main_->remember(memory);
  }
}

void QtWindows::closeMain() {
  timers_.clear();
  rememberPlaces();
  if (main_) {
    left_ = main_->left();
    main_->leaveScreen();
    main_.clear();
  }
}

void QtWindows::showMain(bool shown) {
  if (!main_) {
    return;
  }
  // A window manager would place a window that is shown again like a new one, unless it has a
  // position.
  if (shown && main_->windowHandle() != nullptr) {
    main_->windowHandle()->setPosition(main_->geometry().topLeft());
  }
  main_->setVisible(shown);
}

void QtWindows::openQuickView(shell::QuickView& form) {
  quickView_ = new QuickViewWindow(form, bc895Layout(), gate_);
  showQuickView();
}

void QtWindows::openQuickView(shell::Form9& form) {
  quickView_ = new QuickViewWindow(form, bc245Layout(), gate_);
  showQuickView();
}

void QtWindows::showQuickView() {
  if (const auto size = WindowMemory(settings_, section_).quickViewSize()) {
    quickView_->resize(*size);
  }
  if (main_) {
    quickView_->follow(main_->linkState());
    quickView_->showRecording(main_->recordingLight());
  }
  quickView_->present();
}

void QtWindows::closeQuickView() {
  if (quickView_) {
    WindowMemory(settings_, section_).setQuickViewSize(quickView_->size());
    quickView_->leaveScreen();
    quickView_.clear();
  }
}

void QtWindows::openNotice(const std::string& caption, const std::string& text) {
  delete notice_;
  notice_ = makeNotice(toScreen(caption), toScreen(text));
  notice_->show();
}

/// Deletes the notice at once, since a second switch may follow before the event loop would delete
/// it. No event of the notice can be on the stack.
void QtWindows::closeNotice() {
  delete notice_;
}

void QtWindows::openDialog(memory::ApfForm& form, bool modal) {
  presentDialog(&form, makeApfDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(memory::BankDialog& form, bool modal) {
  presentDialog(&form, makeBankDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(search::frmLockouts& form, bool modal) {
  presentDialog(&form, makeLockoutsDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(trunking::Form3& form, bool modal) {
  presentDialog(&form, makeSystemTypeDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(trunking::Form5& form, bool modal) {
  presentDialog(&form, makeFleetMapDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(shell::frmAbout& form, bool modal) {
  presentDialog(&form, makeAboutDialog(form, gate_, dialogParent()), modal);
}

void QtWindows::openDialog(shell::frmReceptionLog& form, bool modal) {
  presentDialog(&form, new ReceptionWindow(form, gate_, dialogParent()), modal);
}

QWidget* QtWindows::dialogParent() const {
  for (const auto& [form, dialog] : dialogs_) {
    if (dialog && dialog->isModal()) {
      return dialog;
    }
  }
  return main_;
}

void QtWindows::presentDialog(const void* form, DialogWindow* dialog, bool modal) {
  dialogs_[form] = dialog;
  auto* helpKey = new QShortcut(Qt::Key_F1, dialog);
  QObject::connect(helpKey, &QShortcut::activated, dialog,
                   [this, dialog] { showHelpPage(helpPageOf(dialog->objectName())); });
  if (!modal) {
    addExitKey(dialog);
    QObject::connect(new QShortcut(Qt::CTRL | Qt::Key_W, dialog), &QShortcut::activated, dialog,
                     &QDialog::reject);
  }
  // The manual stays usable meanwhile.
  dialog->setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);
  dialog->show();
}

/// The main window's key works in this window, too. Not from within the key's event, since the end
/// of the program deletes the window.
void QtWindows::addExitKey(QWidget* window) {
  QObject::connect(new QShortcut(Qt::CTRL | Qt::Key_Q, window), &QShortcut::activated, window,
                   [this] {
                     if (main_) {
                       QTimer::singleShot(0, main_, &QWidget::close);
                     }
                   });
}

void QtWindows::closeDialog(const void* form) {
  const auto dialog = dialogs_.find(form);
  if (dialog == dialogs_.end()) {
    return;
  }
  if (dialog->second) {
    dialog->second->leaveScreen();
  }
  dialogs_.erase(dialog);
}

void QtWindows::raiseDialog(const void* form) {
  if (const auto dialog = dialogs_.find(form); dialog != dialogs_.end() && dialog->second) {
    dialog->second->raise();
    dialog->second->activateWindow();
  }
}

HelpWindow& QtWindows::help() {
  if (!help_) {
    help_ = new HelpWindow;
    help_->setAttribute(Qt::WA_DeleteOnClose);
    addExitKey(help_);
  }
  return *help_;
}

void QtWindows::showHelp(shell::HelpView view) {
  help().present(view);
}

void QtWindows::showHelpPage(const QString& page) {
  help().present(shell::HelpView::Contents);
  help().showPage(page);
}

void QtWindows::quit() {
  delete help_;
  if (main_) {
    main_->hide();
  }
  loop_.leave();
}

}  // namespace tarnvex::desktop
