// Records to a file until it is killed. Its arguments are the folder and the file's name.
#include <unistd.h>

#include "desktop/ports/sound_capture.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    return 2;
  }
  const tarnvex::desktop::SoundCapture capture(argv[1], QString::fromLocal8Bit(argv[2]));
  pause();
}
