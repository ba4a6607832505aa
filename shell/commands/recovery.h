// Recovery: no word is lost to a crash, a kill or a power cut.
//
// It follows the edit windows and keeps a journal of every text that is not saved, and at the start offers
// the texts that runs without a proper end have left behind. Result windows have nothing to be kept.
#pragma once

#include "edit/documents/file_edit.h"
#include "edit/recovery/journal.h"
#include "edit/recovery/left_texts.h"
#include "edit/recovery/windows_journal_disk.h"
#include "framework/command_target.h"
#include "framework/handle.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace tarrow {

class Recovery final : public CommandTarget {
 public:
  // The services outlive the object. Nothing is kept before Start().
  explicit Recovery(const DocumentServices& services);
  ~Recovery() override;

  // From now on journals are kept in `directory` (a backslash at its end), of the windows that come; none
  // where that is empty.
  void Start(std::string directory);

  // Offers what others have left there, and opens what the user wants.
  void Offer();

  // What becomes of a document window.
  void Opened(CMDIChildWnd& child);
  void Retitled(CMDIChildWnd& child);
  void Closed(CMDIChildWnd& child);

  // The program is about to be ended from outside: puts everything on the disk, or, where the user has been
  // asked about every text, removes it.
  void EndNow(bool wasAsked);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  class WatchedText;

  // A timer of the system's own thread. One of the window would wait until no input is left.
  static void DeleteTimer(HANDLE timer) { (void)::DeleteTimerQueueTimer(nullptr, timer, nullptr); }
  using TimerHandle = UniqueHandle<HANDLE, DeleteTimer>;

  // What runs once journals are kept.
  struct Keeping {
    Keeping(std::string directory, HWND frame, std::function<void()> isWanted);

    WindowsJournalDisk disk;
    BackgroundQueue queue;
    JournalServices services;
  };

  void StartTimer() noexcept;
  LRESULT OnDue(WPARAM, LPARAM);
  LRESULT OnQueueIdle(WPARAM, LPARAM);
  void OfferTexts();
  void DropSaved(std::vector<LeftText>& texts) const;
  void Open(LeftText& left);
  JournalDescription NameOf(const LeftText& left) const;

  const DocumentServices& services_;
  std::optional<Keeping> keeping_;
  std::map<const CMDIChildWnd*, std::unique_ptr<WatchedText>> texts_;
  TimerHandle timer_;
};

}  // namespace tarrow
