#include "line_trial/transfer_line.h"

#include <algorithm>

#include "platform/convert.h"

namespace tarnvex::trial {
namespace {

using memory::TalkgroupRecord;
using radio::Model;

constexpr int kIdRowsPerBank = 100;
/// The BC895XLT has half of the plan's groups.
constexpr int kIdRows895 = 50;
/// Channels lie this far apart, in units of 100 Hz, from this frequency on.
constexpr radio::Frequency kFirst = 1080000;
constexpr radio::Frequency kGap = 125;

radio::Frequency frequencyOf(int channel) {
  return kFirst + kGap * static_cast<radio::Frequency>(channel);
}
std::string channelText(int channel) {
  return platform::format(frequencyOf(channel) / 1e4, "0.0000");
}
std::string idText(int row) {
  return platform::format(row * 3, "000000");
}

}  // namespace

std::string nameOf(TransferKind kind) {
  switch (kind) {
    case TransferKind::UploadChannels:
      return "upload of channels";
    case TransferKind::DownloadChannels:
      return "download of channels";
    case TransferKind::UploadIds:
      return "upload of IDs";
    default:
      return "download of IDs";
  }
}

TransferLine::TransferLine(Model model, TransferKind kind)
    : line(model, 9600, 5),
      port(new TrialPort(line)),
      rig(model == Model::BC895XLT ? test::IdRig::Model::Bc895 : test::IdRig::Model::Bc245,
          std::unique_ptr<platform::SerialPort>(port)),
      model_(model),
      kind_(kind) {
  line.loop = &rig.loop;
  rig.memory.clear();
  if (uploads()) {
    fillPlan();
  } else {
    fillRadio();
  }
  if (movesIds()) {
    for (int bank = 0; bank < radio::kBanks; ++bank) {
      auto& control = line.radio.state().memory.channels[radio::kBankSize * bank + 1];
      // Of a type that takes every ID of the plan.
      line.radio.state().memory.banks[bank].type = radio::SystemType::Type2At800;
      control = {.frequency = frequencyOf(radio::kBankSize * bank + 1), .trunked = true};
    }
    line.radio.state().trunkBank = kTrunkedBank;
    line.radio.setMode(model == Model::BC895XLT ? "MD10" : "MD12");
    const char* question = model == Model::BC895XLT ? "SG" : "WI";
    const double units = platform::toReal(line.radio.exchange(question).substr(7, 7)).value_or(0);
    rig.channels.setTextMatrix(radio::kBankSize * kTrunkedBank + 1, 1,
                               platform::format(units / 1e4, "0.0000"));
  }
  rig.mode.setCaption("MD09");
  choiceBefore_ = choice();
}

std::string TransferLine::choice() const {
  radio::Radio copy = line.radio;
  return copy.exchange("SB");
}

bool TransferLine::movesIds() const {
  return kind_ == TransferKind::UploadIds || kind_ == TransferKind::DownloadIds;
}

bool TransferLine::uploads() const {
  return kind_ == TransferKind::UploadChannels || kind_ == TransferKind::UploadIds;
}

void TransferLine::fillPlan() {
  for (int channel = 1; channel <= radio::kChannels && !movesIds(); ++channel) {
    rig.setRow(channel, {channelText(channel), " ", channel % 2 == 0 ? "X" : " ",
                         channel % 3 == 0 ? "X" : " ", channel % 5 == 0 ? "X" : " ", "67.0", ""});
  }
  for (int row = 1; row <= TalkgroupRecord::kRows && movesIds(); ++row) {
    rig.put(row, idText(row));
  }
}

void TransferLine::fillRadio() {
  auto& memory = line.radio.state().memory;
  for (int channel = 1; channel <= radio::kChannels; ++channel) {
    memory.channels[channel] = {.frequency = frequencyOf(channel), .lockout = false};
  }
  for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
    const int place = (row - 1) % kIdRowsPerBank;
    memory.banks[(row - 1) / kIdRowsPerBank].ids[place / radio::kSlots][place % radio::kSlots] =
        idText(row);
  }
}

void TransferLine::run(const std::vector<int>& banks) {
  if (movesIds() && model_ == Model::BC895XLT) {
    auto transfer = rig.transfer895();
    uploads() ? transfer.upload() : transfer.download();
  } else if (movesIds()) {
    uploads() ? rig.run(rig.upload, banks) : rig.run(rig.download, banks);
  } else if (uploads()) {
    memory::frmUpload dialog([this] { return rig.window(); }, rig.outside(), [] {});
    rig.run(dialog, banks);
  } else {
    memory::frmDownload dialog([this] { return rig.window(); }, rig.outside());
    rig.run(dialog, banks);
  }
}

std::string TransferLine::held(int row) const {
  if (!uploads()) {
    const auto& table = movesIds() ? rig.talkgroups : rig.channels;
    return std::string(table.textMatrix(row, 1));
  }
  const auto& memory = line.radio.state().memory;
  if (movesIds()) {
    const int place = (row - 1) % kIdRowsPerBank;
    return memory.banks[(row - 1) / kIdRowsPerBank]
        .ids[place / radio::kSlots][place % radio::kSlots];
  }
  const radio::Channel& channel = memory.channels[row];
  return channel.delay == (row % 2 == 0) && channel.lockout == (row % 3 == 0) &&
                 channel.line == (row % 5 == 0)
             ? platform::format(channel.frequency / 1e4, "0.0000")
             : "";
}

std::vector<int> TransferLine::rowsOf(const std::vector<int>& banks) const {
  const bool own = movesIds() && model_ == Model::BC895XLT;
  const int step = movesIds() ? kIdRowsPerBank : radio::kBankSize;
  std::vector<int> rows;
  for (const int bank : own ? std::vector<int>{kTrunkedBank} : banks) {
    for (int row = 1; row <= (own ? kIdRows895 : step); ++row) {
      rows.push_back(step * bank + row);
    }
  }
  return rows;
}

int TransferLine::shifted(const std::vector<int>& banks) const {
  const auto rows = rowsOf(banks);
  const auto belongs = [this](int row) { return movesIds() ? idText(row) : channelText(row); };
  return static_cast<int>(std::ranges::count_if(rows, [&](int row) {
    const std::string text = held(row);
    return std::ranges::any_of(rows,
                               [&](int other) { return other != row && text == belongs(other); });
  }));
}

int TransferLine::wrong(const std::vector<int>& banks) const {
  const auto rows = rowsOf(banks);
  return static_cast<int>(std::ranges::count_if(
      rows, [&](int row) { return held(row) != (movesIds() ? idText(row) : channelText(row)); }));
}

}  // namespace tarnvex::trial
