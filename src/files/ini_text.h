#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text of an INI file, UTF-8: sections of lines "name=value". Values are quoted and escaped as
/// Qt's settings files have them, so that either can read the other's.
namespace tarnvex::files {

/// The value of a name in a section; nothing if the text has none.
std::optional<std::string> iniValue(std::string_view text, std::string_view section,
                                    std::string_view name);

/// The text with that value; every other line stays as it is.
std::string withIniValue(std::string_view text, std::string_view section, std::string_view name,
                         std::string_view value);

}  // namespace tarnvex::files
