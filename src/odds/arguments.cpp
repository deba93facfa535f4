#include "odds/arguments.h"

#include <charconv>

namespace velmoran {

namespace {

Long ParseMassages(const std::string& text) {
  constexpr Long Most = 100000;
  Long number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc() && stop == end && number >= 1 && number <= Most) return number;
  throw WrongArgument{"--massages takes a number from 1 to " + std::to_string(Most)};
}

}  // namespace

Arguments ReadArguments(const std::vector<std::string>& given) {
  Arguments arguments;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const std::string& argument = given[i];
    if (argument == "--help" || argument == "--version") {
      (argument == "--help" ? arguments.help : arguments.version) = true;
      return arguments;
    }
    if (argument == "--massages" || argument == "--csv") {
      if (++i == given.size() || given[i].empty()) throw WrongArgument{argument + " needs a value"};
      if (argument == "--csv") {
        arguments.csv = given[i];
      } else {
        arguments.massages = ParseMassages(given[i]);
      }
    } else if (argument.starts_with('-')) {
      throw WrongArgument{"unknown argument " + argument};
    } else if (argument.empty() || argument.find('*') != std::string::npos) {
      throw WrongArgument{"\"" + argument + "\" is not the name of a mission file"};
    } else if (!arguments.mission.empty()) {
      throw WrongArgument{"more than one mission file"};
    } else {
      arguments.mission = argument;
    }
  }
  return arguments;
}

}  // namespace velmoran
