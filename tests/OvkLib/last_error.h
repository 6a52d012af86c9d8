#pragma once

// Sets the error that the platform remembers of its last failed call, by what it means.

enum class LastError { AccessDenied, WriteProtected, SharingViolation, DiskFull, SomethingElse };

void SetLastPlatformError(LastError error);
