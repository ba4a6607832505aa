// The wait state: the hourglass, and the document windows hidden when asked, around work that takes a while.
#pragma once

namespace tarrow {

// Whoever shows the wait state. Rooms use the class WaitState below.
class Waiting {
 public:
  // Nest; what the outermost pair began it ends.
  virtual void BeginWait(bool hideWindows) = 0;
  virtual void EndWait() = 0;

 protected:
  ~Waiting() = default;
};

// The wait state for as long as the object lives.
class WaitState {
 public:
  explicit WaitState(Waiting& waiting, bool hideWindows = false) : waiting_(waiting) {
    waiting_.BeginWait(hideWindows);
  }
  ~WaitState() { waiting_.EndWait(); }
  WaitState(const WaitState&) = delete;
  WaitState& operator=(const WaitState&) = delete;

 private:
  Waiting& waiting_;
};

}  // namespace tarrow
