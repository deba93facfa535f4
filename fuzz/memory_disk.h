// The files of a run, in memory instead of on disk.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "state/types.h"

namespace fuzz {

using Bytes = std::vector<velmoran::Byte>;
using Files = std::map<std::string, Bytes, std::less<>>;  // by the name without its folders

extern Files files;
extern bool diskIsFull;  // a file written then is cut in half

// Splits a fuzzer's input at each Cut.
std::vector<Bytes> Parts(const velmoran::Byte* data, std::size_t size);
inline constexpr std::string_view Cut = "\xFE\xFD<cut>";

}  // namespace fuzz
