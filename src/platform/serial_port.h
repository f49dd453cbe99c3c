#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The number of spins that a wait may still take. A spin is one look at the port. It lasts 40
/// microseconds on a real line; a test port counts spins and takes no time.
struct Spins {
  int left;
};

/// How long a spin lasts on a real port, in microseconds. 72500 spins are 2.9 s, 12500 are 0.5 s,
/// 2000 are 80 ms.
inline constexpr int kSpinMicroseconds = 40;

/// Why a port can't be used.
enum class PortTrouble {
  None,
  NoDevice,  ///< the slot has no device
  NotThere,  ///< the slot's device doesn't exist
  NoRight,   ///< the user may not use it
  InUse,     ///< another program has it
  Lost,      ///< it went away while it was open
  Other,
};

/// A serial port, selected by its slot (COM 1 to COM 4). Text is bytes of 8 bits, as they are on
/// the wire. Nothing throws. An operation that the port refuses in its present state has no effect.
class SerialPort : private NonCopyable {
 public:
  virtual ~SerialPort() = default;

  /// The slot, 1 to 4. Refused while the port is open.
  virtual void setCommPort(int slot) = 0;
  [[nodiscard]] virtual int commPort() const = 0;
  /// Baud rate followed by ",n,8,1", initially "9600,n,8,1". Takes effect at once on an open port.
  virtual void setSettings(std::string settings) = 0;
  [[nodiscard]] virtual const std::string& settings() const = 0;

  /// A port whose device is gone counts as open until it is closed. Exchanges on it get no answer,
  /// without waiting.
  [[nodiscard]] virtual bool portOpen() const = 0;
  /// Opens the slot's device and discards what was received there. Returns a description of the
  /// failure for the user, or nothing on success. An open port refuses ("Port already open").
  virtual std::optional<std::string> open() = 0;
  virtual void close() = 0;
  /// Short name of the device that was opened last or couldn't be opened, such as "ttyUSB0". Empty
  /// if there is none.
  [[nodiscard]] virtual std::string deviceName() const { return {}; }
  /// What has gone wrong since the last `open`. `close` doesn't clear a failure to open.
  [[nodiscard]] virtual PortTrouble trouble() const { return PortTrouble::None; }

  /// The number of bytes received and not yet read. 0 on a closed port.
  [[nodiscard]] virtual std::size_t inBufferCount() = 0;
  /// Discards the received bytes.
  virtual void discardInput() = 0;
  virtual void output(std::string_view text) = 0;
  /// Takes all received bytes. Empty if there are none.
  virtual std::string input() = 0;

  /// Waits until at least `atLeast` bytes have been received, and subtracts the spins it took from
  /// `budget`. False when the budget is used up, and at once when the device is gone or the port is
  /// closed. The window stays responsive meanwhile, but no function of the core runs.
  virtual bool waitForInput(std::size_t atLeast, Spins& budget) = 0;
  /// The same without a limit. Also false when the user leaves (closes the window, presses Connect,
  /// picks a COM option), so that a wait can't keep the program from closing.
  virtual bool waitForInput(std::size_t atLeast) = 0;
};

/// Makes a serial port. Each window has its own.
using SerialPortMaker = std::function<std::unique_ptr<SerialPort>()>;

}  // namespace tarnvex::platform
