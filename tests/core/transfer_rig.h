#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "memory/bank_dialog.h"
#include "memory/channel_memory.h"
#include "support/world.h"
#include "trunking/system_type_form.h"

namespace tarnvex::test {

using Lines = std::vector<std::string>;

/// The parts of a main window that a transfer uses. The port is open and the poll is running.
struct TransferRig : OpenLine {
  /// The radio at the other end.
  enum class Model { Bc895, Bc245 };

  explicit TransferRig(Model model, std::unique_ptr<platform::SerialPort> line = nullptr)
      : OpenLine(std::move(line)), bc245(model == Model::Bc245) {
    state.ModelKey = bc245 ? "BC245" : "BC895";
    radio.answer = [this](std::string_view command) -> std::vector<Piece> {
      if (answered-- <= 0) {
        return {};
      }
      const auto found = replies.find(command);
      return {{(found == replies.end() ? "OK" : found->second) + "\r"}};
    };
    Scantimer.setEnabled(true);
    Scantimer.onTick = [this] { ++ticks; };
    memory.layOut();
  }

  memory::TransferWindow window() {
    const auto& model = bc245 ? link::bc245Model() : link::bc895Model();
    return {model, channels,  talkgroups,       Frequency,         Channel,
            mode,  Scantimer, memory.history(), [this] { ++kept; }};
  }
  memory::TransferOutside outside() { return {state, link, gate, dialogs, clock}; }

  /// Writes columns 1 to 7 of a channel.
  void setRow(int row, const Lines& cells) {
    for (int col = 1; col < channels.cols(); ++col) {
      channels.setTextMatrix(row, col, cells[static_cast<std::size_t>(col - 1)]);
    }
  }
  [[nodiscard]] Lines row(int row) const {
    Lines cells;
    for (int col = 1; col < channels.cols(); ++col) {
      cells.push_back(channels.textMatrix(row, col));
    }
    return cells;
  }

  void run(memory::BankDialog& dialog, const std::vector<int>& banks) {
    closing = dialog.closed.connect([this] { ++closings; });
    for (const int bank : banks) {
      dialog.List1.setSelected(bank, true);
    }
    dialog.Command1.userClick();
  }
  /// Asks for a system type as a main window does. `answer` acts as the user.
  template <class Answer>
  void askSystemType(Answer answer) {
    trunking::Form3 form({Channel, channels, state, link, gate, dialogs});
    form.load();
    answer(form);
  }
  /// The user closes the program.
  void end() {
    port->close();
    gate.end();
  }
  void endAtTurn(int nth) {
    loop.onTurn(nth, [this] { gate.enter([this] { end(); }); });
  }

  bool bc245;
  platform::Table channels{"channels", 301, 8};
  platform::Table talkgroups{"talkgroups", 1001, 4};
  platform::TabStrip tabs{"tabs"};
  memory::ChannelMemory memory{{channels, talkgroups, tabs},
                               state,
                               dialogs,
                               bc245 ? link::bc245Model() : link::bc895Model(),
                               [](const std::string&) {}};
  platform::Label Frequency{"Frequency", "Scanning"};
  platform::Label Channel{"Channel"};
  platform::Label mode{"mode", "MD00", false};
  int ticks = 0;
  int closings = 0;
  /// Backups of the plan.
  int kept = 0;
  platform::Connection closing;
  /// The replies to commands. All others are answered with "OK".
  std::map<std::string, std::string, std::less<>> replies;
  /// The number of commands that are answered before the radio falls silent.
  int answered = 1'000'000;
};

/// The message when a radio has fallen silent.
inline const Box kSilenceBox{
    "Your scanner is not responding. Please check your connections and verify that you have "
    "selected the correct COM port, and that the scanner is in Remote mode.",
    "Scanner Not Responding", 48};

}  // namespace tarnvex::test
