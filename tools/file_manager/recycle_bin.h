// Whether a drive has a recycle bin, so that nobody is promised one where deleting is for good.
#pragma once

namespace tarrow {

enum class DriveKind { kFixed, kRemovable, kRemote, kOther };

// What is known of a drive.
struct DriveFacts {
  DriveKind kind = DriveKind::kOther;
  bool tellsOfBin = false;  // the system could say what its bin holds
};

// Only drives that stay in the machine have one. The system may answer for others too, and deletes for good
// there all the same.
[[nodiscard]] constexpr bool HasRecycleBin(const DriveFacts& drive) {
  return drive.kind == DriveKind::kFixed && drive.tellsOfBin;
}

}  // namespace tarrow
