#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// A budget of spins: one spin is one look at the port, 40 microseconds on a real line. A test port
/// counts them and takes no time.
struct Spins {
  int left;
};

/// How long one spin lasts on a real port, in microseconds. 72500 spins are 2.9 s, 12500 are 0.5 s,
/// 2000 are 80 ms.
inline constexpr int kSpinMicroseconds = 40;

/// A serial port of the machine, found by its slot (COM 1 to COM 4). Text is bytes, 8 bits, as they
/// stand on the wire. Nothing here throws; an operation that the port refuses in its present state
/// has no effect.
class SerialPort : private NonCopyable {
 public:
  virtual ~SerialPort() = default;

  /// The slot, 1 to 4. Refused while the port is open.
  virtual void setCommPort(int slot) = 0;
  [[nodiscard]] virtual int commPort() const = 0;
  /// Baud rate followed by ",n,8,1"; "9600,n,8,1" at first. Takes effect at once on an open port.
  virtual void setSettings(std::string settings) = 0;
  [[nodiscard]] virtual const std::string& settings() const = 0;

  /// A port whose device is gone stays open in this sense until it is closed: exchanges run into
  /// silence at once.
  [[nodiscard]] virtual bool portOpen() const = 0;
  /// Opens the device of the slot and throws away what was waiting. Gives the description of the
  /// failure for the user, nothing on success. An open port refuses ("Port already open").
  virtual std::optional<std::string> open() = 0;
  virtual void close() = 0;

  /// Bytes waiting; 0 on a closed port.
  [[nodiscard]] virtual std::size_t inBufferCount() = 0;
  /// Throws away what is waiting.
  virtual void discardInput() = 0;
  virtual void output(std::string_view text) = 0;
  /// All bytes waiting, empty if none.
  virtual std::string input() = 0;

  /// Waits until at least `atLeast` bytes wait, and takes the spins this took from `budget`. False
  /// once the budget is used up, and at once when the device is gone or the port closed. The window
  /// stays alive meanwhile, but nothing of the core runs.
  virtual bool waitForInput(std::size_t atLeast, Spins& budget) = 0;
  /// The same without a limit. Also false when the user wants to leave (closes the window, presses
  /// Connect, picks a COM option), so that the program can always be left.
  virtual bool waitForInput(std::size_t atLeast) = 0;
};

/// Makes the serial controls of the windows; each window has its own.
class SerialPorts : private NonCopyable {
 public:
  virtual ~SerialPorts() = default;

  virtual std::unique_ptr<SerialPort> create() = 0;
};

}  // namespace tarnvex::platform
