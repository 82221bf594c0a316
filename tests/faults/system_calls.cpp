// System calls on files that can fail.
#include "tests/faults/system_calls.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace brindlemoor {
namespace {

bool armed = false;
int calls = 0;
int failing = 0;
Fault kind = Fault::kNone;
bool full = false;  ///< the disk has become full

/// The system's own function of a name.
template <class Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int ErrorOf(Fault fault) {
  switch (fault) {
    case Fault::kNoRights:
      return EACCES;
    case Fault::kInputError:
      return EIO;
    default:
      return ENOSPC;
  }
}

/// Counts a call; true when it fails, with errno set.
bool Fails() {
  if (!armed || ++calls != failing || kind == Fault::kNone) return false;
  if (kind == Fault::kKill) _exit(0);
  errno = ErrorOf(kind);
  return true;
}

}  // namespace

void ArmFault(int call, Fault fault) {
  calls = 0;
  failing = call;
  kind = fault;
  full = false;
  armed = true;
}

int DisarmFault() {
  armed = false;
  return calls;
}

}  // namespace brindlemoor

using brindlemoor::Fails;
using brindlemoor::Fault;
using brindlemoor::Real;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : mode_t{0};
  va_end(arguments);
  static auto* const real = Real<int(const char*, int, ...)>("open");
  return Fails() ? -1 : real(path, flags, mode);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
  static auto* const real = Real<ssize_t(int, void*, size_t)>("read");
  return Fails() ? -1 : real(descriptor, bytes, size);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
  static auto* const real = Real<ssize_t(int, const void*, size_t)>("write");
  if (brindlemoor::armed && brindlemoor::full) {
    errno = ENOSPC;
    return -1;
  }
  if (!Fails()) return real(descriptor, bytes, size);
  if (brindlemoor::kind != Fault::kPartWritten) return -1;
  brindlemoor::full = true;
  return real(descriptor, bytes, size / 2);
}

/// Only counted: what a killed process has written stays with the system, and flushing takes long.
int fsync(int /*descriptor*/) { return Fails() ? -1 : 0; }

int close(int descriptor) {
  static auto* const real = Real<int(int)>("close");
  const bool fails = Fails();
  const int error = errno;
  const int result = real(descriptor);
  if (fails) errno = error;
  return fails ? -1 : result;
}

int rename(const char* from, const char* to) {
  static auto* const real = Real<int(const char*, const char*)>("rename");
  return Fails() ? -1 : real(from, to);
}

int mkdir(const char* path, mode_t mode) {
  static auto* const real = Real<int(const char*, mode_t)>("mkdir");
  return Fails() ? -1 : real(path, mode);
}

int unlink(const char* path) {
  static auto* const real = Real<int(const char*)>("unlink");
  return Fails() ? -1 : real(path);
}

DIR* opendir(const char* path) {
  static auto* const real = Real<DIR*(const char*)>("opendir");
  return Fails() ? nullptr : real(path);
}

struct dirent* readdir(DIR* folder) {
  static auto* const real = Real<struct dirent*(DIR*)>("readdir");
  return Fails() ? nullptr : real(folder);
}

}  // extern "C"
