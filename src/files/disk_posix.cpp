#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

#include "files/disk.h"
#include "files/disk_failure.h"

namespace velmoran {

namespace {

namespace fs = std::filesystem;

Reason ReasonFor(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return DoesNotExist();
    case EACCES:
    case EPERM:
    case EROFS:
      return PermissionDenied();
    case ENOSPC:
    case EDQUOT:
      return DiskIsFull();
    case EFBIG:
      return FileSizeLimit();
    case EISDIR:
      return IsAFolder();
    case ENXIO:  // a pipe that nobody reads, a socket
      return NotARegularFile();
    case EILSEQ:
    case ENAMETOOLONG:
      return InvalidName();
    default:
      return SystemError(static_cast<unsigned long>(error));
  }
}

// Whether the folder has an entry of exactly this name, be it a link that leads nowhere.
bool IsThere(const fs::path& entry) {
  std::error_code error;
  const fs::file_type type = fs::symlink_status(entry, error).type();
  return type != fs::file_type::not_found && type != fs::file_type::none;
}

// Returns the entry of the folder whose name differs only in case, the first in byte order if there are several, and
// the name itself if there is none.
fs::path EntryLike(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  fs::path match;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    if (SameButForCase(candidate.native(), name.native()) && (match.empty() || candidate < match)) {
      match = candidate;
    }
  }
  return match.empty() ? name : match;
}

enum class Name { Matched, Exact };  // how the last component is found

// Goes on from found to one more component, as the folder has it.
void Append(fs::path& found, const fs::path& part, Name name) {
  std::error_code error;
  if (part == ".") return;
  if (part == ".." && fs::symlink_status(found, error).type() == fs::file_type::directory) {
    found = found.parent_path();
  } else {
    found /= name == Name::Exact || IsThere(found / part) ? part : EntryLike(found, part);
  }
}

// Returns the whole path, each component as its folder has it. A component that isn't there and has a "\" is taken for
// several components, as the same path is on Windows.
std::string Locate(std::string_view path, Name name) {
  if (path.size() >= PATH_MAX) return std::string(path);  // which the system refuses
  const fs::path given(path);
  fs::path found = given.is_absolute() ? fs::path() : fs::path(CurrentDirectory());
  for (auto part = given.begin(); part != given.end(); ++part) {
    if (part->empty()) found /= "";  // the path ends in a "/"
    std::string slashes = part->native();
    if (!IsThere(found / *part)) std::ranges::replace(slashes, '\\', '/');
    const fs::path components = part == given.begin() ? fs::path(slashes) : fs::path(slashes).relative_path();
    for (auto component = components.begin(); component != components.end(); ++component) {
      const bool last = std::next(part) == given.end() && std::next(component) == components.end();
      Append(found, *component, last ? name : Name::Matched);
    }
  }
  return found.string();
}

struct Handle {
  explicit Handle(int opened) : number(opened) {}
  ~Handle() {
    if (number >= 0) close(number);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  // Closes it now. Returns whether that succeeded.
  bool Close() { return close(std::exchange(number, -1)) == 0; }

  int number;
};

int Open(const std::string& path, int flags) {
  if (path.find('\0') != std::string::npos) {  // the system would take the path to end there
    errno = EILSEQ;
    return -1;
  }
  constexpr mode_t Mode = 0666;  // of a new file, before the user's umask
  int file;
  do {  // O_NONBLOCK, because opening a pipe would wait for its other end
    file = open(path.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, Mode);
  } while (file < 0 && errno == EINTR);
  return file;
}

// 0 for a regular file, else a value of errno.
int CheckRegular(int file) {
  struct stat status;
  if (fstat(file, &status) != 0) return errno;
  return S_ISREG(status.st_mode) ? 0 : S_ISDIR(status.st_mode) ? EISDIR : ENXIO;
}

// While one exists, no signal ends or stops the program, in any thread: each is noted and raised again afterwards, when
// it does what it would have done before. Left out are those that can't be held (SIGKILL, SIGSTOP, the two that the C
// library keeps for itself), and those that report a fault of the program. Writing past the limit on file sizes is an
// error of write() instead of a signal.
class SignalsHeld {
 public:
  SignalsHeld() {
    struct sigaction note {};
    note.sa_handler = [](int signal) { noted[static_cast<std::size_t>(signal)] = 1; };
    note.sa_flags = SA_RESTART;
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    for (int signal = 1; signal < NSIG; ++signal) {
      const auto place = static_cast<std::size_t>(signal);
      noted[place] = 0;
      held_[place] = !IsFault(signal) && sigaction(signal, signal == SIGXFSZ ? &ignore : &note, &before_[place]) == 0;
    }
  }
  ~SignalsHeld() {
    for (int signal = 1; signal < NSIG; ++signal) {
      const auto place = static_cast<std::size_t>(signal);
      if (held_[place]) sigaction(signal, &before_[place], nullptr);
    }
    for (int signal = 1; signal < NSIG; ++signal) {
      if (noted[static_cast<std::size_t>(signal)] != 0) raise(signal);
    }
  }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  static bool IsFault(int signal) {
    constexpr std::array Faults{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS};
    return std::ranges::find(Faults, signal) != Faults.end();
  }

  static inline std::array<volatile std::sig_atomic_t, NSIG> noted{};  // by number
  std::array<bool, NSIG> held_{};
  std::array<struct sigaction, NSIG> before_{};
};

// Waits until no other Velmoran is writing the file; the lock lasts until the file is closed. Returns false if another
// program has kept it locked for some seconds. A file system without locks counts as locked.
bool Lock(int file) {
  constexpr int Tries = 50;
  constexpr timespec Pause{0, 100'000'000};  // a tenth of a second
  for (int tried = 0; tried < Tries; ++tried) {
    if (flock(file, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR)) return true;
    nanosleep(&Pause, nullptr);
  }
  return false;
}

// Cuts the file to its first bytes. If that fails, errno has the reason.
bool CutTo(int file, std::size_t size) {
  int result;
  do {
    result = ftruncate(file, static_cast<off_t>(size));
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

// Returns how many bytes the system has written. If that isn't all, errno has the reason.
std::size_t WriteAll(int file, std::span<const Byte> bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {  // once, unless the system writes only a part
    const ssize_t count = write(file, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  return written;
}

bool FlushToDisk(int file) {
  int result;
  do {
    result = fsync(file);
  } while (result != 0 && errno == EINTR);
  return result == 0 || errno == EINVAL || errno == ENOTSUP;  // not every file system supports it
}

}  // namespace

std::string CurrentDirectory() {
  std::error_code error;
  return fs::current_path(error).string();
}

InputFile::InputFile(std::string_view path, std::string_view advice) : path_(Locate(path, Name::Matched)) {
  Handle file(Open(path_, O_RDONLY));
  if (file.number < 0) throw CannotOpen(path_, ReasonFor(errno), advice);
  if (const int error = CheckRegular(file.number)) throw CannotOpen(path_, ReasonFor(error), advice);
  handle_ = std::exchange(file.number, -1);
}

InputFile::~InputFile() {
  close(static_cast<int>(handle_));
}

std::vector<Byte> InputFile::ReadAll(std::size_t mostBytes) const {
  const int file = static_cast<int>(handle_);
  struct stat status;
  if (fstat(file, &status) != 0) throw CannotRead(path_, ReasonFor(errno));
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > mostBytes) throw TooLarge(path_, mostBytes);

  std::vector<Byte> bytes(size);
  std::size_t taken = 0;
  do {  // once, unless the system reads only a part
    const ssize_t count = read(file, bytes.data() + taken, size - taken);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw CannotRead(path_, ReasonFor(errno));
    if (count == 0) break;
    taken += static_cast<std::size_t>(count);
  } while (taken < size);
  bytes.resize(taken);  // another program may have shortened it since
  return bytes;
}

std::string PathForReport(std::string_view path) {
  return Locate(path, Name::Exact);
}

void WriteFile(const std::string& path, std::span<const Byte> bytes, Flush flush) {
  const SignalsHeld held;
  Handle file(Open(path, O_WRONLY | O_CREAT));
  if (file.number < 0) {
    const int error = errno;
    throw CannotOpenForWriting(path, error == ENOENT || error == ENOTDIR ? FolderDoesNotExist() : ReasonFor(error));
  }
  if (const int error = CheckRegular(file.number)) throw CannotOpenForWriting(path, ReasonFor(error));
  if (!Lock(file.number)) throw CannotOpenForWriting(path, InUse());

  // From here on the file changes.
  if (!CutTo(file.number, 0)) throw NotStored(path, ReasonFor(errno));
  const std::size_t written = WriteAll(file.number, bytes);
  if (written < bytes.size()) throw CutShort(path, written, bytes.size(), ReasonFor(errno));
  // Another program may have made it longer meanwhile.
  if (!CutTo(file.number, written)) throw NotStored(path, ReasonFor(errno));
  if (flush == Flush::ToDisk && !FlushToDisk(file.number)) throw NotStored(path, ReasonFor(errno));
  if (!file.Close()) throw NotStored(path, ReasonFor(errno));
}

}  // namespace velmoran
