// Notices that a file has been changed by somebody else, from the size and the time that its name shows.
//
// A look costs nothing on a local disk. What lies on a network is never looked at: that might take as long as
// the network likes.
#pragma once

#include <cstdint>
#include <string>

namespace tarrow {

class FileWatch {
 public:
  // Watches the file `path` as it is now.
  explicit FileWatch(const std::string& path) { Watch(path); }

  // Whether the file, which is called `path` now, is there and another one than at the last look.
  bool HasChanged(const std::string& path);

 private:
  struct Stamp {
    std::uint64_t size = 0, modified = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };

  void Watch(const std::string& path);
  bool Look(Stamp& stamp) const;

  std::string path_;
  bool isLocal_ = false;
  Stamp stamp_;
};

}  // namespace tarrow
