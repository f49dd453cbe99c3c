#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/world.h"

namespace tarnvex::test {

inline const Box kSilence{
    "Your scanner is not responding. Please check your connections and verify that you have "
    "selected the correct COM port, and that the scanner is in Remote mode.",
    "Scanner Not Responding", 48};

/// A link with the open port of a main window, whose poll is running.
struct LinkRig : testing::Test, World {
  std::unique_ptr<platform::SerialPort> port = makePort();
  platform::Timer poll{25};

  LinkRig() {
    link.attachBc895({port.get(), &poll});
    connect();
  }
  /// Bytes on their way are lost with the old connection.
  void connect() {
    port->close();
    port->open();
    poll.setEnabled(true);
    radio.log.clear();
  }
  std::string send(const std::string& transcript) { return send(script(transcript)[0]); }
  std::string send(const Exchange& exchange) {
    radio.expect({exchange});
    return link.SendCommand(exchange.command);
  }
  std::string query(std::vector<Piece> answer) {
    radio.expect({{"SS", std::move(answer)}});
    return link.QuerySearchSkips();
  }
  /// Checks the state after a failure: one message, the poll stopped, the port closed.
  void expectReported(int boxes) {
    EXPECT_EQ(dialogs.takeBoxes(), std::vector<Box>(static_cast<std::size_t>(boxes), kSilence));
    EXPECT_EQ(poll.enabled(), boxes == 0);
    EXPECT_EQ(port->portOpen(), boxes == 0);
  }
};

}  // namespace tarnvex::test
