#pragma once

#include <string>

namespace tarnvex::platform {

/// The variables that outlive a main window or that several rooms share. There is one object,
/// created by the program and passed to everything that uses it. It lives as long as the program.
struct SharedState {
  /// "BC895" or "BC245": picks the main window and the settings section.
  std::string ModelKey = "BC895";
  /// The texts of the about box. link/identity.h sets them and `ModelKey`.
  std::string ScannerName;
  std::string SerialNumberText;
  std::string FirmwareText;

  /// Set while the link waits for the first byte of a reply, cleared when the reply has been read
  /// to its end. Nothing in the program reads it.
  bool LinkWaiting = false;

  /// The last "MD" reply, such as "MD07".
  std::string CurrentMode;
  /// The keypad or an error message uses `Frequency`: the poll doesn't write to it.
  bool EntryActive = false;
  /// Digits were keyed in the system type step of the BC245XLT. An upload sets it once it has asked
  /// for the type of a bank.
  bool DigitKeyed = false;
  /// The last list index chosen in `Form3`, as text. Nothing in the program reads it.
  std::string SystemTypeIndex;
  /// Digits keyed with the mouse on the BC245XLT.
  std::string EntryBuffer;

  /// The user is editing a search limit: the poll leaves its box alone.
  bool LowerLimitEditing = false;
  bool UpperLimitEditing = false;

  /// The current opening of the squelch has been counted as a hit.
  bool HitCounted = false;
  /// From the recorder's "Record" to its "Close".
  bool Recording = false;
  /// The main windows are being switched.
  bool SwitchingScanners = false;
  bool KnobUpHeld = false;
  bool KnobDownHeld = false;
  /// Set by a press, cleared when the knob turns: a short press may be over before the poll looks.
  bool KnobUpPressed = false;
  bool KnobDownPressed = false;
  /// Current position of Multiscan (0 to 19) or Speed Enhancement (0 to 9) among the bank boxes.
  int BankCursor = 0;

  /// A transfer is using the radio: see memory/transfer.h.
  bool TransferRunning = false;
  /// The plan has changes that haven't been saved to the frequency file.
  bool MemoryModified = false;
  /// A value has been typed in the current cell since the cursor came there.
  bool CellEditActive = false;
};

}  // namespace tarnvex::platform
