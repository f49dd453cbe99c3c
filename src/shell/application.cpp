#include "shell/application.h"

namespace tarnvex::shell {

Application::Application(const Services& services, WindowLayer& windows)
    : services_(services), windows_(windows) {}

void Application::start() {
  splash_ = std::make_unique<Form1>(services_, [this] {
    openMain();
    windows_.closeSplash();
  });
  windows_.openSplash(*splash_);
}

void Application::openMain() {
  const MainFormOutside outside{[this] { switchScanner(); }, [this] { end(); }, windows_};
  const auto open = [this](auto form) {
    auto& opened = *form;
    main_ = std::move(form);
    windows_.openMain(opened);
    opened.load();
  };
  if (services_.state.ModelKey == "BC245") {
    open(std::make_unique<Form2>(services_, outside));
  } else {
    open(std::make_unique<Form4>(services_, outside));
  }
}

void Application::switchScanner() {
  services_.state.SwitchingScanners = true;
  main_->MSComm1->close();
  main_->Scantimer.setEnabled(false);
  windows_.openNotice("Switch Scanners", "One Moment... Switching to the " +
                                             services_.state.ScannerName + ". Please Wait");
  services_.dialogs.setBusyPointer(true);
  services_.gate.yield();
  // The user may have closed the program meanwhile.
  if (services_.gate.ended()) {
    services_.dialogs.setBusyPointer(false);
    return;
  }
  main_->unload();
  services_.gate.dropUserEvents();
  windows_.closeMain();
  retireMain();
  openMain();
  windows_.closeNotice();
  services_.dialogs.setBusyPointer(false);
}

void Application::retireMain() {
  retired_.push_back(std::move(main_));
  services_.gate.whenIdle([this] { retired_.clear(); });
}

void Application::end() {
  windows_.rememberPlaces();
  services_.gate.runMessages();
  services_.gate.end();
  windows_.quit();
}

}  // namespace tarnvex::shell
