#include "desktop/sound_server.h"

#include <gtest/gtest.h>
#include <sndfile.h>

namespace tarnvex::test {

SoundServer::SoundServer(Sources sources) : before_(qgetenv("PULSE_SERVER")) {
  QFile script(folder_.filePath("script"));
  EXPECT_TRUE(script.open(QIODevice::WriteOnly));
  if (sources != Sources::None) {
    script.write("load-module module-null-sink sink_name=quiet\n");
  }
  if (sources == Sources::Two) {
    script.write(
        "load-module module-sine-source source_name=other frequency=1000\n"
        "load-module module-sine-source source_name=wanted frequency=" +
        QByteArray::number(kDefaultHertz) +
        "\n"
        "set-default-source wanted\n");
  }
  script.write("load-module module-native-protocol-unix auth-anonymous=1 socket=" +
               folder_.filePath("socket").toUtf8() + "\n");
  script.close();
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"}) {
    environment.insert(QLatin1String(name), folder_.path());
  }
  environment.remove("PULSE_SERVER");
  process_.setProcessEnvironment(environment);
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.start("pulseaudio",
                 {"-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                  "--disable-shm=yes", "--log-level=info", "-F", folder_.filePath("script")});
  QByteArray said;
  while (!said.contains("startup complete") && process_.waitForReadyRead(10000)) {
    said += process_.readAll();
  }
  EXPECT_TRUE(said.contains("startup complete")) << said.constData();
  qputenv("PULSE_SERVER", "unix:" + folder_.filePath("socket").toUtf8());
}

SoundServer::~SoundServer() {
  kill();
  qputenv("PULSE_SERVER", before_);
}

void SoundServer::kill() {
  process_.kill();
  EXPECT_TRUE(process_.state() == QProcess::NotRunning || process_.waitForFinished(10000));
}

Heard listen(const QString& path) {
  SF_INFO info{};
  SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_READ, &info);
  if (file == nullptr) {
    return {};
  }
  std::vector<short> samples(static_cast<std::size_t>(info.frames));
  const sf_count_t read = sf_read_short(file, samples.data(), info.frames);
  sf_close(file);
  Heard heard;
  heard.playable = read == info.frames;
  heard.sixteenBit = info.format == (SF_FORMAT_WAV | SF_FORMAT_PCM_16) && info.channels == 1;
  heard.seconds = static_cast<double>(info.frames) / info.samplerate;
  int rises = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    rises += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
  }
  heard.hertz = rises / heard.seconds;
  return heard;
}

}  // namespace tarnvex::test
