#include "desktop/ports/run_dialog.h"

#include <QPointer>

namespace tarnvex::desktop {

std::optional<int> runDialog(QDialog* dialog, platform::EventGate& gate) {
  const QPointer<QDialog> there(dialog);
  std::optional<int> result;
  const auto connection =
      QObject::connect(dialog, &QDialog::finished, [&result](int finished) { result = finished; });
  dialog->open();
  gate.waitUntil([&] { return result || there.isNull(); });
  QObject::disconnect(connection);
  return there.isNull() ? std::nullopt : result;
}

}  // namespace tarnvex::desktop
