#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // Sound is only recorded from, and played on, a server that a test has started.
  qputenv("PULSE_SERVER", "unix:/nonexistent");
  // Keeps the desktop's file manager from opening.
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
