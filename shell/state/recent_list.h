// The names that the user has worked with lately: six files, or six projects.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

class RecentList {
 public:
  static constexpr std::size_t kCapacity = 6;

  // Makes `name` the first. One that is listed already changes places with the first, so that the others stay
  // where the user is used to find them; otherwise all move down and the last is dropped.
  void Add(std::string_view name) {
    isChanged_ = true;
    auto found = std::find(names_.begin(), names_.end(), name);
    if (found != names_.end()) return std::iter_swap(names_.begin(), found);
    names_.emplace(names_.begin(), name);
    if (names_.size() > kCapacity) names_.pop_back();
  }

  // Adds a name at the end, as long as there is room: a list that is read from a file.
  void Append(std::string name) {
    if (names_.size() < kCapacity) names_.push_back(std::move(name));
  }

  // Most recent first, at most kCapacity.
  const std::vector<std::string>& Names() const { return names_; }

  void Clear() {
    names_.clear();
    isChanged_ = false;
  }

  // This list, begun as `saved` once was, beside what is saved by now: another instance may have added to
  // that. Its names follow those of this list, or come alone where nothing was added here.
  RecentList JoinedWith(const RecentList& saved) const {
    if (!isChanged_ && !saved.names_.empty()) return saved;
    RecentList joined = *this;
    for (const std::string& name : saved.names_)
      if (std::ranges::find(names_, name) == names_.end()) joined.Append(name);
    return joined;
  }

 private:
  bool isChanged_ = false;  // since it was read
  std::vector<std::string> names_;
};

}  // namespace tarrow
