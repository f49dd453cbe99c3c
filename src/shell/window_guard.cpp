#include "shell/window_guard.h"

namespace tarnvex::shell {

using platform::Answer;

WindowGuard::WindowGuard(const Services& services)
    : program_(services),
      dialogs_(services.dialogs),
      files_(services.files),
      backups_(services.backups),
      settings_(services.settings) {}

Services WindowGuard::services() {
  return {program_.state,
          program_.gate,
          program_.makePort,
          dialogs_,
          settings_,
          program_.clock,
          program_.link,
          program_.files,
          program_.makeDialog,
          backups_,
          program_.makeMediaControl,
          program_.receptions,
          program_.programDirectory};
}

void WindowGuard::leave() {
  dialogs_.leave();
  files_.shut();
  backups_.leave();
  settings_.leave();
}

/// The window may close while the question is open.
template <class Ask>
auto WindowGuard::Questions::answered(Ask ask, decltype(ask()) nothing) -> decltype(ask()) {
  if (gone_) {
    return nothing;
  }
  auto answer = ask();
  return gone_ ? nothing : answer;
}

Answer WindowGuard::Questions::messageBox(const std::string& text, const std::string& title,
                                          platform::MessageFlags flags) {
  return answered([&] { return dialogs_.messageBox(text, title, flags); }, Answer::Cancel);
}

Answer WindowGuard::Questions::askToDestroy(const std::string& text, const std::string& title,
                                            platform::MessageFlags flags) {
  return answered([&] { return dialogs_.askToDestroy(text, title, flags); }, Answer::Cancel);
}

std::string WindowGuard::Questions::inputBox(const std::string& prompt, const std::string& title) {
  return answered([&] { return dialogs_.inputBox(prompt, title); }, {});
}

std::optional<platform::Colour> WindowGuard::Questions::chooseColour(platform::Colour current) {
  return answered([&] { return dialogs_.chooseColour(current); }, std::nullopt);
}

void WindowGuard::Questions::beep() {
  if (!gone_) {
    dialogs_.beep();
  }
}

platform::Failure WindowGuard::Copies::keep(const std::string& path, std::string_view content,
                                            std::string& kept) {
  return gone_ ? platform::Failure("The window is closed") : backups_.keep(path, content, kept);
}

void WindowGuard::Settings::saveSetting(std::string_view section, std::string_view name,
                                        std::string_view text) {
  if (!gone_) {
    settings_.saveSetting(section, name, text);
  }
}

}  // namespace tarnvex::shell
