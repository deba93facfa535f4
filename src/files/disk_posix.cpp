#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
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

// The name of the folder's entry that has this name, exactly or but for case; the name itself if there is none.
fs::path EntryLike(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return name;
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

std::string Locate(std::string_view path, Name name) {
  std::error_code error;
  std::string spelling(path);
  if (!fs::exists(spelling, error)) std::ranges::replace(spelling, '\\', '/');
  const fs::path meant(spelling);
  fs::path found = meant.is_absolute() ? fs::path() : fs::path(CurrentDirectory());
  for (auto part = meant.begin(); part != meant.end(); ++part) {
    if (*part == ".") continue;
    if (*part == ".." && fs::symlink_status(found, error).type() == fs::file_type::directory) {
      found = found.parent_path();
    } else if (name == Name::Exact && std::next(part) == meant.end()) {
      found /= *part;
    } else {
      found /= EntryLike(found, *part);
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

// While one exists, signals that ask the program to end are only noted, in any thread, and a file that exceeds the
// limit on file sizes is an error of write() instead of a signal. The last signal noted is raised afterwards.
class SignalsHeld {
 public:
  SignalsHeld() {
    noted = 0;
    struct sigaction note {};
    note.sa_handler = [](int signal) { noted = signal; };
    note.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Ending.size(); ++i) {
      sigaction(Ending[i], nullptr, &before_[i]);
      // A signal that the program ignores must not take the place of another.
      if (before_[i].sa_handler != SIG_IGN) sigaction(Ending[i], &note, nullptr);
    }
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGXFSZ, &ignore, &beforeLimit_);
  }
  ~SignalsHeld() {
    sigaction(SIGXFSZ, &beforeLimit_, nullptr);
    for (std::size_t i = 0; i < Ending.size(); ++i) sigaction(Ending[i], &before_[i], nullptr);
    if (noted != 0) raise(noted);
  }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  static constexpr std::array Ending{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU, SIGALRM, SIGUSR1, SIGVTALRM, SIGUSR2};
  static inline volatile std::sig_atomic_t noted = 0;
  std::array<struct sigaction, Ending.size()> before_{};
  struct sigaction beforeLimit_ {};
};

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

InputFile::InputFile(std::string_view path, std::string_view adviceIfMissing) : path_(Locate(path, Name::Matched)) {
  Handle file(Open(path_, O_RDONLY));
  if (file.number < 0) throw CannotOpen(path_, ReasonFor(errno), adviceIfMissing);
  if (const int error = CheckRegular(file.number)) throw CannotOpen(path_, ReasonFor(error), adviceIfMissing);
  handle_ = std::exchange(file.number, -1);
}

InputFile::~InputFile() {
  close(static_cast<int>(handle_));
}

std::vector<Byte> InputFile::ReadAll() const {
  const int file = static_cast<int>(handle_);
  struct stat status;
  if (fstat(file, &status) != 0) throw CannotRead(path_, ReasonFor(errno));
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > LargestFile) throw TooLarge(path_);

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
  Handle file(Open(path, O_WRONLY | O_CREAT | O_TRUNC));
  if (file.number < 0) {
    const int error = errno;
    throw CannotOpenForWriting(path, error == ENOENT || error == ENOTDIR ? FolderDoesNotExist() : ReasonFor(error));
  }
  if (const int error = CheckRegular(file.number)) throw CannotOpenForWriting(path, ReasonFor(error));

  const std::size_t written = WriteAll(file.number, bytes);
  if (written < bytes.size()) throw CutShort(path, written, bytes.size(), ReasonFor(errno));
  if (flush == Flush::ToDisk && !FlushToDisk(file.number)) throw NotStored(path, ReasonFor(errno));
  if (!file.Close()) throw NotStored(path, ReasonFor(errno));
}

}  // namespace velmoran
