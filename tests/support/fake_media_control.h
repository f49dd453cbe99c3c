#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/media_control.h"

namespace tarnvex::test {

/// Media controls that only log their calls, all into one list: "file /program/…", "Open", "Record"
/// and so on.
class FakeMediaControls : private platform::NonCopyable {
 public:
  std::unique_ptr<platform::MediaControl> create() { return std::make_unique<Control>(*this); }

  std::vector<std::string> takeLog() { return std::exchange(log, {}); }

  std::vector<std::string> log;
  /// The error of a recording.
  std::string error;
  /// Whether the sound reaches the file.
  bool recording = true;
  /// The name of the recorded file.
  std::string saved;
  /// Who has asked whether there is any sound.
  std::vector<platform::MediaControl::Told> looks;

 private:
  class Control : public platform::MediaControl {
   public:
    explicit Control(FakeMediaControls& owner) : owner_(owner) {}
    void setFileName(const std::string& directory, const std::string& name) override {
      owner_.log.push_back("file " + directory + "/" + name);
    }
    void command(platform::MediaCommand command) override {
      static constexpr const char* kNames[] = {"Open", "Record", "Stop", "Save", "Close"};
      owner_.log.emplace_back(kNames[static_cast<int>(command)]);
    }
    [[nodiscard]] std::string errorMessage() const override { return owner_.error; }
    [[nodiscard]] bool recording() const override { return owner_.recording; }
    [[nodiscard]] std::string savedFile() const override { return owner_.saved; }
    void lookForSound(Told told) override { owner_.looks.push_back(std::move(told)); }

   private:
    FakeMediaControls& owner_;
  };
};

}  // namespace tarnvex::test
