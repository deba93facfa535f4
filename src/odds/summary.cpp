#include "odds/summary.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

#include "files/campaign_date.h"
#include "files/path.h"
#include "report/names.h"
#include "state/numbering.h"

namespace velmoran {

namespace {

using std::to_string;
using Counted = std::map<Long, Long>;  // how many massages had each value

constexpr std::size_t Columns = 80, NumberWidth = 9, NameWidth = 17, NextWidth = 20, LabelWidth = 15;
constexpr std::int64_t LongestBar = 34;
constexpr std::size_t FlightsNamed = 3;  // of those that get an invalid size most often
constexpr std::size_t WarningsPrinted = 8;

std::string Left(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

std::string Right(const std::string& text, std::size_t width = NumberWidth) {
  return std::string(width - std::min(text.size(), width), ' ') + text;
}

// The text broken into lines, all but the first indented. A line end replaces the last character of a separator.
std::string Wrapped(std::string text, std::size_t indent, std::string_view separator = " ") {
  std::string lines;
  while (text.size() > Columns) {
    const std::size_t found = text.rfind(separator, Columns + 1 - separator.size());
    if (found == std::string::npos || found <= indent) break;
    const std::size_t end = found + separator.size() - 1;
    lines += text.substr(0, end) + "\n";
    text = std::string(indent, ' ') + text.substr(end + 1);
  }
  return lines + text + "\n";
}

// "12.3": the sum divided by the count, which is positive.
std::string Tenths(std::int64_t sum, std::int64_t count) {
  const std::int64_t tenths = ((sum < 0 ? -sum : sum) * 10 + count / 2) / count;
  return (sum < 0 && tenths > 0 ? "-" : "") + to_string(tenths / 10) + "." + to_string(tenths % 10);
}

// "12.3%". 0.0 and 100.0 mean never and always.
std::string Percent(Long part, Long whole) {
  const std::string share = Tenths(std::int64_t{part} * 100, whole);
  if (share == "0.0" && part > 0) return "<0.1%";
  if (share == "100.0" && part < whole) return ">99.9%";
  return share + "%";
}

std::string_view NameOf(Long type) {
  std::string_view name;
  GetMissionName(type, name);
  return name;
}

bool IsComplete(const Outcome& outcome) {
  return outcome.end == Outcome::End::Complete;
}

// The complete massages with a seed.
using Completed = std::vector<const Outcome*>;

Completed CompletedOf(const Massages& massages) {
  Completed completed;
  for (std::size_t seed = 1; seed < massages.outcomes.size(); ++seed) {
    if (IsComplete(massages.outcomes[seed])) completed.push_back(&massages.outcomes[seed]);
  }
  return completed;
}

template <class Field>
std::int64_t Sum(const Completed& completed, Field field) {
  std::int64_t sum = 0;
  for (const Outcome* outcome : completed) sum += field(*outcome);
  return sum;
}

// Of the massages that keep the player's flight, how many had each value of the field.
template <class Field>
Counted Count(const Completed& completed, Field field) {
  Counted counted;
  for (const Outcome* outcome : completed) {
    if (!outcome->playerRemoved) ++counted[field(*outcome)];
  }
  return counted;
}

// By nearest rank.
template <class Field>
Long Percentile(const Completed& completed, Field field, std::size_t percent) {
  std::vector<Long> values(completed.size());
  std::ranges::transform(completed, values.begin(), [&](const Outcome* outcome) { return field(*outcome); });
  std::ranges::sort(values);
  return values[(values.size() * percent + 99) / 100 - 1];
}

// The most frequent values first.
std::vector<std::pair<Long, Long>> MostFrequent(const Counted& counted) {
  std::vector<std::pair<Long, Long>> values(counted.begin(), counted.end());
  std::ranges::stable_sort(values, std::greater{}, &std::pair<Long, Long>::second);
  return values;
}

std::string Heading(const RunState& opened) {
  const std::string path = Printable(opened.MisPath);
  const std::size_t slash = path.find_last_of("/\\");
  const std::int64_t day = std::int64_t{opened.CampaignDate} - opened.CampaignStart;
  const Long period = opened.WarPeriod;
  const std::string first = period > 0 ? to_string(PeriodStarts[period - 1]) : "";
  const std::string last = period < PeriodsFilled - 1 ? to_string(PeriodStarts[period] - 1) : "";
  const std::string days = first.empty()  ? "up to day " + last
                           : last.empty() ? "from day " + first + " on"
                                          : "days " + first + " to " + last;
  return Wrapped("Velmoran " VELMORAN_VERSION ": the odds of " +
                     (slash == std::string::npos ? path : path.substr(slash + 1)),
                 0) +
         "\n" +
         Wrapped("War period " + to_string(period) + ", " + days + "; this is day " + to_string(day) +
                     ". Of the rows for war periods, only row " + to_string(period) + " counts for this plan.",
                 0);
}

std::string EarlyEnds(const Massages& massages) {
  const Long count = static_cast<Long>(massages.outcomes.size()) - 1;
  Long invalidSize = 0, overflow = 0;
  Counted stoppedAt;
  for (Long seed = 1; seed <= count; ++seed) {
    const Outcome& outcome = massages.outcomes[static_cast<std::size_t>(seed)];
    invalidSize += outcome.end == Outcome::End::InvalidSize ? 1 : 0;
    overflow += outcome.end == Outcome::End::ListOverflow ? 1 : 0;
    if (outcome.end == Outcome::End::InvalidSize) ++stoppedAt[outcome.stoppedAt];
  }
  const Long early = invalidSize + overflow;
  std::string text = "Massages: " + to_string(count) +
                     ". Ended early: " + (early == 0 ? "none" : to_string(early) + " (" + Percent(early, count) + ")") +
                     ".\n";
  if (invalidSize > 0) {
    std::string line = Right(Percent(invalidSize, count)) + "  Invalid number of planes, most often for flight ";
    const auto flights = MostFrequent(stoppedAt);
    for (std::size_t i = 0; i < std::min(flights.size(), FlightsNamed); ++i) {
      line += (i == 0 ? "" : ", ") + to_string(flights[i].first) + " (" + Percent(flights[i].second, count) + ")";
    }
    text += Wrapped(line, NumberWidth + 2);
  }
  if (overflow > 0) text += Right(Percent(overflow, count)) + "  A list of lost escorts or lost rendezvous is full\n";
  if (!massages.shown.empty()) text += "Massages that show a message, and go on:\n";
  for (const auto& [message, shown] : massages.shown) {
    text += Wrapped(Right(Percent(shown, count)) + "  " + message, NumberWidth + 2);
  }
  return text;
}

std::string Totals(const Completed& completed, const Outcome& next) {
  std::string text = Left("", NameWidth) + Right("mean") + Right("5%") + Right("median") + Right("95%") +
                     Right("your next massage", NextWidth) + "\n";
  const auto row = [&](const char* name, auto field) {
    text += Left(name, NameWidth) + Right(Tenths(Sum(completed, field), std::ssize(completed)));
    for (const std::size_t percent : {5U, 50U, 95U}) text += Right(to_string(Percentile(completed, field, percent)));
    text += Right(IsComplete(next) ? to_string(field(next)) : "-", NextWidth) + "\n";
  };
  row("Flights", [](const Outcome& outcome) { return outcome.flights; });
  row("Planes", [](const Outcome& outcome) { return outcome.planes; });
  row("Escort missions", [](const Outcome& outcome) { return outcome.types[TypeEscort]; });
  return text;
}

std::string Types(const RunState& opened, const Completed& completed, const Outcome& next) {
  const std::int64_t count = std::ssize(completed);
  Table<Long, TypesFilled + 1> before{};
  Table<std::int64_t, TypesFilled + 1> sums{};
  for (Long row = 0; row < opened.LoadedCount; ++row) ++before[std::min(opened.Missions[row].MissionType, OtherType)];
  for (Long type = 0; type <= OtherType; ++type) {
    sums[type] = Sum(completed, [type](const Outcome& outcome) { return outcome.types[type]; });
  }
  const std::int64_t scale =
      std::max<std::int64_t>(1, (*std::ranges::max_element(sums) - 1) / (LongestBar * count) + 1);
  std::string text = Left("Mission types", NameWidth) + Right("before") + Right("mean") + Right("next") +
                     "  the mean, with # for " + to_string(scale) + (scale == 1 ? " flight\n" : " flights\n");
  for (Long type = 0; type <= OtherType; ++type) {
    if (before[type] == 0 && sums[type] == 0 && next.types[type] == 0) continue;
    const std::int64_t bar = (2 * sums[type] + scale * count) / (2 * scale * count);
    text += Left(std::string(NameOf(type)), NameWidth) + Right(to_string(before[type])) +
            Right(Tenths(sums[type], count)) + Right(IsComplete(next) ? to_string(next.types[type]) : "-") +
            (bar > 0 ? "  " : "") + std::string(static_cast<std::size_t>(bar), '#') + "\n";
  }
  return text;
}

std::string PlayerFlight(const RunState& opened, const Completed& completed, const Outcome& next) {
  const Long row = PlayerRow(opened);
  if (row < 0) return "Your flight: the plan has none.\n";
  const MissionRec& flight = opened.Missions[row];
  const Long count = static_cast<Long>(completed.size());
  const auto planes = [](Long number) { return to_string(number) + (number == 1 ? " plane" : " planes"); };
  const auto chances = [&](const char* label, const auto& counted, auto name) {
    std::string line = label;
    for (const auto& [value, times] : counted) {
      line += (line == label ? "" : ", ") + name(value) + " " + Percent(times, count);
    }
    return Wrapped(line, LabelWidth, ", ");
  };
  std::string text = "Your flight: " + std::string(NameOf(flight.MissionType)) + ", " + planes(flight.NumAircraft) +
                     ", flight " + to_string(row) + " of the plan\n";
  text += chances("  Mission      ",
                  MostFrequent(Count(completed, [](const Outcome& outcome) { return outcome.playerType; })),
                  [](Long type) { return std::string(NameOf(type)); });
  text +=
      chances("  Size         ", Count(completed, [](const Outcome& outcome) { return outcome.playerPlanes; }), planes);
  const auto removed = Sum(completed, [](const Outcome& outcome) { return outcome.playerRemoved ? 1 : 0; });
  text += "  Removed      " + Percent(static_cast<Long>(removed), count) + "\n";
  const auto lost = Sum(completed, [](const Outcome& outcome) { return outcome.playerEscortLost ? 1 : 0; });
  const bool escorted = std::any_of(opened.Missions.begin(), opened.Missions.begin() + opened.LoadedCount,
                                    [&](const MissionRec& other) { return Escorts(other, opened, row); });
  text += "  Escort lost  " + (escorted ? Percent(static_cast<Long>(lost), count) : "it has no escort") + "\n";
  if (!IsComplete(next)) return text;
  return text + "  Next massage " +
         (next.playerRemoved ? "removed" : std::string(NameOf(next.playerType)) + ", " + planes(next.playerPlanes)) +
         "\n";
}

}  // namespace

std::string Summary(const RunState& opened, const Massages& massages, const std::vector<std::string>& warnings) {
  const Outcome& next = massages.outcomes[0];
  const Completed completed = CompletedOf(massages);
  std::string text = Heading(opened) + "\n" + EarlyEnds(massages);
  if (next.end == Outcome::End::InvalidSize) {
    text += "Your next massage ends early: Invalid number of planes for flight" + to_string(next.stoppedAt) + "\n";
  } else if (next.end == Outcome::End::ListOverflow) {
    text += "Your next massage ends early: a list of lost escorts or lost rendezvous is full\n";
  }
  if (!completed.empty()) {
    text += "\n" + Totals(completed, next) + "\n" + Types(opened, completed, next) + "\n" +
            PlayerFlight(opened, completed, next);
  }
  text += "\n";
  for (std::size_t i = 0; i < std::min(warnings.size(), WarningsPrinted); ++i) {
    text += Wrapped("Warning " + to_string(i + 1) + ": " + warnings[i], 2);
  }
  if (warnings.size() > WarningsPrinted) {
    text += "And " + to_string(warnings.size() - WarningsPrinted) + " more: correct these first.\n";
  }
  if (warnings.empty()) text += "No warnings about the setup files.\n";
  return text + "\nThese are chances, not your day.\n";
}

std::string Csv(const RunState& opened, const Massages& massages) {
  std::string text = "seed,ended,flights,planes,escorts,player_type,player_planes,player_removed,messages";
  for (Long type = 0; type < TypesFilled; ++type) text += ",type" + to_string(type);
  text += '\n';
  const bool player = PlayerRow(opened) >= 0;
  constexpr std::array<const char*, 3> Ends{"complete", "invalid size", "list overflow"};
  for (std::size_t seed = 0; seed < massages.outcomes.size(); ++seed) {
    const Outcome& outcome = massages.outcomes[seed];
    const bool complete = IsComplete(outcome), flies = complete && player && !outcome.playerRemoved;
    const auto field = [&text](bool given, Long value) { text += "," + (given ? to_string(value) : ""); };
    text += to_string(seed) + "," + Ends[static_cast<std::size_t>(outcome.end)];
    field(complete, outcome.flights);
    field(complete, outcome.planes);
    field(complete, outcome.types[TypeEscort]);
    field(flies, outcome.playerType);
    field(flies, outcome.playerPlanes);
    field(complete && player, outcome.playerRemoved ? 1 : 0);
    field(complete, outcome.messages);
    for (Long type = 0; type < TypesFilled; ++type) field(complete, outcome.types[type]);
    text += '\n';
  }
  return text;
}

}  // namespace velmoran
