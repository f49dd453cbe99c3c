#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "radio/air.h"
#include "radio/commands.h"
#include "radio/scenes.h"
#include "radio/state.h"

namespace tarnvex::radio {

/// A simulated radio without a line: it takes commands and returns replies, and time passes when
/// the caller says so. It starts in a scan, in the scene "quiet". Reads no clock and no file.
///
///   Radio radio(Model::BC895XLT);
///   radio.playScene("steady");
///   radio.advance(100);
///   radio.exchange("MA");    // "C001 F01551150 TF DN LF AF RF N13"
class Radio {
 public:
  explicit Radio(Model model = Model::BC895XLT, std::uint64_t seed = 1);

  /// Returns the reply to `line`, both without their final CR. Listings have inner CRs. The reply
  /// to an empty or unknown line is "ERR".
  std::string exchange(std::string_view line);

  /// Lets time pass. A scene runs `tempo` times as fast; if it has a clock, only the clock does.
  /// Streaming keeps its pace.
  void advance(Millis ms);

  /// Takes the lines that the radio has sent by itself. While streaming is on, that is one after
  /// kStreamQuiet without a command, and then one every kStreamPeriod.
  std::vector<std::string> unsolicited();
  /// Milliseconds until the next such line, if there will be one.
  [[nodiscard]] std::optional<Millis> nextLineIn() const;
  static constexpr Millis kStreamQuiet = 30;
  static constexpr Millis kStreamPeriod = 100;

  /// The next four return false and change nothing if there is no such scene, mode, channel or ID.
  bool playScene(std::string_view name);
  bool setMode(std::string_view code);
  bool receive(int channel, Millis length);
  /// A transmission of a talkgroup of the trunked bank in use.
  bool talk(std::string_view id, Millis length);

  void setTempo(double tempo) { tempo_ = tempo; }
  void become(Model model);
  [[nodiscard]] const State& state() const { return state_; }
  State& state() { return state_; }
  [[nodiscard]] std::string_view scene() const { return scene_->name; }
  /// The hour of the scene's day, 0 to 23. Nothing for a scene without a clock.
  [[nodiscard]] std::optional<int> hour() const;

 private:
  void live(Millis ms);
  void runScene();
  [[nodiscard]] double traffic() const;
  void engage(Activity activity);
  void takeStep(const Step& step);
  void stream();

  State state_;
  Air air_;
  double tempo_ = 1;
  double owed_ = 0;  ///< scene time of less than a millisecond, still to be passed
  Millis clock_ = 0;
  Millis lineDue_ = 0;
  double day_ = 0;  ///< milliseconds on the scene's own clock, since it began
  const Scene* scene_;
  Millis sceneStart_ = 0;
  std::size_t nextStep_ = 0;
  std::vector<std::string> lines_;
};

}  // namespace tarnvex::radio
