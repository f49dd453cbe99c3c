#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "platform/non_copyable.h"

namespace tarnvex::test {

/// A sound server for a test, without a sound card. It has two sources that hum, of which one is
/// the default. While it exists, the program under test records from it.
class SoundServer : private platform::NonCopyable {
 public:
  static constexpr int kDefaultHertz = 440;

  /// A monitor records what is played.
  enum class Sources { Two, None, Monitor };

  explicit SoundServer(Sources sources = Sources::Two);
  ~SoundServer();

  void kill();

 private:
  QTemporaryDir folder_;
  QProcess process_;
  QByteArray before_;
};

/// The content of a wave file, as a player reads it.
struct Heard {
  bool playable = false;
  double seconds = 0;
  /// The frequency of the tone.
  double hertz = 0;
  /// Whether it has 16 bits and one channel.
  bool sixteenBit = false;
};

Heard listen(const QString& path);

}  // namespace tarnvex::test
