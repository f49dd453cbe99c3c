#pragma once

#include <memory>
#include <string>
#include <utility>

#include "line_trial/trial_port.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex::trial {

/// A main window's form with its poll on a trial line. Nothing is drawn.
template <class Form>
struct TrialWindow : private test::World {
  TrialWindow(radio::Model model, int baud, std::uint64_t seed)
      : line(model, baud, seed), form(onTrialLine(), outside()) {
    line.loop = &loop;
    state.ModelKey = model == radio::Model::BC895XLT ? "BC895" : "BC245";
    dialogs.whileOpen = [this] { ++notices; };
  }

  /// Runs a tick of the poll. Presses Connect first if the port is closed.
  void tick() {
    if (!form.MSComm1->portOpen()) {
      form.linkControls.Command3.userClick();
    }
    gate.enterTimer(form.Scantimer);
    dialogs.boxes.clear();
  }
  void load() { form.load(); }
  TrialPort& port() { return *port_; }
  [[nodiscard]] int exchanges() const { return switches; }
  [[nodiscard]] std::string mode() const { return state.CurrentMode; }
  [[nodiscard]] bool planChanged() const { return state.MemoryModified; }

  TrialRadio line;
  int notices = 0;

 private:
  shell::Services onTrialLine() {
    services.makePort = [this] {
      auto made = std::make_unique<TrialPort>(line);
      port_ = made.get();
      return made;
    };
    return services;
  }

  TrialPort* port_ = nullptr;

 public:
  Form form;
};

}  // namespace tarnvex::trial
