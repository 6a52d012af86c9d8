#include <cerrno>

#include "tests/OvkLib/last_error.h"

void SetLastPlatformError(LastError error) {
  constexpr int kNumbers[] = {EACCES, EROFS, ETXTBSY, ENOSPC, ENOENT};
  errno = kNumbers[static_cast<int>(error)];
}
