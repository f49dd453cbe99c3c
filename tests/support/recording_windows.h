#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "shell/quick_view.h"
#include "shell/window_layer.h"

namespace tarnvex::test {

/// A window layer that draws nothing and logs its calls. It keeps the open forms, so that a test
/// can use their controls.
class RecordingWindows : public shell::WindowLayer {
 public:
  void openSplash(shell::Form1& form) override {
    splash = &form;
    record("openSplash");
  }
  void closeSplash() override {
    splash = nullptr;
    record("closeSplash");
  }
  void openMain(shell::Form4& form) override {
    form4 = &form;
    record("openMain Form4");
  }
  void openMain(shell::Form2& form) override {
    form2 = &form;
    record("openMain Form2");
  }
  void closeMain() override {
    form4 = nullptr;
    form2 = nullptr;
    record("closeMain");
  }
  void showMain(bool shown) override { record(shown ? "showMain" : "hideMain"); }
  void openQuickView(shell::QuickView& form) override { record("openQuickView QuickView", form); }
  void openQuickView(shell::Form9& form) override { record("openQuickView Form9", form); }
  void closeQuickView() override {
    quickView = nullptr;
    record("closeQuickView");
  }
  void openNotice(const std::string& caption, const std::string& text) override {
    record("openNotice " + caption + "|" + text);
  }
  void closeNotice() override { record("closeNotice"); }
  void openDialog(memory::ApfForm& form, bool modal) override { recordDialog(&form, modal); }
  void openDialog(memory::BankDialog& form, bool modal) override { recordDialog(&form, modal); }
  void openDialog(search::frmLockouts& form, bool modal) override { recordDialog(&form, modal); }
  void openDialog(trunking::Form3& form, bool modal) override { recordDialog(&form, modal); }
  void openDialog(trunking::Form5& form, bool modal) override { recordDialog(&form, modal); }
  void openDialog(shell::frmAbout& form, bool modal) override { recordDialog(&form, modal); }
  void openDialog(shell::frmReceptionLog& form, bool modal) override {
    receptionLog = &form;
    recordDialog(&form, modal);
  }
  void showHelp(shell::HelpView view) override {
    record(view == shell::HelpView::Contents ? "showHelp contents" : "showHelp search");
  }
  void closeDialog(const void* form) override {
    record("closeDialog");
    std::erase(dialogs, form);
  }
  void raiseDialog(const void* /*form*/) override { record("raiseDialog"); }
  void rememberPlaces() override {}
  void quit() override { record("quit"); }

  std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
  /// Runs at every call, after it has been logged.
  std::function<void(const std::string& call)> onCall;
  shell::Form1* splash = nullptr;
  shell::Form4* form4 = nullptr;
  shell::Form2* form2 = nullptr;
  shell::QuickViewForm* quickView = nullptr;
  shell::frmReceptionLog* receptionLog = nullptr;
  /// The sizes of the screen and of the small window, in twips.
  static constexpr shell::Twips kScreen{15360, 9000};
  static constexpr shell::Twips kSmallWindow{3000, 1200};
  /// The forms whose dialogs are open, in the order of opening.
  std::vector<void*> dialogs;

 private:
  void recordDialog(void* form, bool modal) {
    dialogs.push_back(form);
    record(modal ? "openDialog modal" : "openDialog");
  }
  void record(const char* call, shell::QuickViewForm& form) {
    quickView = &form;
    form.load(kScreen, kSmallWindow);
    record(call);
  }
  void record(std::string call) {
    calls.push_back(std::move(call));
    if (onCall) {
      onCall(calls.back());
    }
  }
};

}  // namespace tarnvex::test
