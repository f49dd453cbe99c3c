#include "desktop/ports/sound_capture.h"

#include <cstdint>
#include <vector>

#include "desktop/ports/wave_file.h"

namespace tarnvex::desktop {
namespace {

/// Sound arrives in pieces of this length. At most one of them is lost at the end.
constexpr std::uint32_t kPieceBytes = WaveFile::kRate / 50 * sizeof(std::int16_t);
constexpr auto kServerPatience = std::chrono::seconds(2);

}  // namespace

SoundCapture::SoundCapture(std::string directory, QString name)
    : directory_(std::move(directory)), name_(std::move(name)), thread_([this] { run(); }) {}

SoundCapture::~SoundCapture() {
  finish();
  thread_.join();
}

void SoundCapture::finish() {
  finishing_ = true;
  pulse_.wake();
}

void SoundCapture::run() {
  if (pulse_.works()) {
    record();
  } else {
    fail(QStringLiteral("No sound can be recorded: the system has no handles left."));
  }
  over_ = true;
}

void SoundCapture::record() {
  pulse_.connect();
  state_ = work();
  while (state_ != State::Over && !(finishing_ && isEnough())) {
    pulse_.turn();
    state_ = work();
  }
  if (state_ == State::Going) {
    fail(QStringLiteral("No sound can be recorded: the sound server doesn't answer."));
  }
  QString error;
  if (file_ && !file_->close(error) && error_.isEmpty()) {
    fail(error);
  }
  if (stream_ != nullptr) {
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
  }
}

/// Whether a capture that should finish may end now. If the recording hasn't begun yet, it waits
/// for a while, so that even the shortest reception gets a file.
bool SoundCapture::isEnough() const {
  return state_ == State::Recording ||
         std::chrono::steady_clock::now() - started_ > kServerPatience;
}

SoundCapture::State SoundCapture::work() {
  if (pulse_.failed()) {
    return fail(serverError());
  }
  if (!pulse_.ready()) {
    return State::Going;
  }
  if (stream_ == nullptr) {
    return connectStream();
  }
  if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream_))) {
    return fail(serverError());
  }
  if (pa_stream_get_state(stream_) != PA_STREAM_READY) {
    return State::Going;
  }
  if (!file_) {
    QString error;
    file_ = WaveFile::create(directory_, name_, error);
    if (!file_) {
      return fail(error);
    }
    fileName_ = file_->name();
  }
  return takeSound();
}

SoundCapture::State SoundCapture::connectStream() {
  const pa_sample_spec format{PA_SAMPLE_S16NE, WaveFile::kRate, 1};
  constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
  const pa_buffer_attr pieces{kServersChoice, kServersChoice, kServersChoice, kServersChoice,
                              kPieceBytes};
  stream_ = pa_stream_new(pulse_.get(), "Reception", &format, nullptr);
  // No device name means the user's default source.
  if (stream_ == nullptr ||
      pa_stream_connect_record(stream_, nullptr, &pieces, PA_STREAM_ADJUST_LATENCY) < 0) {
    return fail(serverError());
  }
  return State::Going;
}

SoundCapture::State SoundCapture::takeSound() {
  while (pa_stream_readable_size(stream_) > 0) {
    const void* data = nullptr;
    std::size_t bytes = 0;
    if (pa_stream_peek(stream_, &data, &bytes) < 0) {
      return fail(serverError());
    }
    if (bytes == 0) {
      break;
    }
    // Gaps are recorded as silence.
    const std::vector<std::int16_t> silence(data == nullptr ? bytes / sizeof(std::int16_t) : 0);
    const auto* samples = data == nullptr ? silence.data() : static_cast<const std::int16_t*>(data);
    QString error;
    const bool written = file_->write({samples, bytes / sizeof(std::int16_t)}, error);
    pa_stream_drop(stream_);
    if (!written) {
      return fail(error);
    }
  }
  return State::Recording;
}

SoundCapture::State SoundCapture::fail(const QString& error) {
  error_ = error;
  return State::Over;
}

QString SoundCapture::serverError() const {
  return QStringLiteral("No sound can be recorded: %1.").arg(pulse_.error());
}

}  // namespace tarnvex::desktop
