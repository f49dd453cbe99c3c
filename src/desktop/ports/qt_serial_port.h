#pragma once

#include <QObject>
#include <QSerialPort>

#include "desktop/ports/device_slots.h"
#include "desktop/ports/qt_event_loop.h"
#include "platform/event_gate.h"
#include "platform/serial_port.h"

namespace tarnvex::desktop {

/// A serial port of this machine. Its waits turn the event loop, so the window stays responsive;
/// the user's events are queued in the event gate.
///
/// If the device goes away, it is closed at once, since an unplugged device reports its error again
/// and again. For the core the port stays open, and its exchanges get no answer.
class QtSerialPort : public QObject, public platform::SerialPort {
 public:
  QtSerialPort(QtEventLoop& loop, const platform::EventGate& gate, const DeviceSlots& devices);
  ~QtSerialPort() override;

  void setCommPort(int slot) override;
  [[nodiscard]] int commPort() const override { return slot_; }
  void setSettings(std::string settings) override;
  [[nodiscard]] const std::string& settings() const override { return settings_; }
  [[nodiscard]] bool portOpen() const override { return open_; }
  std::optional<std::string> open() override;
  void close() override;
  [[nodiscard]] std::string deviceName() const override;
  [[nodiscard]] platform::PortTrouble trouble() const override { return trouble_; }
  [[nodiscard]] std::size_t inBufferCount() override;
  void discardInput() override;
  void output(std::string_view text) override;
  std::string input() override;
  bool waitForInput(std::size_t atLeast, platform::Spins& budget) override;
  bool waitForInput(std::size_t atLeast) override;
  [[nodiscard]] bool userLeaves() const override { return gate_.endsWaits(); }

 private:
  [[nodiscard]] bool lost() const { return trouble_ == platform::PortTrouble::Lost; }
  [[nodiscard]] bool usable() const { return open_ && !lost(); }
  [[nodiscard]] bool holds(std::size_t atLeast) { return inBufferCount() >= atLeast; }
  void applySettings();
  void onError(QSerialPort::SerialPortError error);
  void closeLost();
  [[nodiscard]] platform::PortTrouble findTrouble(const QString& device) const;
  [[nodiscard]] std::string describeTrouble(const QString& device) const;

  QtEventLoop& loop_;
  const platform::EventGate& gate_;
  const DeviceSlots& devices_;
  QSerialPort serial_;
  int slot_ = 1;
  std::string settings_ = "9600,n,8,1";
  bool open_ = false;
  platform::PortTrouble trouble_ = platform::PortTrouble::None;
  /// The path of the device that was opened last, with links resolved.
  QString device_;
};

}  // namespace tarnvex::desktop
