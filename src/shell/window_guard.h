#pragma once

#include "shell/services.h"

namespace tarnvex::shell {

/// What a main window works with, for as long as the window is there. A handler that waits in a
/// message box or a file dialog may go on after its window has gone, when the radio was exchanged
/// or the program ended meanwhile. From then on no box opens and none is answered, no file is read
/// or written, no setting is saved, and no backup is made. So handlers needn't ask whether they
/// come too late.
class WindowGuard : private platform::NonCopyable {
 public:
  /// `services` are the program's.
  explicit WindowGuard(const Services& services);

  /// The same services, guarded.
  [[nodiscard]] Services services();
  /// The window's file numbers.
  [[nodiscard]] platform::SequentialFiles& files() { return files_; }
  /// The window has gone.
  void leave();

 private:
  /// Once the window has gone, answers every question with Cancel, even a Yes/No question.
  class Questions : public platform::Dialogs {
   public:
    explicit Questions(platform::Dialogs& dialogs) : dialogs_(dialogs) {}

    platform::Answer messageBox(const std::string& text, const std::string& title,
                                platform::MessageFlags flags) override;
    platform::Answer askToDestroy(const std::string& text, const std::string& title,
                                  platform::MessageFlags flags) override;
    std::string inputBox(const std::string& prompt, const std::string& title) override;
    std::optional<platform::Colour> chooseColour(platform::Colour current) override;
    void beep() override;
    void setBusyPointer(bool busy) override { dialogs_.setBusyPointer(busy); }
    void leave() { gone_ = true; }

   private:
    template <class Ask>
    auto answered(Ask ask, decltype(ask()) nothing) -> decltype(ask());

    platform::Dialogs& dialogs_;
    bool gone_ = false;
  };

  /// Keeps no more backups once the window has gone.
  class Copies : public platform::Backups {
   public:
    explicit Copies(platform::Backups& backups) : backups_(backups) {}

    platform::Failure keep(const std::string& path, std::string_view content,
                           std::string& kept) override;
    std::string folder() override { return gone_ ? std::string() : backups_.folder(); }
    bool firstFailure() override { return backups_.firstFailure(); }
    void leave() { gone_ = true; }

   private:
    platform::Backups& backups_;
    bool gone_ = false;
  };

  class Settings : public platform::SettingsStore {
   public:
    explicit Settings(platform::SettingsStore& settings) : settings_(settings) {}

    std::string getSetting(std::string_view section, std::string_view name,
                           std::string_view fallback) const override {
      return settings_.getSetting(section, name, fallback);
    }
    void saveSetting(std::string_view section, std::string_view name,
                     std::string_view text) override;
    void leave() { gone_ = true; }

   private:
    platform::SettingsStore& settings_;
    bool gone_ = false;
  };

  Services program_;
  Questions dialogs_;
  platform::SequentialFiles files_;
  Copies backups_;
  Settings settings_;
};

}  // namespace tarnvex::shell
