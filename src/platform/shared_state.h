#pragma once

#include <string>

namespace tarnvex::platform {

/// The variables that the rooms of the core share. One object, made in main and handed to those who
/// use it; it lives as long as the program.
struct SharedState {
  /// "BC895" or "BC245": picks the main window and the settings section.
  std::string ModelKey = "BC895";
  /// Texts of the about box.
  std::string ScannerName;
  std::string SerialNumberText;
  std::string FirmwareText;

  /// Set on every spin of a wait for the first byte, cleared when a reply was read to its end. Kept
  /// for who looks at the program from outside; nothing in it reads it.
  bool LinkWaiting = false;

  /// The last "MD" reply, such as "MD07".
  std::string CurrentMode;
  /// The keypad or an error flash owns `Frequency`; the poll doesn't write to it.
  bool EntryActive = false;
  /// Digits were keyed in the system type step of the BC245XLT. An upload sets it once it has asked
  /// for the type of a bank.
  bool DigitKeyed = false;
  /// The list index last taken over from `Form3`, as text. Kept like `LinkWaiting`: nothing in the
  /// program reads it.
  std::string SystemTypeIndex;
  /// Digits keyed with the mouse on the BC245XLT.
  std::string EntryBuffer;

  /// The user edits a search limit; the poll leaves its box alone.
  bool LowerLimitEditing = false;
  bool UpperLimitEditing = false;

  /// The current opening of the squelch has been counted.
  bool HitCounted = false;
  /// From the recorder's "Record" to its "Close".
  bool Recording = false;
  /// The main windows are being exchanged.
  bool SwitchingScanners = false;
  bool KnobUpHeld = false;
  bool KnobDownHeld = false;
  /// Position of Multiscan (0 to 19) or Speed Enhancement (0 to 9) in the bank boxes.
  int BankCursor = 0;

  /// A transfer has the radio to itself: see memory/transfer.h.
  bool TransferRunning = false;
  /// The plan has changes that are not in the frequency file.
  bool MemoryModified = false;
  /// The cell under the cursor has received a typed value since the cursor arrived.
  bool CellEditActive = false;
};

}  // namespace tarnvex::platform
