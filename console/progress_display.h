// How far a long command is, as one line on the terminal that is overwritten in place. Nothing is shown in
// the first half second, and nothing where the errors do not go to a terminal.
#pragma once

#include "base/progress.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow {

class ProgressDisplay final : public Progress {
 public:
  ProgressDisplay();

  // Begins with the file `name`, of which nothing is read.
  void Begin(std::string_view name);
  void AddTotal(std::uint64_t bytes) { total_ += bytes; }
  void AddRead(std::uint64_t bytes) { read_ += bytes; }

  // Throws CYieldException after Ctrl+C.
  void Poll() override;

  // Takes the line off the terminal, to make room for other output.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;

  std::string Text() const;

  bool enabled_;
  std::string name_;
  std::uint64_t total_ = 0;
  std::uint64_t read_ = 0;
  Clock::time_point next_;
  std::size_t shown_ = 0;  // columns of the line on the terminal
};

}  // namespace tarrow
