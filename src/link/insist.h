#pragma once

#include <string>
#include <string_view>

#include "link/scanner_commands.h"
#include "link/scanner_link.h"

namespace tarnvex::link {

/// Asks a question whose answer decides about more than the next picture of the panel: what is sent
/// back to the radio, or whether a bank is transferred. If the answer has no form of an answer, or
/// has come without its end, asks once more, on a quiet line. Returns the last answer, whatever it
/// is.
std::string insist(ScannerLink& link, std::string_view question);

/// Asks for the state of a switch, and once more if the answer begins as a state does but isn't
/// one. Any other text counts as off.
bool insistOn(ScannerLink& link, const Switch& subject);

}  // namespace tarnvex::link
