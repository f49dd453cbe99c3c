#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text of an INI file, UTF-8: sections of lines "name=value". Values are quoted and escaped as
/// in Qt's settings files, so that each can read the other's.
namespace tarnvex::files {

/// The value of a name in a section. Nothing if there is none.
std::optional<std::string> iniValue(std::string_view text, std::string_view section,
                                    std::string_view name);

/// The text with that value set. All other lines stay as they are.
std::string withIniValue(std::string_view text, std::string_view section, std::string_view name,
                         std::string_view value);

}  // namespace tarnvex::files
