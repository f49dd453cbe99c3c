#include "fuzz_target.h"
#include "memory/apf_dialogs.h"
#include "memory/memory_store.h"
#include "support/fake_common_dialog.h"
#include "support/fake_dialogs.h"

/// Lists and imports any file, anywhere in the plan, and checks that nothing else is written. The
/// first byte picks the channel of the import.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnvex;
  fuzz::stopAtFailures();
  const std::string_view bytes = fuzz::asText(data, size);
  test::MemoryStore store;
  platform::SequentialFiles files(store);
  test::FakeCommonDialog dialog;
  test::FakeDialogs dialogs;
  platform::SharedState state;
  platform::Table channels("channels", 301, 8);
  store.files["given.apf"] = bytes.substr(std::min<std::size_t>(1, size));
  dialog.choices = {"given.apf"};
  memory::Form7 form(
      {files, dialog, dialogs, state, [&]() -> platform::Table& { return channels; }});
  form.load();
  form.Command2.userClick();
  const int first = size == 0 ? 1 : 45 + static_cast<unsigned char>(bytes[0]);
  form.Text1.setText(std::to_string(first));
  form.Command3.userClick();
  for (int row = 0; row < 301; ++row) {
    const bool written = !channels.textMatrix(row, 3).empty();
    fuzz::require(!written || (row >= first && row < first + form.List1.count()));
  }
  return 0;
}
