// The fixed texts of the form, letter for letter. Every front end shows them.
#pragma once

#include <string_view>

namespace velmoran::captions {

inline constexpr std::string_view Mission = "Form1";  // Quirk 6: the title of the form.
inline constexpr std::string_view Label1 = "Velmoran";
inline constexpr std::string_view Label2 = "Version " VELMORAN_VERSION;
inline constexpr std::string_view OpenB = "Open Mission File";
inline constexpr std::string_view ltarget = "Target: ";  // until a file is open
inline constexpr std::string_view MassageB = "Massage File";
inline constexpr std::string_view ReportB = "Generate Report";
inline constexpr std::string_view WriteB = "Write";
inline constexpr std::string_view ExitB = "Exit";

}  // namespace velmoran::captions
