#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // Nobody's sound is recorded, and nothing is heard, but on a server that a test has started.
  qputenv("PULSE_SERVER", "unix:/nonexistent");
  // No file manager opens.
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
