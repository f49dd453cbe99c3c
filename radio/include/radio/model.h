#pragma once

#include <optional>
#include <string_view>
#include <utility>

namespace tarnvex::radio {

/// The two radios.
enum class Model { BC895XLT, BC245XLT };

/// The kinds of trunked systems that the BC245XLT's mode codes distinguish.
enum class Family { Motorola, Edacs };

/// What a radio is doing. The mode code (the `MD` reply) depends on this, on the model and, on the
/// BC245XLT, on the family of the trunked bank in use.
enum class Activity {
  Scan,
  Manual,
  ToneEntry,  ///< Manual, with a CTCSS tone being keyed
  Search,     ///< between the two limits
  SearchHold,
  Weather,  ///< the BC245XLT's service search
  WeatherHold,
  Auto,         ///< a search that stores new frequencies in bank J
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

/// The reverse. For a code of two activities, the more common one.
std::optional<std::pair<Activity, Family>> activityOf(Model model, std::string_view code);

/// The model for "bc895" or "bc245", its name in control lines and on the command line.
std::optional<Model> modelNamed(std::string_view name);
std::string_view nameOf(Model model);
std::string_view nameOf(Activity activity);

/// True while the radio follows a trunked system (IDs, not channels).
bool followsIds(Activity activity);
/// True in the two steps of trunk programming.
bool programsTrunk(Activity activity);
/// True in the conventional searches, including weather.
bool searches(Activity activity);

/// The number of ID groups ("scan lists") in a bank: A to E on the BC895XLT, A to J on the
/// BC245XLT.
int groupsOf(Model model);

}  // namespace tarnvex::radio
