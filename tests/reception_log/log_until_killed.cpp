// Logs receptions to the folder given as its argument, as fast as it can, until it is killed.
// Prints the number of each one after it has been written to the file.
#include <cstdio>

#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/sqlite_reception_store.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    return 2;
  }
  using namespace tarnvex;
  desktop::QtEventLoop loop;
  platform::EventGate gate(loop);
  desktop::SqliteReceptionStore store(argv[1], gate);
  for (int number = 1;; ++number) {
    monitor::Reception reception;
    reception.started = number;
    reception.heard.frequency = 155115000 + number;
    reception.radio = "BC895XLT";
    store.write(number, reception, true);
    store.finish();
    std::printf("%d\n", number);
    std::fflush(stdout);
  }
}
