#include "desktop/ports/sound_capture.h"

#include <pulse/pulseaudio.h>

#include <cstdint>
#include <vector>

#include "desktop/ports/wave_file.h"

namespace tarnvex::desktop {
namespace {

/// Sound arrives in pieces of this length. At most one of them is lost at the end.
constexpr std::uint32_t kPieceBytes = WaveFile::kRate / 50 * sizeof(std::int16_t);
constexpr const char* kId = "io.github.tarnvex.Tarnvex";
constexpr auto kServerPatience = std::chrono::seconds(2);
/// The longest sleep while there is nothing to do, in microseconds.
constexpr int kSleep = 20'000;

}  // namespace

SoundCapture::SoundCapture(std::string directory, QString name)
    : directory_(std::move(directory)),
      name_(std::move(name)),
      loop_(pa_mainloop_new()),
      thread_([this] { run(); }) {}

SoundCapture::~SoundCapture() {
  finish();
  thread_.join();
}

void SoundCapture::FreeLoop::operator()(pa_mainloop* loop) const {
  pa_mainloop_free(loop);
}

void SoundCapture::finish() {
  finishing_ = true;
  if (loop_) {
    pa_mainloop_wakeup(loop_.get());
  }
}

void SoundCapture::connectContext() {
  // The desktop's sound settings show the program with these.
  pa_proplist* properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, kId);
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, kId);
  context_ = pa_context_new_with_proplist(pa_mainloop_get_api(loop_.get()), "Tarnvex", properties);
  pa_proplist_free(properties);
  pa_context_connect(context_, nullptr, PA_CONTEXT_NOFLAGS, nullptr);
}

void SoundCapture::run() {
  if (loop_) {
    record();
  } else {
    fail(QStringLiteral("No sound can be recorded: the system has no handles left."));
  }
  over_ = true;
}

void SoundCapture::record() {
  connectContext();
  State state = work();
  while (state != State::Over && !(finishing_ && isEnough(state))) {
    turn();
    state = work();
  }
  if (state == State::Going) {
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
  pa_context_disconnect(context_);
  pa_context_unref(context_);
}

/// Whether a capture that should finish may end now. If the recording hasn't begun yet, it waits
/// for a while, so that even the shortest reception gets a file.
bool SoundCapture::isEnough(State state) const {
  return state == State::Recording || std::chrono::steady_clock::now() - started_ > kServerPatience;
}

void SoundCapture::turn() {
  pa_mainloop* loop = loop_.get();
  if (pa_mainloop_prepare(loop, kSleep) >= 0 && pa_mainloop_poll(loop) >= 0) {
    pa_mainloop_dispatch(loop);
  }
}

SoundCapture::State SoundCapture::work() {
  if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(context_))) {
    return fail(serverError());
  }
  if (pa_context_get_state(context_) != PA_CONTEXT_READY) {
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
  stream_ = pa_stream_new(context_, "Reception", &format, nullptr);
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
  return QStringLiteral("No sound can be recorded: %1.")
      .arg(QString::fromLocal8Bit(pa_strerror(pa_context_errno(context_))));
}

}  // namespace tarnvex::desktop
