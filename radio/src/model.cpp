#include "radio/model.h"

#include <algorithm>
#include <array>

namespace tarnvex::radio {
namespace {

struct Row {
  Activity activity;
  std::string_view name;
  std::string_view bc895;
  std::string_view motorola;
  std::string_view edacs;
};

constexpr std::array<Row, 17> kRows{{
    {Activity::Scan, "scan", "MD00", "MD00", "MD00"},
    {Activity::Manual, "manual", "MD01", "MD01", "MD01"},
    {Activity::ToneEntry, "tone-entry", "MD13", "", ""},
    {Activity::Search, "search", "MD02", "MD02", "MD02"},
    {Activity::SearchHold, "search-hold", "MD03", "MD03", "MD03"},
    {Activity::Weather, "weather", "MD04", "MD04", "MD04"},
    {Activity::WeatherHold, "weather-hold", "MD05", "MD05", "MD05"},
    {Activity::Auto, "auto", "MD16", "", ""},
    {Activity::TrunkSearch, "trunk-search", "MD06", "MD14", "MD20"},
    {Activity::TrunkSearchHold, "trunk-search-hold", "", "MD13", "MD19"},
    {Activity::SelectBank, "select-bank", "MD12", "MD08", "MD08"},
    {Activity::ProgramTrunk, "program-trunk", "MD12", "MD06", "MD07"},
    {Activity::IdSearch, "id-search", "MD07", "MD09", "MD15"},
    {Activity::IdHold, "id-hold", "MD08", "MD10", "MD16"},
    {Activity::IdScan, "id-scan", "MD09", "MD11", "MD17"},
    {Activity::IdManual, "id-manual", "MD10", "MD12", "MD18"},
    {Activity::Send, "send", "MD15", "", ""},
}};

const Row& rowOf(Activity activity) {
  const auto* const row = std::ranges::find(kRows, activity, &Row::activity);
  return row == kRows.end() ? kRows.front() : *row;
}

}  // namespace

std::string_view modeCode(Model model, Activity activity, Family family) {
  const Row& row = rowOf(activity);
  const std::string_view bc245 = family == Family::Edacs ? row.edacs : row.motorola;
  return model == Model::BC895XLT ? row.bc895 : bc245;
}

std::optional<std::pair<Activity, Family>> activityOf(Model model, std::string_view code) {
  if (code.empty()) {
    return std::nullopt;
  }
  for (const Row& row : kRows) {
    const bool motorola = code == (model == Model::BC895XLT ? row.bc895 : row.motorola);
    if (motorola) {
      return std::pair{row.activity, Family::Motorola};
    }
    if (model == Model::BC245XLT && code == row.edacs) {
      return std::pair{row.activity, Family::Edacs};
    }
  }
  return std::nullopt;
}

std::optional<Model> modelNamed(std::string_view name) {
  return name == "bc895"   ? std::optional(Model::BC895XLT)
         : name == "bc245" ? std::optional(Model::BC245XLT)
                           : std::nullopt;
}

std::string_view nameOf(Model model) {
  return model == Model::BC895XLT ? "bc895" : "bc245";
}

std::string_view nameOf(Activity activity) {
  return rowOf(activity).name;
}

bool followsIds(Activity activity) {
  return activity == Activity::IdSearch || activity == Activity::IdHold ||
         activity == Activity::IdScan || activity == Activity::IdManual;
}

bool programsTrunk(Activity activity) {
  return activity == Activity::SelectBank || activity == Activity::ProgramTrunk;
}

bool searches(Activity activity) {
  return activity == Activity::Search || activity == Activity::SearchHold ||
         activity == Activity::Weather || activity == Activity::WeatherHold ||
         activity == Activity::Auto;
}

int groupsOf(Model model) {
  return model == Model::BC895XLT ? 5 : 10;
}

}  // namespace tarnvex::radio
