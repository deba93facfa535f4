#include "files/path.h"

#include <algorithm>
#include <cerrno>

#ifdef _WIN32
#include <sys/stat.h>

#include "files/utf16.h"
#else
#include <filesystem>
#include <system_error>
#endif

namespace velmoran {

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

enum class Kind { Nothing, RegularFile, Directory, Other };

#ifdef _WIN32

using SystemPath = std::wstring;
constexpr auto ReadMode = L"rb", WriteMode = L"wb";

SystemPath AsWritten(std::string_view path) {
  return ToUtf16(path);
}

SystemPath AsMeant(std::string_view path) {
  return AsWritten(path);
}

Kind KindOf(const SystemPath& path) {
  struct _stat64 status;
  if (_wstat64(path.c_str(), &status) != 0) return Kind::Nothing;
  const auto type = status.st_mode & S_IFMT;
  return type == S_IFREG ? Kind::RegularFile : type == S_IFDIR ? Kind::Directory : Kind::Other;
}

std::FILE* Open(const SystemPath& path, const wchar_t* mode) {
  return _wfopen(path.c_str(), mode);
}

#else

namespace fs = std::filesystem;

using SystemPath = fs::path;
constexpr auto ReadMode = "rb", WriteMode = "wb";

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

SystemPath AsWritten(std::string_view path) {
  return path;
}

SystemPath AsMeant(std::string_view path) {
  std::string slashed(path);
  std::ranges::replace(slashed, '\\', '/');
  fs::path meant;
  for (const fs::path& component : fs::path(slashed)) meant /= EntryLike(meant, component);
  return meant;
}

Kind KindOf(const SystemPath& path) {
  std::error_code error;  // what can't be looked at fails when it is opened
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return Kind::Nothing;
  return fs::is_regular_file(status) ? Kind::RegularFile : fs::is_directory(status) ? Kind::Directory : Kind::Other;
}

std::FILE* Open(const SystemPath& path, const char* mode) {
  return std::fopen(path.c_str(), mode);
}

#endif

struct Located {
  SystemPath path;
  Kind kind;
};

Located Locate(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) return {};  // the system would take what stands before it
  SystemPath written = AsWritten(path);
  if (const Kind kind = KindOf(written); kind != Kind::Nothing) return {written, kind};
  SystemPath meant = AsMeant(path);
  const Kind kind = KindOf(meant);
  return {meant, kind};
}

}  // namespace

std::string CurrentDirectory() {
#ifdef _WIN32
  std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
  path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
  return ToUtf8(path);
#else
  std::error_code error;
  return fs::current_path(error).string();
#endif
}

OpenFile OpenForReading(std::string_view path) {
  const auto [file, kind] = Locate(path);
  if (kind == Kind::Directory || kind == Kind::Other) {
    errno = kind == Kind::Directory ? EISDIR : EOPNOTSUPP;
    return nullptr;
  }
  return OpenFile(Open(file, ReadMode));
}

OpenFile OpenForWriting(std::string_view path) {
  return OpenFile(Open(Locate(path).path, WriteMode));
}

}  // namespace velmoran
