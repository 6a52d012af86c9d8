#include "tests/faults/system_faults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <ifaddrs.h>
#include <netdb.h>
#include <poll.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kShort = -1;  // no error: a part is done

struct ErrorName {
  const char* name;
  int number;
};
constexpr auto kErrors = std::to_array<ErrorName>({
    {"EACCES", EACCES},
    {"EADDRINUSE", EADDRINUSE},
    {"EAGAIN", EAGAIN},
    {"EBUSY", EBUSY},
    {"ECONNREFUSED", ECONNREFUSED},
    {"EDQUOT", EDQUOT},
    {"EEXIST", EEXIST},
    {"EHOSTUNREACH", EHOSTUNREACH},
    {"EINTR", EINTR},
    {"EINVAL", EINVAL},
    {"EIO", EIO},
    {"EMFILE", EMFILE},
    {"ENETDOWN", ENETDOWN},
    {"ENETUNREACH", ENETUNREACH},
    {"ENOBUFS", ENOBUFS},
    {"ENODEV", ENODEV},
    {"ENOENT", ENOENT},
    {"ENOMEM", ENOMEM},
    {"ENOSPC", ENOSPC},
    {"ENOSYS", ENOSYS},
    {"EPERM", EPERM},
    {"EROFS", EROFS},
    {"ESTALE", ESTALE},
    {"EXDEV", EXDEV},
    {"SHORT", kShort},
});

// What was ordered. Written while no call is under way but those of other threads, which then go by the one
// or the other.
struct Order {
  char kind[16] = "";
  int nth = 0;  // none: nothing fails
  bool goesOn = false;
  int error = 0;
  bool counts = false;  // and reports each call
};
Order order;
std::atomic<int> seen = 0;
std::atomic<int> struck = 0;

char below[PATH_MAX] = "";
int report = -1;

// Files that were opened below the folder.
constexpr int kMostFiles = 1024;
std::array<std::atomic<bool>, kMostFiles> isBelow;

int NumberOfError(const char* name) {
  for (const ErrorName& error : kErrors)
    if (std::strcmp(error.name, name) == 0) return error.number;
  return EIO;
}

// By the system itself, since the calls of the C library are ours. So nothing else here may allocate, either.
void Report(const char* kind, const char* name) {
  if (report < 0) return;
  char line[PATH_MAX + 32];
  const int length = std::snprintf(line, sizeof line, "%s %s\n", kind, name);
  syscall(SYS_write, report, line, static_cast<std::size_t>(length));
}

void Take(const char* text) {
  order.nth = 0;
  seen = 0;
  Order taken;
  if (std::strcmp(text, "count") == 0) {
    taken.counts = true;
  } else if (*text != '\0') {
    char more[2] = "";
    char error[16] = "";
    if (std::sscanf(text, "%15[a-z]:%d%1[+]:%15s", taken.kind, &taken.nth, more, error) < 4)
      std::sscanf(text, "%15[a-z]:%d:%15s", taken.kind, &taken.nth, error);
    taken.goesOn = *more == '+';
    taken.error = NumberOfError(error);
  }
  order = taken;
}

const char* Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

// In front of what the program itself does at its start.
__attribute__((constructor)) void Begin() {
  std::snprintf(below, sizeof below, "%s", Environment("LUMARINE_FAULT_BELOW"));
  const char* const file = Environment("LUMARINE_FAULT_REPORT");
  if (*file != '\0') {
    // Behind all numbers that a program counts on.
    constexpr int kNumber = 900;
    const long opened = syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    report = static_cast<int>(syscall(SYS_dup3, opened, kNumber, O_CLOEXEC));
    syscall(SYS_close, opened);
  }
  Take(Environment("LUMARINE_FAULT"));
}

bool NamesBelow(const char* name) {
  return name != nullptr && std::strncmp(name, below, std::strlen(below)) == 0;
}

bool HoldsBelow(int file) {
  return file >= 0 && file < kMostFiles && isBelow[static_cast<std::size_t>(file)];
}

// Every call passes here first. Whether it is to fail, for which errno is set; `concerned`: it counts at all.
bool Strikes(const char* kind, const char* name, bool concerned) {
  if (*below != '\0' && !concerned) return false;
  if (order.counts) Report(kind, name);
  if (order.nth == 0 || (std::strcmp(order.kind, kind) != 0 && std::strcmp(order.kind, "any") != 0))
    return false;
  const int number = ++seen;
  if (number != order.nth && !(order.goesOn && number > order.nth)) return false;
  ++struck;
  Report(kind, name);
  errno = order.error;
  return true;
}

bool Strikes(const char* kind, const char* name) {
  return Strikes(kind, name != nullptr ? name : "", NamesBelow(name));
}

bool Strikes(const char* kind, int file) {
  char link[32];
  std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
  char name[PATH_MAX] = "";
  const int before = errno;
  if (order.nth != 0 || order.counts) syscall(SYS_readlink, link, name, sizeof name - 1);
  errno = before;
  return Strikes(kind, name, HoldsBelow(file));
}

bool IsShort() {
  return errno == kShort;
}

// The C library's own.
template <class Function>
Function* Real(const char* name, Function*) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define REAL(name) static auto* const real = Real(#name, &name)

int Opened(int file, const char* name) {
  if (file >= 0 && file < kMostFiles) isBelow[static_cast<std::size_t>(file)] = NamesBelow(name);
  return file;
}

bool TakesMode(int flags) {
  return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

mode_t ModeOf(int flags, va_list& rest) {
  return TakesMode(flags) ? va_arg(rest, mode_t) : 0;
}

}  // namespace

void system_faults_order(const char* text) {
  Take(text);
}

void system_faults_below(const char* folder) {
  std::snprintf(below, sizeof below, "%s", folder);
}

int system_faults_struck() {
  return struck;
}

extern "C" {

// Calls that take the name of a file and answer -1.
#define NAMED(kind, name, path, answer, parameters, arguments) \
  answer name parameters {                                     \
    REAL(name);                                                \
    if (Strikes(kind, path)) return -1;                        \
    return real arguments;                                     \
  }
// Calls that take an open file and answer -1.
#define HELD(kind, name, answer, parameters, arguments) \
  answer name parameters {                              \
    REAL(name);                                         \
    if (Strikes(kind, file)) return -1;                 \
    return real arguments;                              \
  }

#define OPEN(name)                                \
  int name(const char* path, int flags, ...) {    \
    REAL(name);                                   \
    va_list rest;                                 \
    va_start(rest, flags);                        \
    const mode_t mode = ModeOf(flags, rest);      \
    va_end(rest);                                 \
    if (Strikes("open", path)) return -1;         \
    return Opened(real(path, flags, mode), path); \
  }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                       \
  int name(int folder, const char* path, int flags, ...) { \
    REAL(name);                                            \
    va_list rest;                                          \
    va_start(rest, flags);                                 \
    const mode_t mode = ModeOf(flags, rest);               \
    va_end(rest);                                          \
    if (Strikes("open", path)) return -1;                  \
    return Opened(real(folder, path, flags, mode), path);  \
  }
OPENAT(openat)
OPENAT(openat64)

#define FOPEN(name)                                      \
  FILE* name(const char* path, const char* mode) {       \
    REAL(name);                                          \
    if (Strikes("open", path)) return nullptr;           \
    FILE* const stream = real(path, mode);               \
    if (stream != nullptr) Opened(fileno(stream), path); \
    return stream;                                       \
  }
FOPEN(fopen)
FOPEN(fopen64)

HELD("read", read, ssize_t, (int file, void* bytes, size_t size), (file, bytes, size))
HELD("read", readv, ssize_t, (int file, const iovec* pieces, int count), (file, pieces, count))

ssize_t write(int file, const void* bytes, size_t size) {
  REAL(write);
  if (!Strikes("write", file)) return real(file, bytes, size);
  return IsShort() && size > 1 ? real(file, bytes, size / 2) : -1;
}

ssize_t writev(int file, const iovec* pieces, int count) {
  REAL(writev);
  if (!Strikes("write", file)) return real(file, pieces, count);
  return IsShort() && count > 1 ? real(file, pieces, 1) : -1;
}

HELD("sync", fsync, int, (int file), (file))
HELD("sync", fdatasync, int, (int file), (file))

// As on Linux: what cannot be closed is closed all the same.
int close(int file) {
  REAL(close);
  const bool fails = file != report && Strikes("close", file);
  const int error = errno;
  Opened(file, nullptr);
  const int closed = real(file);
  if (fails) errno = error;
  return fails ? -1 : closed;
}

int fclose(FILE* stream) {
  REAL(fclose);
  const int file = fileno(stream);
  const bool fails = Strikes("close", file);
  const int error = errno;
  Opened(file, nullptr);
  const int closed = real(stream);
  if (fails) errno = error;
  return fails ? EOF : closed;
}

NAMED("rename", rename, from, int, (const char* from, const char* to), (from, to))
NAMED("link", link, from, int, (const char* from, const char* to), (from, to))
NAMED("link", symlink, to, int, (const char* from, const char* to), (from, to))
NAMED("unlink", unlink, path, int, (const char* path), (path))
NAMED("unlink", unlinkat, path, int, (int folder, const char* path, int flags), (folder, path, flags))
NAMED("unlink", remove, path, int, (const char* path), (path))
NAMED("mkdir", mkdir, path, int, (const char* path, mode_t mode), (path, mode))
NAMED("stat", stat, path, int, (const char* path, struct stat* facts), (path, facts))
NAMED("stat", lstat, path, int, (const char* path, struct stat* facts), (path, facts))
NAMED("stat", access, path, int, (const char* path, int mode), (path, mode))
NAMED("stat", faccessat, path, int, (int folder, const char* path, int mode, int flags),
      (folder, path, mode, flags))
HELD("stat", fstat, int, (int file, struct stat* facts), (file, facts))
HELD("stat", fstat64, int, (int file, struct stat64* facts), (file, facts))
NAMED("readlink", readlink, path, ssize_t, (const char* path, char* target, size_t room),
      (path, target, room))
HELD("chmod", fchmod, int, (int file, mode_t mode), (file, mode))
HELD("chmod", fchown, int, (int file, uid_t owner, gid_t group), (file, owner, group))
HELD("lock", flock, int, (int file, int what), (file, what))

char* realpath(const char* path, char* target) {
  REAL(realpath);
  return Strikes("readlink", path) ? nullptr : real(path, target);
}

DIR* opendir(const char* path) {
  REAL(opendir);
  return Strikes("folder", path) ? nullptr : real(path);
}

// The network. Nothing of it concerns a folder.

int socket(int family, int type, int protocol) {
  REAL(socket);
  return Strikes("socket", "") ? -1 : real(family, type, protocol);
}
HELD("setsockopt", setsockopt, int, (int file, int level, int option, const void* value, socklen_t size),
     (file, level, option, value, size))
HELD("bind", bind, int, (int file, const sockaddr* address, socklen_t size), (file, address, size))
HELD("connect", connect, int, (int file, const sockaddr* address, socklen_t size), (file, address, size))
HELD("getsockname", getsockname, int, (int file, sockaddr* address, socklen_t* size), (file, address, size))
HELD("send", sendto, ssize_t,
     (int file, const void* bytes, size_t size, int flags, const sockaddr* to, socklen_t length),
     (file, bytes, size, flags, to, length))
HELD("receive", recvfrom, ssize_t,
     (int file, void* bytes, size_t size, int flags, sockaddr* from, socklen_t* length),
     (file, bytes, size, flags, from, length))

int fcntl(int file, int command, ...) {
  REAL(fcntl);
  va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  return Strikes("fcntl", file) ? -1 : real(file, command, argument);
}

int getifaddrs(ifaddrs** list) {
  REAL(getifaddrs);
  return Strikes("adapters", "") ? -1 : real(list);
}

int getnameinfo(const sockaddr* address, socklen_t size, char* host, socklen_t hostSize, char* service,
                socklen_t serviceSize, int flags) {
  REAL(getnameinfo);
  if (Strikes("name", "")) return EAI_SYSTEM;
  return real(address, size, host, hostSize, service, serviceSize, flags);
}

int poll(pollfd* files, nfds_t count, int milliseconds) {
  REAL(poll);
  return Strikes("poll", "") ? -1 : real(files, count, milliseconds);
}

// Other programs.

int pipe2(int* ends, int flags) {
  REAL(pipe2);
  return Strikes("pipe", "") ? -1 : real(ends, flags);
}

int posix_spawnp(pid_t* child, const char* program, const posix_spawn_file_actions_t* actions,
                 const posix_spawnattr_t* attributes, char* const* arguments, char* const* variables) {
  REAL(posix_spawnp);
  if (Strikes("spawn", program)) return errno;
  return real(child, program, actions, attributes, arguments, variables);
}

pid_t waitpid(pid_t child, int* status, int options) {
  REAL(waitpid);
  return Strikes("wait", "") ? -1 : real(child, status, options);
}

// What reads and changes a terminal, and asks what is held: of no file of the user's.

int uname(struct utsname* facts) {
  REAL(uname);
  return Strikes("system", "") ? -1 : real(facts);
}

int gethostname(char* name, size_t room) {
  REAL(gethostname);
  return Strikes("system", "") ? -1 : real(name, room);
}
}
