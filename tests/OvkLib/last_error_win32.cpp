#include <windows.h>

#include "tests/OvkLib/last_error.h"

void SetLastPlatformError(LastError error) {
  constexpr DWORD kCodes[] = {ERROR_ACCESS_DENIED, ERROR_WRITE_PROTECT, ERROR_SHARING_VIOLATION,
                              ERROR_DISK_FULL, ERROR_FILE_NOT_FOUND};
  SetLastError(kCodes[static_cast<int>(error)]);
}
