#pragma once

#include <QSocketNotifier>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>

#include "radio/pseudo_terminal.h"

namespace tarnvex::test {

/// The radio's end of a serial line, controlled by the test: a pseudo terminal under a name that
/// stays the same.
class TestLine {
 public:
  TestLine() : link_(path()) { plugIn(); }

  [[nodiscard]] std::string path() const { return folder_.filePath("radio").toStdString(); }

  void plugIn() {
    terminal_ = std::make_unique<radio::PseudoTerminal>(9600);
    link_.pointTo(terminal_->path());
    notifier_ = std::make_unique<QSocketNotifier>(terminal_->fd(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { receive(); });
  }
  void unplug() {
    notifier_.reset();
    link_.remove();
    terminal_.reset();
  }
  void send(const std::string& bytes) { terminal_->write(bytes); }
  [[nodiscard]] int baud() const { return terminal_->baud().value_or(0); }

  /// Everything that has been received, including carriage returns.
  std::string received;
  /// Runs after bytes have been received. May unplug the line.
  std::function<void()> onReceived;

 private:
  void receive() {
    received += terminal_->read();
    if (onReceived) {
      // Queued, since `unplug` destroys the notifier, which must not be within its signal then.
      QMetaObject::invokeMethod(
          &context_, [this] { onReceived(); }, Qt::QueuedConnection);
    }
  }

  QTemporaryDir folder_;
  radio::StableLink link_;
  std::unique_ptr<radio::PseudoTerminal> terminal_;
  std::unique_ptr<QSocketNotifier> notifier_;
  QObject context_;
};

}  // namespace tarnvex::test
