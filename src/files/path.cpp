#include "files/path.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace velmoran {

namespace fs = std::filesystem;

std::string DropLastCharacters(std::string_view text, int count) {
  const auto continues = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  for (; count > 0 && !text.empty(); --count) {
    while (text.size() > 1 && continues(text.back())) text.remove_suffix(1);
    text.remove_suffix(1);
  }
  return std::string(text);
}

std::string_view FileName(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

bool SameButForCase(std::string_view one, std::string_view other) {
  const auto small = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(one, other, {}, small, small);
}

namespace {

#ifdef _WIN32

fs::path AsWritten(std::string_view path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

fs::path AsMeant(std::string_view path) {
  return AsWritten(path);
}

std::FILE* Open(const fs::path& path, const wchar_t* mode) {
  return _wfopen(path.c_str(), mode);
}

constexpr auto ReadMode = L"rb", WriteMode = L"wb";

#else

// The entry of the directory that the name means; the name itself when there is none.
fs::path EntryLike(const fs::path& directory, const fs::path& name) {
  std::error_code error;
  if (fs::exists(directory / name, error)) return name;
  fs::path match;
  fs::directory_iterator entry(directory.empty() ? "." : directory, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    if (SameButForCase(candidate.native(), name.native()) && (match.empty() || candidate < match)) {
      match = candidate;
    }
  }
  return match.empty() ? name : match;
}

fs::path AsWritten(std::string_view path) {
  return fs::path(path);
}

fs::path AsMeant(std::string_view path) {
  std::string slashed(path);
  std::ranges::replace(slashed, '\\', '/');
  fs::path meant;
  for (const fs::path& component : fs::path(slashed)) meant /= EntryLike(meant, component);
  return meant;
}

std::FILE* Open(const fs::path& path, const char* mode) {
  return std::fopen(path.c_str(), mode);
}

constexpr auto ReadMode = "rb", WriteMode = "wb";

#endif

struct Located {
  fs::path path;
  fs::file_status status;
};

Located Locate(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) return {};  // the system would take what stands before it
  std::error_code error;                                     // what can't be looked at fails when it is opened
  fs::path written = AsWritten(path);
  if (const fs::file_status status = fs::status(written, error); fs::exists(status)) return {written, status};
  fs::path meant = AsMeant(path);
  const fs::file_status status = fs::status(meant, error);
  return {meant, status};
}

}  // namespace

OpenFile OpenForReading(std::string_view path) {
  const Located file = Locate(path);
  if (fs::exists(file.status) && !fs::is_regular_file(file.status)) {
    errno = fs::is_directory(file.status) ? EISDIR : EOPNOTSUPP;
    return nullptr;
  }
  return OpenFile(Open(file.path, ReadMode));
}

OpenFile OpenForWriting(std::string_view path) {
  return OpenFile(Open(Locate(path).path, WriteMode));
}

}  // namespace velmoran
