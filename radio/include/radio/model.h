#pragma once

#include <optional>
#include <string_view>
#include <utility>

namespace tarnvex::radio {

/// The two radios.
enum class Model { BC895XLT, BC245XLT };

/// The kinds of trunked systems that the BC245XLT's mode codes distinguish.
enum class Family { Motorola, Edacs };

/// What a radio is doing. This, the model and, on the BC245XLT, the family of the trunked bank in
/// use give its mode code (`MD` reply).
enum class Activity {
  Scan,
  Manual,
  ToneEntry,  ///< Manual, with a CTCSS tone being keyed
  Search,     ///< between the two limits
  SearchHold,
  Weather,  ///< the BC245XLT's service search
  WeatherHold,
  Auto,         ///< search that stores new frequencies in bank J
  TrunkSearch,  ///< looking for a control channel
  TrunkSearchHold,
  SelectBank,    ///< trunk programming: bank and system type
  ProgramTrunk,  ///< trunk programming: frequencies
  IdSearch,
  IdHold,
  IdScan,
  IdManual,
  Send,
};

/// The four characters of the `MD` reply; empty if the model has no such activity.
std::string_view modeCode(Model model, Activity activity, Family family);

/// The reverse. A code of two activities gives the more common one.
std::optional<std::pair<Activity, Family>> activityOf(Model model, std::string_view code);

/// "bc895" or "bc245", as the control lines and the command line spell it.
std::optional<Model> modelNamed(std::string_view name);
std::string_view nameOf(Model model);
std::string_view nameOf(Activity activity);

/// True while the radio follows a trunked system (IDs, not channels).
bool followsIds(Activity activity);
/// True in the two steps of trunk programming.
bool programsTrunk(Activity activity);
/// True in the conventional searches, weather included.
bool searches(Activity activity);

/// ID groups ("scan lists") of a bank: A to E on the BC895XLT, A to J on the BC245XLT.
int groupsOf(Model model);

}  // namespace tarnvex::radio
