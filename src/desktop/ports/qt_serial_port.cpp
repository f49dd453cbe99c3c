#include "desktop/ports/qt_serial_port.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <chrono>

#include "platform/convert.h"

namespace tarnvex::desktop {
namespace {

using platform::PortTrouble;
using std::chrono::microseconds;
using std::chrono::nanoseconds;

constexpr microseconds kSpin{platform::kSpinMicroseconds};

std::string text(const QString& message) {
  return message.toStdString();
}

}  // namespace

QtSerialPort::QtSerialPort(QtEventLoop& loop, const platform::EventGate& gate,
                           const DeviceSlots& devices)
    : loop_(loop), gate_(gate), devices_(devices) {
  connect(&serial_, &QSerialPort::errorOccurred, this, &QtSerialPort::onError);
}

QtSerialPort::~QtSerialPort() {
  serial_.disconnect(this);
}

void QtSerialPort::setCommPort(int slot) {
  if (!open_ && slot >= 1 && slot <= DeviceSlots::kSlots) {
    slot_ = slot;
  }
}

void QtSerialPort::setSettings(std::string settings) {
  settings_ = std::move(settings);
  if (usable()) {
    applySettings();
  }
}

void QtSerialPort::applySettings() {
  const auto rate = platform::toReal(settings_.substr(0, settings_.find(',')));
  if (rate && *rate >= 1 && *rate <= 4000000) {
    serial_.setBaudRate(static_cast<qint32>(*rate));
  }
}

std::optional<std::string> QtSerialPort::open() {
  if (open_) {
    return "Port already open";
  }
  const QString device = devices_.device(slot_);
  const QString resolved = QFileInfo(device).canonicalFilePath();
  device_ = resolved.isEmpty() ? device : resolved;
  serial_.setPortName(device_);
  applySettings();
  if (device.isEmpty() || !serial_.open(QIODevice::ReadWrite)) {
    trouble_ = findTrouble(device);
    return describeTrouble(device);
  }
  serial_.clear();
  open_ = true;
  trouble_ = PortTrouble::None;
  return std::nullopt;
}

PortTrouble QtSerialPort::findTrouble(const QString& device) const {
  const QFileInfo file(device);
  if (device.isEmpty()) {
    return PortTrouble::NoDevice;
  }
  if (!file.exists()) {
    return PortTrouble::NotThere;
  }
  if (!file.isReadable() || !file.isWritable()) {
    return PortTrouble::NoRight;
  }
  return serial_.error() == QSerialPort::PermissionError ? PortTrouble::InUse : PortTrouble::Other;
}

std::string QtSerialPort::describeTrouble(const QString& device) const {
  switch (trouble_) {
    case PortTrouble::NoDevice:
      return "No serial device was found for COM " + std::to_string(slot_) + ".";
    case PortTrouble::NotThere:
      return text(QStringLiteral("%1 does not exist. Is the adapter plugged in?").arg(device));
    case PortTrouble::NoRight:
      return text(
          QStringLiteral("You don't have permission to use %1. On most systems the members of "
                         "the group \"dialout\" have it.")
              .arg(device));
    case PortTrouble::InUse:
      return text(QStringLiteral("%1 is in use by another program.").arg(device));
    default:
      return text(QStringLiteral("%1 can't be opened: %2.").arg(device, serial_.errorString()));
  }
}

std::string QtSerialPort::deviceName() const {
  const QString folder = QStringLiteral("/dev/");
  return text(device_.startsWith(folder) ? device_.mid(folder.size())
                                         : QFileInfo(device_).fileName());
}

void QtSerialPort::close() {
  open_ = false;
  if (lost()) {
    trouble_ = PortTrouble::None;
  }
  serial_.close();
}

std::size_t QtSerialPort::inBufferCount() {
  return usable() ? static_cast<std::size_t>(serial_.bytesAvailable()) : 0;
}

void QtSerialPort::discardInput() {
  if (usable()) {
    serial_.clear(QSerialPort::Input);
  }
}

void QtSerialPort::output(std::string_view text) {
  if (usable()) {
    serial_.write(text.data(), static_cast<qint64>(text.size()));
    serial_.flush();
  }
}

std::string QtSerialPort::input() {
  return usable() ? serial_.readAll().toStdString() : std::string();
}

bool QtSerialPort::waitForInput(std::size_t atLeast, platform::Spins& budget) {
  if (holds(atLeast)) {
    return true;
  }
  if (!usable() || budget.left <= 0) {
    return false;
  }
  const QDeadlineTimer deadline(budget.left * kSpin, Qt::PreciseTimer);
  // For a quick answer, turning the event loop would cost too much.
  loop_.waitOnDevice(serial_);
  loop_.waitUntil([&] { return holds(atLeast) || !usable(); }, deadline);
  const auto left = nanoseconds(deadline.remainingTimeNSecs());
  budget.left = static_cast<int>(left / kSpin);
  return holds(atLeast);
}

bool QtSerialPort::waitForInput(std::size_t atLeast) {
  loop_.waitUntil([&] { return holds(atLeast) || !usable() || gate_.endsWaits(); },
                  QDeadlineTimer(QDeadlineTimer::Forever));
  return holds(atLeast);
}

void QtSerialPort::onError(QSerialPort::SerialPortError error) {
  // These errors don't mean that the device is gone. For example, a pseudo terminal has no modem
  // lines.
  if (!usable() || error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
      error == QSerialPort::UnsupportedOperationError) {
    return;
  }
  trouble_ = PortTrouble::Lost;
  // The port must not be closed within its own signal.
  QMetaObject::invokeMethod(this, &QtSerialPort::closeLost, Qt::QueuedConnection);
}

void QtSerialPort::closeLost() {
  if (lost()) {
    serial_.close();
  }
}

}  // namespace tarnvex::desktop
