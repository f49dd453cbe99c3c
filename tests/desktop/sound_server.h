#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "platform/non_copyable.h"

namespace tarnvex::test {

/// A sound server for the test, without any sound card: two sources that hum, of which one is the
/// default one. While it lives, the program under test records from it.
class SoundServer : private platform::NonCopyable {
 public:
  static constexpr int kDefaultHertz = 440;

  SoundServer();
  ~SoundServer();

  void kill();

 private:
  QTemporaryDir folder_;
  QProcess process_;
  QByteArray before_;
};

/// What a player finds in a wave file.
struct Heard {
  bool playable = false;
  double seconds = 0;
  /// Of a pure tone.
  double hertz = 0;
  /// 16 bits, one channel.
  bool sixteenBit = false;
};

Heard listen(const QString& path);

}  // namespace tarnvex::test
