#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <typeindex>
#include <utility>
#include <vector>

#include "platform/event_gate.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "shell/window_layer.h"

namespace tarnvex::shell {

/// The dialogs of a main window. A dialog is created when it is shown, stays on the screen until it
/// notifies `closed`, and is destroyed once the core's stack is empty. There is only one of each
/// kind at a time: showing it again brings it to the front.
class DialogHost : private platform::NonCopyable {
 public:
  DialogHost(platform::EventGate& gate, WindowLayer& windows) : gate_(gate), windows_(windows) {}
  ~DialogHost() { closeAll(); }

  /// Shows the dialog that `make` returns, unless one of its kind is already open. `make` returns a
  /// shared pointer to the form, which may own more than the form. `load` runs before the dialog is
  /// on the screen. It may ask the user something; if the dialog is closed meanwhile, it isn't
  /// shown. Returns the new form, or null.
  template <class Form, class Make>
  Form* show(Make make, bool modal, const std::function<void(Form&)>& load = {}) {
    if (leaving_) {
      return nullptr;
    }
    const auto shown = std::ranges::find(open_, std::type_index(typeid(Form)), &Open::kind);
    if (shown != open_.end()) {
      windows_.raiseDialog(shown->form.get());
      return nullptr;
    }
    const std::shared_ptr<Form> form = make();
    open_.push_back({typeid(Form), form, {}});
    open_.back().closed = form->closed.connect(
        [this, dialog = static_cast<const void*>(form.get())] { close(dialog); });
    if (load) {
      load(*form);
    }
    if (!isOpen(form.get())) {
      return nullptr;
    }
    windows_.openDialog(*form, modal);
    return form.get();
  }

  /// Shows a form that the caller owns. Returns when the form has notified `closed` or the program
  /// has ended.
  template <class Form>
  void showAndWait(Form& form) {
    bool done = false;
    const auto closed = form.closed.connect([&done] { done = true; });
    windows_.openDialog(form, true);
    gate_.waitUntil([&done] { return done; });
    windows_.closeDialog(&form);
  }

  /// The main window is closing: its dialogs go, and none opens any more.
  void leave() {
    leaving_ = true;
    closeAll();
  }

 private:
  void closeAll() {
    while (!open_.empty()) {
      close(open_.back().form.get());
    }
  }

  /// A dialog on the screen or being loaded.
  struct Open {
    std::type_index kind;
    std::shared_ptr<void> form;
    platform::Connection closed;
  };

  [[nodiscard]] bool isOpen(const void* form) const {
    return std::ranges::any_of(open_, [&](const Open& open) { return open.form.get() == form; });
  }

  void close(const void* form) {
    const auto dialog =
        std::ranges::find(open_, form, [](const Open& open) { return open.form.get(); });
    if (dialog == open_.end()) {
      return;
    }
    windows_.closeDialog(form);
    gate_.whenIdle([kept = std::move(dialog->form)] {});
    open_.erase(dialog);
  }

  platform::EventGate& gate_;
  WindowLayer& windows_;
  std::vector<Open> open_;
  bool leaving_ = false;
};

}  // namespace tarnvex::shell
